// What a running fade or cross-fade adds to the look of a view, kept beside the view: its own alpha value is left
// alone.
#pragma once

#import "OffscreenSurface.h"

namespace platform::alpha {

/// A view that replaces another one: the picture of the old one dissolves into the new one.
struct CrossFade {
    OffscreenSurface oldPicture;
    NSRect oldFrame = NSZeroRect; ///< In the superview's coordinates.
    double progress = 1;          ///< 0 shows the old picture, 1 the new view.
};

struct Transition {
    double alpha = 1;   ///< The view's alpha value.
    double opacity = 1; ///< Multiplies it while the view fades.
    CrossFade crossFade;
    bool transformed = false; ///< Scaled by its layer: the edges of its subviews lie between pixels.
};

/// Whether any view is not simply opaque.
bool anyTransition();

/// The view's transition, or null for a view that is simply opaque. The pointer holds until the next call that begins
/// or ends one.
Transition *transitionOf(NSView *view);

/// The view's transition, a new one without effect when it has none.
Transition &beginTransition(NSView *view);

/// Sets the view's alpha value and has the view drawn again.
void setAlpha(NSView *view, double alpha);

/// Says whether the view's layer scales it.
void setTransformed(NSView *view, bool transformed);

/// End the view's fade or cross-fade, if any, and have the view drawn again.
void endFade(NSView *view);
void endCrossFade(NSView *view);

/// Forgets the transition of a view that is being deallocated.
void forgetTransition(NSView *view);

} // namespace platform::alpha
