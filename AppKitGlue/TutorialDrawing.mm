#import "TutorialDrawing.h"

#include <array>
#include <cmath>

namespace appkitglue::tutorial {

namespace {

NSDictionary *attributesOf(CGFloat size, Weight weight, NSColor *color) {
    NSFont *font = weight == Weight::bold         ? [NSFont boldSystemFontOfSize:size]
                   : weight == Weight::fixedPitch ? [NSFont userFixedPitchFontOfSize:size]
                                                  : [NSFont systemFontOfSize:size];
    return [NSDictionary
        dictionaryWithObjectsAndKeys:font, NSFontAttributeName, color, NSForegroundColorAttributeName, nil];
}

} // namespace

void drawPanel(NSRect rect, CGFloat radius, NSColor *fill, NSColor *border) {
    NSBezierPath *path = [NSBezierPath bezierPathWithRoundedRect:NSInsetRect(rect, 0.5, 0.5)
                                                         xRadius:radius
                                                         yRadius:radius];
    [fill set];
    [path fill];
    if (border != nil) {
        [border set];
        [path setLineWidth:1];
        [path stroke];
    }
}

CGFloat drawText(NSString *text, NSPoint origin, CGFloat size, Weight weight, NSColor *color) {
    NSDictionary *attributes = attributesOf(size, weight, color);
    [text drawAtPoint:origin withAttributes:attributes];
    return [text sizeWithAttributes:attributes].width;
}

void drawCentredText(NSString *text, NSRect rect, CGFloat size, Weight weight, NSColor *color) {
    NSDictionary *attributes = attributesOf(size, weight, color);
    const NSSize extent = [text sizeWithAttributes:attributes];
    [text drawAtPoint:NSMakePoint(std::floor(NSMidX(rect) - extent.width / 2),
                                  std::floor(NSMidY(rect) - extent.height / 2))
        withAttributes:attributes];
}

NSRect drawWindow(NSRect rect) {
    constexpr CGFloat barHeight = 22;
    constexpr CGFloat dot = 8;
    drawPanel(rect, 8, [NSColor textBackgroundColor], [NSColor gridColor]);
    const CGFloat barTop = NSMaxY(rect);
    [[NSColor gridColor] set];
    NSRectFill(NSMakeRect(rect.origin.x + 1, barTop - barHeight, rect.size.width - 2, 1));
    for (int i = 0; i < 3; ++i) {
        const NSRect circle =
            NSMakeRect(rect.origin.x + 10 + i * (dot + 6), barTop - barHeight / 2 - dot / 2, dot, dot);
        [faint([NSColor secondaryLabelColor], 0.5) set];
        [[NSBezierPath bezierPathWithOvalInRect:circle] fill];
    }
    return NSMakeRect(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height - barHeight);
}

void drawTextLines(NSRect rect, int count, CGFloat height, NSColor *color) {
    constexpr std::array lengths{0.9, 0.7, 0.8, 0.5};
    [color set];
    for (int i = 0; i < count; ++i) {
        const CGFloat width = std::round(rect.size.width * lengths.at(static_cast<std::size_t>(i) % lengths.size()));
        const NSRect line = NSMakeRect(rect.origin.x, NSMaxY(rect) - height - i * height * 2.4, width, height);
        [[NSBezierPath bezierPathWithRoundedRect:line xRadius:height / 2 yRadius:height / 2] fill];
    }
}

void drawSlide(NSRect rect, NSString *title, int lines) {
    drawPanel(rect, 4, [NSColor windowBackgroundColor], [NSColor gridColor]);
    const CGFloat margin = std::round(rect.size.width * 0.08);
    const CGFloat titleSize = std::round(rect.size.height * 0.13);
    const CGFloat titleBottom = std::round(NSMaxY(rect) - margin - titleSize * 1.2);
    drawText(title, NSMakePoint(rect.origin.x + margin, titleBottom), titleSize, Weight::bold, [NSColor textColor]);
    const NSRect below = NSMakeRect(rect.origin.x + margin, rect.origin.y + margin, rect.size.width - 2 * margin,
                                    titleBottom - rect.origin.y - margin * 1.4);
    drawTextLines(below, lines, std::max(2.0, std::round(rect.size.height * 0.035)),
                  faint([NSColor secondaryLabelColor], 0.6));
}

void drawChart(NSRect rect) {
    constexpr std::array heights{0.35, 0.5, 0.45, 0.75, 1.0};
    const CGFloat column = rect.size.width / static_cast<CGFloat>(heights.size());
    for (std::size_t i = 0; i < heights.size(); ++i) {
        [faint([NSColor controlAccentColor], i + 1 == heights.size() ? 1 : 0.5) set];
        [NSBezierPath fillRect:NSMakeRect(std::round(rect.origin.x + static_cast<CGFloat>(i) * column), rect.origin.y,
                                          std::round(column * 0.7), std::round(rect.size.height * heights.at(i)))];
    }
}

NSColor *faint(NSColor *color, CGFloat alpha) {
    // As numbers: the theme's named colours ignore an alpha of their own here and there.
    return [[color colorUsingColorSpace:[NSColorSpace deviceRGBColorSpace]] colorWithAlphaComponent:alpha];
}

} // namespace appkitglue::tutorial
