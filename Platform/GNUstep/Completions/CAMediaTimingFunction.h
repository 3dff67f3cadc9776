// Core Animation's timing functions.
#pragma once

#import <Foundation/Foundation.h>

#include "TimingCurve.h"

extern NSString *const kCAMediaTimingFunctionLinear;
extern NSString *const kCAMediaTimingFunctionEaseIn;
extern NSString *const kCAMediaTimingFunctionEaseOut;
extern NSString *const kCAMediaTimingFunctionEaseInEaseOut;
extern NSString *const kCAMediaTimingFunctionDefault;

/// The pace of an animation. Immutable.
@interface CAMediaTimingFunction : NSObject {
    platform::animation::TimingCurve _curve;
}

/// One of the named functions; an unknown name gives "ease in, ease out".
+ (instancetype)functionWithName:(NSString *)name;
// clang-format off
+ (instancetype)functionWithControlPoints:(float)x1 :(float)y1 :(float)x2 :(float)y2;
// clang-format on

/// The control point at `index` (0 to 3, the ends included), as x and y.
- (void)getControlPointAtIndex:(size_t)index values:(float[2])values;

@end

/// What the animations read.
@interface CAMediaTimingFunction (Curve)
- (platform::animation::TimingCurve)curve;
@end
