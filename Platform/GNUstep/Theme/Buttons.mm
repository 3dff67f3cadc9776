// Push buttons.
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

// A button that is hardly wider than its title has no room to spare.
bool isTight(NSCell *cell) {
    NSView *view = [cell controlView];
    if (![view isKindOfClass:[NSButton class]] || ![cell isKindOfClass:[NSButtonCell class]]) {
        return false;
    }
    return [[(NSButtonCell *)cell attributedTitle] size].width + 20 > NSWidth([view bounds]);
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
    const bool isRound = style == NSCircularBezelStyle || style == NSHelpButtonBezelStyle;
    margins.left = margins.right = isRound || isTight(cell) ? 2 : 6;
    margins.top = margins.bottom = 3;
    return margins;
}

@end
