// Push buttons, segmented controls and steppers.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"

using namespace flattheme;

namespace {

bool isPressed(GSThemeControlState state) {
    return state == GSThemeHighlightedState || state == GSThemeHighlightedFirstResponderState;
}

bool isOn(GSThemeControlState state) {
    return state == GSThemeSelectedState || state == GSThemeSelectedFirstResponderState;
}

// The button that Return presses.
bool isDefaultButton(NSCell *cell) {
    return [cell isKindOfClass:[NSButtonCell class]] && [cell isEnabled] &&
           [[(NSButtonCell *)cell keyEquivalent] isEqualToString:@"\r"];
}

NSColor *fillFor(NSCell *cell, GSThemeControlState state) {
    const Palette &p = palette();
    if (isDefaultButton(cell)) {
        return colour(isPressed(state) ? p.pressedAccent : p.accent);
    }
    if (![cell isEnabled]) {
        return colour(p.window);
    }
    return colour(isPressed(state) || isOn(state) ? p.pressedControl : p.control);
}

platform::Hook<NSRect, NSAttributedString *, NSRect, NSView *> drawTitleHook;

// The title of the default button stands on the accent colour.
NSRect drawTitle(id self, SEL command, NSAttributedString *title, NSRect frame, NSView *view) {
    if (isDefaultButton(self) && [self isBordered]) {
        NSMutableAttributedString *readable = [[title mutableCopy] autorelease];
        [readable addAttribute:NSForegroundColorAttributeName
                         value:colour(palette().accentText)
                         range:NSMakeRange(0, [readable length])];
        title = readable;
    }
    return drawTitleHook.original(self, command, title, frame, view);
}

} // namespace

void flattheme::installButtonHooks() {
    drawTitleHook.install([NSButtonCell class], @selector(drawTitle:withFrame:inView:), drawTitle);
}

@implementation QVFlatTheme (Buttons)

// No picture of a Return key in the default button: its colour says it.
- (void)setKeyEquivalent:(NSString *)key forButtonCell:(NSButtonCell *)cell {
}

- (void)drawButton:(NSRect)frame
                in:(NSCell *)cell
              view:(NSView *)view
             style:(int)style
             state:(GSThemeControlState)state {
    NSColor *line = colour(isDefaultButton(cell) ? palette().accent : palette().border);
    switch (style) {
    case NSCircularBezelStyle:
    case NSHelpButtonBezelStyle: {
        const CGFloat side = MIN(NSWidth(frame), NSHeight(frame));
        frame = NSMakeRect(NSMidX(frame) - side / 2, NSMidY(frame) - side / 2, side, side);
        drawPanel(frame, fillFor(cell, state), line, side / 2);
        break;
    }
    case NSDisclosureBezelStyle:
    case NSRecessedBezelStyle:
        if (isOn(state) || isPressed(state)) {
            drawPanel(frame, fillFor(cell, state), nil, 4);
        }
        break;
    default:
        if ([view isKindOfClass:[NSButton class]] && style == NSRoundedBezelStyle) {
            frame = NSInsetRect(frame, 0, 1);
        }
        drawPanel(frame, fillFor(cell, state), line, 5);
        break;
    }
}

- (GSThemeMargins)buttonMarginsForCell:(NSCell *)cell style:(int)style state:(GSThemeControlState)state {
    GSThemeMargins margins;
    margins.left = margins.right = style == NSCircularBezelStyle || style == NSHelpButtonBezelStyle ? 2 : 6;
    margins.top = margins.bottom = 3;
    return margins;
}

- (void)drawSegmentedControlSegment:(NSCell *)cell
                          withFrame:(NSRect)frame
                             inView:(NSView *)view
                              style:(NSSegmentStyle)style
                              state:(GSThemeControlState)state
                        roundedLeft:(BOOL)roundedLeft
                       roundedRight:(BOOL)roundedRight {
    [NSGraphicsContext saveGraphicsState];
    NSRectClip(frame);
    // An inner edge is square: its round corners lie outside of the clip.
    constexpr CGFloat radius = 5;
    NSRect rect = frame;
    if (!roundedLeft) {
        rect.origin.x -= radius + 1;
        rect.size.width += radius + 1;
    }
    if (!roundedRight) {
        rect.size.width += radius + 1;
    }
    const bool selected = isOn(state) || isPressed(state);
    drawPanel(rect, colour(selected ? palette().selectedRow : palette().control), colour(palette().border), radius);
    if (!roundedRight) {
        [colour(palette().border) set];
        NSRectFill(NSMakeRect(NSMaxX(frame) - 1, NSMinY(frame), 1, NSHeight(frame)));
    }
    [NSGraphicsContext restoreGraphicsState];
}

- (void)drawStepperCell:(NSCell *)cell
              withFrame:(NSRect)frame
                 inView:(NSView *)view
            highlightUp:(BOOL)highlightUp
          highlightDown:(BOOL)highlightDown {
    const bool flipped = [view isFlipped];
    const Palette &p = palette();
    drawPanel(frame, colour([cell isEnabled] ? p.control : p.window), colour(p.border), 4);
    NSRect up = frame;
    NSRect down = frame;
    up.size.height = down.size.height = NSHeight(frame) / 2;
    (flipped ? down : up).origin.y += NSHeight(up);
    if (highlightUp || highlightDown) {
        drawPanel(NSInsetRect(highlightUp ? up : down, 1, 1), colour(p.pressedControl), nil, 3);
    }
    NSColor *arrow = colour([cell isEnabled] ? p.text : p.disabledText);
    drawChevron(up, Direction::up, flipped, arrow);
    drawChevron(down, Direction::down, flipped, arrow);
}

@end
