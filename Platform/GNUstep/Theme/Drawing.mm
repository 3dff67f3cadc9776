#import "Drawing.h"

#import "Palette.h"

#include <algorithm>

namespace flattheme {

NSBezierPath *roundedPath(NSRect rect, CGFloat radius) {
    const CGFloat fitting = std::min({radius, NSWidth(rect) / 2, NSHeight(rect) / 2});
    return [NSBezierPath bezierPathWithRoundedRect:rect xRadius:fitting yRadius:fitting];
}

void drawPanel(NSRect rect, NSColor *fill, NSColor *line, CGFloat radius) {
    if (NSWidth(rect) < 2 || NSHeight(rect) < 2) {
        return;
    }
    NSBezierPath *path = roundedPath(NSInsetRect(rect, 0.5, 0.5), radius);
    if (fill != nil) {
        [fill set];
        [path fill];
    }
    if (line != nil) {
        [line set];
        [path setLineWidth:1];
        [path stroke];
    }
}

void fillCapsule(NSRect rect, NSColor *fill) {
    if (NSWidth(rect) <= 0 || NSHeight(rect) <= 0) {
        return;
    }
    [fill set];
    [roundedPath(rect, std::min(NSWidth(rect), NSHeight(rect)) / 2) fill];
}

void drawChevron(NSRect rect, Direction direction, bool flipped, NSColor *colour) {
    constexpr CGFloat along = 3.5;
    constexpr CGFloat across = 2;
    NSBezierPath *path = [NSBezierPath bezierPath];
    const NSPoint middle = NSMakePoint(NSMidX(rect), NSMidY(rect));
    if (direction == Direction::up || direction == Direction::down) {
        const CGFloat tip = ((direction == Direction::up) == flipped) ? -across : across;
        [path moveToPoint:NSMakePoint(middle.x - along, middle.y - tip)];
        [path lineToPoint:NSMakePoint(middle.x, middle.y + tip)];
        [path lineToPoint:NSMakePoint(middle.x + along, middle.y - tip)];
    } else {
        const CGFloat tip = direction == Direction::left ? -across : across;
        [path moveToPoint:NSMakePoint(middle.x - tip, middle.y - along)];
        [path lineToPoint:NSMakePoint(middle.x + tip, middle.y)];
        [path lineToPoint:NSMakePoint(middle.x - tip, middle.y + along)];
    }
    [path setLineWidth:1.4];
    [colour set];
    [path stroke];
}

void drawCheckMark(NSRect rect, NSColor *colour, CGFloat width) {
    const auto at = [rect](CGFloat x, CGFloat y) {
        return NSMakePoint(NSMinX(rect) + NSWidth(rect) * x, NSMinY(rect) + NSHeight(rect) * y);
    };
    NSBezierPath *path = [NSBezierPath bezierPath];
    [path moveToPoint:at(0.22, 0.50)];
    [path lineToPoint:at(0.42, 0.28)];
    [path lineToPoint:at(0.78, 0.74)];
    [path setLineWidth:width];
    [colour set];
    [path stroke];
}

void drawFocusRing(NSRect rect, CGFloat radius) {
    NSBezierPath *path = roundedPath(NSInsetRect(rect, 1, 1), radius);
    [colour(palette().accentLine) set];
    [path setLineWidth:2];
    [path stroke];
}

CGFloat scale() {
    constexpr CGFloat usualSize = 12;
    return std::clamp([NSFont systemFontSize] / usualSize, 1.0, 3.0);
}

} // namespace flattheme
