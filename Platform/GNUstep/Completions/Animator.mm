// GNUstep has no animator proxies.
#import "Animator.h"

#import "AnimationDriver.h"
#import "ViewAnimations.h"

#include <array>

namespace animation = platform::animation;

@interface QVAnimatorProxy : NSProxy {
    id _target;
}
- (instancetype)initWithTarget:(id)target;
@end

namespace {

// Setters with a second argument (setFrame:display:) count as well: the numbers come first.
bool animateCall(NSInvocation *call, id target) {
    NSMethodSignature *signature = [call methodSignature];
    if ([signature numberOfArguments] < 3 || animation::partsOfType([signature getArgumentTypeAtIndex:2]) == 0) {
        return false;
    }
    animation::Values argument{};
    [call getArgument:argument.data() atIndex:2];
    auto change = animation::changeBySetter(target, [call selector], argument.data());
    if (!change) {
        return false;
    }
    animation::AnimationDriver::shared().start(std::move(*change));
    return true;
}

bool animateViewCall(NSInvocation *call, NSView *view) {
    if (sel_isEqual([call selector], @selector(setHidden:))) {
        BOOL hidden = NO;
        [call getArgument:&hidden atIndex:2];
        animation::animateHidden(view, hidden);
        return true;
    }
    if (sel_isEqual([call selector], @selector(replaceSubview:with:))) {
        NSView *oldView = nil;
        NSView *newView = nil;
        [call getArgument:&oldView atIndex:2];
        [call getArgument:&newView atIndex:3];
        animation::crossFade(view, oldView, newView);
        return true;
    }
    return false;
}

} // namespace

@implementation QVAnimatorProxy

- (instancetype)initWithTarget:(id)target {
    _target = [target retain];
    return self;
}

- (void)dealloc {
    [_target release];
    [super dealloc];
}

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
    return [_target methodSignatureForSelector:selector];
}

- (BOOL)respondsToSelector:(SEL)selector {
    return [_target respondsToSelector:selector];
}

- (BOOL)isKindOfClass:(Class)aClass {
    return [_target isKindOfClass:aClass];
}

- (void)forwardInvocation:(NSInvocation *)call {
    const bool animates =
        ([_target isKindOfClass:[NSView class]] && animateViewCall(call, _target)) || animateCall(call, _target);
    if (!animates) {
        [call invokeWithTarget:_target];
    }
}

@end

namespace {

id animatorOf(id target) {
    return [[[QVAnimatorProxy alloc] initWithTarget:target] autorelease];
}

} // namespace

@implementation NSView (Animator)
- (instancetype)animator {
    return animatorOf(self);
}
@end

@implementation NSWindow (Animator)
- (instancetype)animator {
    return animatorOf(self);
}
@end

@implementation NSLayoutConstraint (Animator)
- (instancetype)animator {
    return animatorOf(self);
}
@end
