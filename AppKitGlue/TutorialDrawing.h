// What the drawings of the startup tutorial are made of. All colours are the theme's: they follow light and dark.
#pragma once

#import "Platform.h"

namespace appkitglue::tutorial {

/// The weight of a text.
enum class Weight { regular, bold, fixedPitch };

/// Fills a rectangle with round corners; `border` may be nil.
void drawPanel(NSRect rect, CGFloat radius, NSColor *fill, NSColor *border);

/// Draws one line of text with its lower left corner at `origin`. Returns its width in points.
CGFloat drawText(NSString *text, NSPoint origin, CGFloat size, Weight weight, NSColor *color);

/// Draws one line of text in the middle of a rectangle.
void drawCentredText(NSString *text, NSRect rect, CGFloat size, Weight weight, NSColor *color);

/// A window with a title bar. Returns the part below the title bar.
NSRect drawWindow(NSRect rect);

/// Lines of a text that is too small to read: `count` bars from the upper edge of `rect` down, shorter and longer.
void drawTextLines(NSRect rect, int count, CGFloat height, NSColor *color);

/// A slide: a sheet with a title and lines below.
void drawSlide(NSRect rect, NSString *title, int lines);

/// Columns of different heights.
void drawChart(NSRect rect);

/// `color`, seen through.
NSColor *faint(NSColor *color, CGFloat alpha);

} // namespace appkitglue::tutorial
