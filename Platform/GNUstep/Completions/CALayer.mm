// GNUstep has no layers.
#import "CALayer.h"

#import "AnimationDriver.h"
#import "Hooks.h"
#import "Retained.h"
#import "ViewTransitions.h"

#include <memory>
#include <unordered_map>
#include <utility>

namespace animation = platform::animation;

namespace {

using Layers = std::unordered_map<NSView *, platform::Retained>;

// Never destroyed: views are deallocated after static objects are.
Layers &layers() {
    static auto *const shared = std::make_unique<Layers>().release();
    return *shared;
}

NSRect transformed(NSRect rect, const CGAffineTransform &t) {
    return NSMakeRect(rect.origin.x + t.tx, rect.origin.y + t.ty, rect.size.width * t.a, rect.size.height * t.d);
}

// The view draws as ever, in a frame of another size: AppKit scales its coordinates.
void moveView(NSView *view, const CGAffineTransform &before, const CGAffineTransform &after) {
    const NSRect now = [view frame];
    const NSRect untransformed = NSMakeRect(now.origin.x - before.tx, now.origin.y - before.ty,
                                            now.size.width / before.a, now.size.height / before.d);
    const NSRect bounds = [view bounds];
    const BOOL resizes = [view autoresizesSubviews];
    [[view superview] setNeedsDisplayInRect:NSIntegralRect(NSInsetRect(now, -1, -1))];
    [view setAutoresizesSubviews:NO];
    [view setFrame:transformed(untransformed, after)];
    [view setBounds:bounds];
    [view setAutoresizesSubviews:resizes];
    [[view superview] setNeedsDisplayInRect:NSIntegralRect(NSInsetRect([view frame], -1, -1))];
    [view setNeedsDisplay:YES];
}

} // namespace

@interface CALayer (View)
- (instancetype)initWithView:(NSView *)view;
- (void)viewIsGone;
@end

@implementation CALayer

- (instancetype)initWithView:(NSView *)view {
    if ((self = [super init]) != nil) {
        _view = view;
        _transform = CGAffineTransformIdentity;
    }
    return self;
}

- (void)viewIsGone {
    _view = nil;
    animation::AnimationDriver::shared().forget(self);
}

- (CGAffineTransform)affineTransform {
    return _transform;
}

- (void)setAffineTransform:(CGAffineTransform)transform {
    auto &driver = animation::AnimationDriver::shared();
    if (!driver.isMoving() && animation::AnimationGroup::currentAnimatesImplicitly()) {
        auto change = animation::changeBySetter(self, @selector(setAffineTransform:), &transform.a);
        driver.start(std::move(*change));
        return;
    }
    // Nothing can be seen of a view without extent, nor brought back from it.
    if (transform.a > 0 && transform.d > 0) {
        const animation::AnimationDriver::MovingScope moving(driver);
        moveView(_view, _transform, transform);
        _transform = transform;
        platform::alpha::setTransformed(_view, transform.a != 1 || transform.d != 1);
    }
}

@end

@implementation NSView (Layer)

- (BOOL)wantsLayer {
    return layers().contains(self);
}

- (void)setWantsLayer:(BOOL)wants {
    if (!wants) {
        [[self layer] viewIsGone];
        layers().erase(self);
    } else if (![self wantsLayer]) {
        CALayer *layer = [[CALayer alloc] initWithView:self];
        layers().emplace(self, platform::Retained(layer));
        [layer release];
    }
}

- (CALayer *)layer {
    const auto found = layers().find(self);
    return found != layers().end() ? found->second.get() : nil;
}

@end

namespace platform {

namespace {

Hook<void> deallocView;

void dealloc(id self, SEL command) {
    if (!layers().empty()) {
        [self setWantsLayer:NO];
    }
    deallocView.original(self, command);
}

} // namespace

void installLayers();

void installLayers() {
    deallocView.install([NSView class], @selector(dealloc), &dealloc);
}

} // namespace platform
