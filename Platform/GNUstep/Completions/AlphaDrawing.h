// Views that are seen with their alpha value, whatever they contain.
#pragma once

#import "ViewTransitions.h"

namespace platform::alpha {

/// Has the view and what it covers drawn again.
void redraw(NSView* view);

/// A picture of the view and its subviews as they look now, without what lies behind them and without the view's own
/// alpha value. The view must be in a window.
OffscreenSurface pictureOf(NSView* view);

} // namespace platform::alpha
