// Where a popover goes: plain geometry in screen coordinates (y grows upwards).
#pragma once

namespace platform::popover {

enum class Edge { left, right, bottom, top };

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// The window's frame and where its arrow's tip lies.
struct Placement {
    Rect frame;
    /// The anchor's edge that the popover stands at. The arrow is on the opposite edge of the popover.
    Edge edge = Edge::bottom;
    /// The tip's distance from the frame's left (for bottom and top) or lower end (for left and right); negative when
    /// the popover had to be moved so far that an arrow would point at nothing.
    double arrow = -1;
};

/// Half the width of the arrow at its foot, its length, and the radius of the popover's corners, in points.
constexpr double arrowHalfWidth = 9;
constexpr double arrowLength = 9;
constexpr double cornerRadius = 8;

/// Places a popover with a body of `width` × `height` at an edge of `anchor`: at `preferred` if it fits on the screen
/// there, else at the opposite edge if it fits there, else at the preferred one, moved onto the screen.
Placement place(const Rect& anchor, double width, double height, Edge preferred, const Rect& screen);

} // namespace platform::popover
