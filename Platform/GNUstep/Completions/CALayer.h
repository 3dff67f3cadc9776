// Core Animation's layers, as far as views have one here: a transform.
#pragma once

#import <AppKit/AppKit.h>

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
    CGFloat a;
    CGFloat b;
    CGFloat c;
    CGFloat d;
    CGFloat tx;
    CGFloat ty;
};

inline constexpr CGAffineTransform CGAffineTransformIdentity{1, 0, 0, 1, 0, 0};

/// Scales what `t` is applied to first.
constexpr CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat x, CGFloat y) {
    return {t.a * x, t.b * x, t.c * y, t.d * y, t.tx, t.ty};
}

/// Moves what `t` is applied to first: the distance is scaled and rotated by `t`.
constexpr CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat x, CGFloat y) {
    return {t.a, t.b, t.c, t.d, t.a * x + t.c * y + t.tx, t.b * x + t.d * y + t.ty};
}

/// The layer of a view that wants one. Its anchor is the origin of the view's frame.
@interface CALayer : NSObject {
    NSView *_view;
    CGAffineTransform _transform;
}

/// The transform that the view is seen with. Scaling and moving show; rotating and shearing do not. Unlike a real layer
/// this one changes the view's frame (never its bounds). Animates in groups that allow implicit animation.
- (CGAffineTransform)affineTransform;
- (void)setAffineTransform:(CGAffineTransform)transform;

@end

@interface NSView (Layer)
/// Whether the view has a layer; it has none at first.
- (BOOL)wantsLayer;
- (void)setWantsLayer:(BOOL)wants;
/// The view's layer, owned by the view, or nil.
- (CALayer *)layer;
@end
