// Views of one colour and a look at the pixels that a window drew.
#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <ostream>

/// Fills its bounds, or their left half, with one colour; draws nothing without one.
@interface DrawnView : NSView {
@public
    NSColor *_color;
    BOOL _leftHalfOnly;
    BOOL _flipped;
    BOOL _opaque;
    BOOL _raises;
    int _drawCount;
    std::function<void()> _whenDeallocated;
}
@end

namespace test {

struct Color {
    int red;
    int green;
    int blue;
};

/// Equal up to one step of rounding.
bool operator==(const Color &a, const Color &b);
std::ostream &operator<<(std::ostream &stream, const Color &color);

extern const Color red;
extern const Color green;
extern const Color blue;
extern const Color white;

/// `over` at `alpha` on `below`.
Color mix(const Color &over, double alpha, const Color &below);

NSColor *colorOf(const Color &color);

/// A window with a white, opaque content view, on the screen; what is made in its lifetime is released with it.
class Canvas {
public:
    Canvas();
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;
    ~Canvas();

    NSWindow *window = nil;
    DrawnView *background = nil;

    /// Draws what needs it and reads the pixel at `point` of the view.
    Color at(NSView *view, NSPoint point);

private:
    NSAutoreleasePool *pool_;
};

/// A new view, owned by `parent` (by the autorelease pool without one).
DrawnView *addView(NSView *parent, NSRect frame, const Color &color, double alpha = 1);
/// One that draws nothing itself.
DrawnView *addEmptyView(NSView *parent, NSRect frame, double alpha = 1);

} // namespace test
