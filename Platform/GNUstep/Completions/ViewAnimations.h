// Animations of views that are more than a changing number.
#pragma once

#import <AppKit/AppKit.h>

namespace platform::animation {

/// Fades the view out and hides it then, or shows it and fades it in.
void animateHidden(NSView* view, bool hidden);

/// Puts `newView` at once in the place of `oldView` among the subviews of `parent`, and dissolves the picture of the
/// old one into it. A null `newView` only removes.
void crossFade(NSView* parent, NSView* oldView, NSView* newView);

} // namespace platform::animation
