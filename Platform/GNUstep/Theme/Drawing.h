// The shapes that every element is made of.
#pragma once

#import <AppKit/AppKit.h>

namespace flattheme {

/// Where a chevron points to on screen.
enum class Direction { up, down, left, right };

/// A rectangle with round corners.
NSBezierPath *roundedPath(NSRect rect, CGFloat radius);

/// Fills `rect` with round corners and draws a hairline along its inside. `fill` or `line` may be nil.
void drawPanel(NSRect rect, NSColor *fill, NSColor *line, CGFloat radius);

/// Fills a bar whose ends are round.
void fillCapsule(NSRect rect, NSColor *fill);

/// A chevron in the middle of `rect`. `flipped` tells whether y grows downwards where it is drawn.
void drawChevron(NSRect rect, Direction direction, bool flipped, NSColor *colour);

/// A check mark that fills `rect`, in an unflipped coordinate system.
void drawCheckMark(NSRect rect, NSColor *colour, CGFloat width);

/// The ring around what has the keyboard.
void drawFocusRing(NSRect rect, CGFloat radius);

/// How much larger than usual the user wants things: the system font's size against the usual one, between 1 and 3.
CGFloat scale();

} // namespace flattheme
