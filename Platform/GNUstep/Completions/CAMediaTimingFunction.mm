// GNUstep has no Core Animation.
#import "CAMediaTimingFunction.h"

using platform::animation::TimingCurve;

NSString *const kCAMediaTimingFunctionLinear = @"linear";
NSString *const kCAMediaTimingFunctionEaseIn = @"easeIn";
NSString *const kCAMediaTimingFunctionEaseOut = @"easeOut";
NSString *const kCAMediaTimingFunctionEaseInEaseOut = @"easeInEaseOut";
NSString *const kCAMediaTimingFunctionDefault = @"default";

@implementation CAMediaTimingFunction

+ (instancetype)functionWithCurve:(TimingCurve)curve {
    CAMediaTimingFunction *function = [[[self alloc] init] autorelease];
    function->_curve = curve;
    return function;
}

+ (instancetype)functionWithName:(NSString *)name {
    if ([name isEqualToString:kCAMediaTimingFunctionLinear]) {
        return [self functionWithCurve:{0, 0, 1, 1}];
    }
    if ([name isEqualToString:kCAMediaTimingFunctionEaseIn]) {
        return [self functionWithCurve:{0.42, 0, 1, 1}];
    }
    if ([name isEqualToString:kCAMediaTimingFunctionEaseOut]) {
        return [self functionWithCurve:{0, 0, 0.58, 1}];
    }
    if ([name isEqualToString:kCAMediaTimingFunctionDefault]) {
        return [self functionWithCurve:{0.25, 0.1, 0.25, 1}];
    }
    return [self functionWithCurve:{}];
}

// clang-format off
+ (instancetype)functionWithControlPoints:(float)x1 :(float)y1 :(float)x2 :(float)y2 {
    // clang-format on
    return [self functionWithCurve:{x1, y1, x2, y2}];
}

- (TimingCurve)curve {
    return _curve;
}

- (void)getControlPointAtIndex:(size_t)index values:(float[2])values {
    const double points[4][2] = {{0, 0}, {_curve.x1, _curve.y1}, {_curve.x2, _curve.y2}, {1, 1}};
    if (index > 3) {
        [NSException raise:NSRangeException format:@"A timing function has no control point %zu", index];
    }
    values[0] = static_cast<float>(points[index][0]);
    values[1] = static_cast<float>(points[index][1]);
}

@end
