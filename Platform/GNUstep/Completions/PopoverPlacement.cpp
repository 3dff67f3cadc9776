#include "PopoverPlacement.h"

#include <algorithm>

namespace platform::popover {

namespace {

bool isVertical(Edge edge) {
    return edge == Edge::bottom || edge == Edge::top;
}

Edge opposite(Edge edge) {
    switch (edge) {
    case Edge::left:
        return Edge::right;
    case Edge::right:
        return Edge::left;
    case Edge::bottom:
        return Edge::top;
    case Edge::top:
        break;
    }
    return Edge::bottom;
}

Rect frameAt(const Rect& anchor, double width, double height, Edge edge) {
    Rect frame{.x = anchor.x + (anchor.width - width) / 2,
               .y = anchor.y + (anchor.height - height) / 2,
               .width = width + (isVertical(edge) ? 0 : arrowLength),
               .height = height + (isVertical(edge) ? arrowLength : 0)};
    switch (edge) {
    case Edge::left:
        frame.x = anchor.x - frame.width;
        break;
    case Edge::right:
        frame.x = anchor.x + anchor.width;
        break;
    case Edge::bottom:
        frame.y = anchor.y - frame.height;
        break;
    case Edge::top:
        frame.y = anchor.y + anchor.height;
        break;
    }
    return frame;
}

bool fits(const Rect& frame, Edge edge, const Rect& screen) {
    if (isVertical(edge)) {
        return frame.y >= screen.y && frame.y + frame.height <= screen.y + screen.height;
    }
    return frame.x >= screen.x && frame.x + frame.width <= screen.x + screen.width;
}

double moved(double start, double length, double screenStart, double screenLength) {
    return std::max(screenStart, std::min(start, screenStart + screenLength - length));
}

} // namespace

Placement place(const Rect& anchor, double width, double height, Edge preferred, const Rect& screen) {
    Edge edge = preferred;
    Rect frame = frameAt(anchor, width, height, edge);
    if (!fits(frame, edge, screen)) {
        const Rect other = frameAt(anchor, width, height, opposite(edge));
        if (fits(other, opposite(edge), screen)) {
            edge = opposite(edge);
            frame = other;
        }
    }
    const bool fitted = fits(frame, edge, screen);
    frame.x = moved(frame.x, frame.width, screen.x, screen.width);
    frame.y = moved(frame.y, frame.height, screen.y, screen.height);

    const double tip =
        isVertical(edge) ? anchor.x + anchor.width / 2 - frame.x : anchor.y + anchor.height / 2 - frame.y;
    const double length = isVertical(edge) ? frame.width : frame.height;
    const double margin = cornerRadius + arrowHalfWidth;
    const bool pointsAtAnchor = fitted && tip >= margin && tip <= length - margin;
    return {.frame = frame, .edge = edge, .arrow = pointsAtAnchor ? tip : -1};
}

} // namespace platform::popover
