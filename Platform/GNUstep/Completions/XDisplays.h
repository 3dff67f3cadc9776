// What the completions ask of the X server and the window manager, in plain C++: no AppKit type meets an Xlib macro.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform::x11 {

/// A rectangle in X coordinates: pixels of the root window, y downwards.
struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

/// An output that shows a part of the root window.
struct Output {
    /// The name in the display's own description (EDID), else the output's; UTF-8.
    std::string name;
    Rectangle rectangle;
};

/// The outputs that are on, in the server's order. `display` is Xlib's `Display *`, here and below.
std::vector<Output> activeOutputs(void* display);

/// The height of the root window, against which AppKit's coordinates are flipped.
int rootHeight(void* display);

/// A point in X coordinates.
struct Point {
    int x = 0;
    int y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// Where the pointer is on the root window.
std::optional<Point> pointerLocation(void* display);

/// The rectangle of a window on the root window, without the manager's frame. Nothing when there is no such window.
std::optional<Rectangle> windowRectangle(void* display, unsigned long window);

/// The widths of the frame that the window manager has put around a window: left, right, top, bottom. All zero
/// without a frame.
struct Extents {
    long left = 0;
    long right = 0;
    long top = 0;
    long bottom = 0;

    friend bool operator==(const Extents&, const Extents&) = default;
};
Extents frameExtents(void* display, unsigned long window);

/// Whether the window manager says that it supports a state or hint (its name: "_NET_WM_STATE_FULLSCREEN").
bool managerSupports(void* display, const char* name);

/// Asks the window manager to add (or remove) states of a window on screen: "fullscreen" covers the display, "above"
/// keeps it over panels when another window has the keys.
enum class FullScreenState { On, Off };
void setFullScreen(void* display, unsigned long window, FullScreenState state, bool above);

/// Asks the window manager to keep a window over panels, whoever has the keys, or not to.
void setAbove(void* display, unsigned long window, bool above);

/// Asks the window manager to bring a window to the front and to give it the keys, as a user would.
void activate(void* display, unsigned long window);

} // namespace platform::x11
