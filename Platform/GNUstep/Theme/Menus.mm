// The menu bar, menus and pop-up menus.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"

#include <cmath>

using namespace flattheme;

namespace {

platform::Hook<void> organizeHook;
platform::Hook<NSString *> keyEquivalentHook;
platform::Hook<CGFloat> keyEquivalentWidthHook;

// The longest shortcut keeps its distance from the menu's border.
CGFloat keyEquivalentWidth(id self, SEL command) {
    constexpr CGFloat margin = 8;
    const CGFloat width = keyEquivalentWidthHook.original(self, command);
    return width > 0 ? width + margin : 0;
}

struct KeyName {
    unichar character;
    NSString *name;
};

// The key as it is printed on a keyboard.
NSString *keyName(unichar character) {
    static const KeyName names[] = {
        {'\r', @"Return"},
        {'\n', @"Return"},
        {'\t', @"Tab"},
        {' ', @"Space"},
        {0x1b, @"Esc"},
        {0x08, @"Backspace"},
        {0x7f, @"Backspace"},
        {NSDeleteFunctionKey, @"Del"},
        {NSUpArrowFunctionKey, @"Up"},
        {NSDownArrowFunctionKey, @"Down"},
        {NSLeftArrowFunctionKey, @"Left"},
        {NSRightArrowFunctionKey, @"Right"},
        {NSHomeFunctionKey, @"Home"},
        {NSEndFunctionKey, @"End"},
        {NSPageUpFunctionKey, @"PgUp"},
        {NSPageDownFunctionKey, @"PgDn"},
    };
    for (const KeyName &key : names) {
        if (key.character == character) {
            return key.name;
        }
    }
    if (character >= NSF1FunctionKey && character <= NSF35FunctionKey) {
        return [NSString stringWithFormat:@"F%d", character - NSF1FunctionKey + 1];
    }
    return [[NSString stringWithCharacters:&character length:1] uppercaseString];
}

// "Ctrl+Shift+S". A capital letter asks for Shift too.
NSString *keyEquivalent(id self, SEL) {
    NSMenuItem *item = [(NSMenuItemCell *)self menuItem];
    NSString *key = [item keyEquivalent];
    if ([key length] == 0) {
        return @"";
    }
    const unichar character = [key characterAtIndex:0];
    const NSUInteger modifiers = [item keyEquivalentModifierMask];
    const bool isCapital = [[NSCharacterSet uppercaseLetterCharacterSet] characterIsMember:character];
    NSMutableString *text = [NSMutableString string];
    if ((modifiers & NSCommandKeyMask) != 0) {
        [text appendString:@"Ctrl+"];
    }
    if ((modifiers & NSControlKeyMask) != 0) {
        [text appendString:@"Super+"];
    }
    if ((modifiers & NSAlternateKeyMask) != 0) {
        [text appendString:@"Alt+"];
    }
    if (isCapital || (modifiers & NSShiftKeyMask) != 0) {
        [text appendString:@"Shift+"];
    }
    [text appendString:keyName(character)];
    return text;
}

// A menu bar in a window is given a menu with the program's name, for main menu items that have no menu. Without such
// items it is empty: a grey word.
void organizeMenu(id self, SEL command) {
    organizeHook.original(self, command);
    NSMenu *menu = self;
    if ([menu numberOfItems] == 0) {
        return;
    }
    id<NSMenuItem> first = [menu itemAtIndex:0];
    const bool isProgram = [[first title] isEqualToString:[[NSProcessInfo processInfo] processName]];
    if (isProgram && [[first submenu] numberOfItems] == 0) {
        [menu removeItemAtIndex:0];
    }
}

} // namespace

void flattheme::installMenuHooks() {
    organizeHook.install([NSMenu class], sel_registerName("_organizeMenu"), organizeMenu);
    keyEquivalentWidthHook.install([NSMenuItemCell class], @selector(keyEquivalentWidth), keyEquivalentWidth);
    keyEquivalentHook.install([NSMenuItemCell class], sel_registerName("_keyEquivalentString"), keyEquivalent);
}

@implementation QVFlatTheme (Menus)

- (NSColor *)menuBackgroundColor {
    return colour(palette().menu);
}

- (NSColor *)menuItemBackgroundColor {
    return colour(palette().menu);
}

- (NSColor *)menuBarBackgroundColor {
    return colour(palette().bar);
}

- (NSColor *)menuBorderColor {
    return colour(palette().border);
}

- (NSColor *)menuBarBorderColor {
    return colour(palette().border);
}

- (NSColor *)menuSeparatorColor {
    return colour(palette().menuSeparator);
}

- (CGFloat)menuItemHeight {
    return std::round(24 * scale());
}

- (CGFloat)menuBarHeight {
    return std::round(26 * scale());
}

- (CGFloat)menuSeparatorHeight {
    return 9;
}

- (CGFloat)menuSeparatorInset {
    return 8;
}

- (BOOL)menuShouldShowIcon {
    return NO;
}

- (NSColor *)menuBorderColorForEdge:(NSRectEdge)edge isHorizontal:(BOOL)horizontal {
    if (horizontal) {
        return edge == NSMinYEdge ? colour(palette().border) : nil;
    }
    return colour(palette().border);
}

- (void)drawBackgroundForMenuView:(NSMenuView *)menuView
                        withFrame:(NSRect)bounds
                        dirtyRect:(NSRect)dirtyRect
                       horizontal:(BOOL)horizontal {
    [colour(horizontal ? palette().bar : palette().menu) set];
    NSRectFill(bounds);
    [colour(palette().border) set];
    if (horizontal) {
        NSRectFill(NSMakeRect(NSMinX(bounds), NSMinY(bounds), NSWidth(bounds), 1));
    } else {
        NSFrameRect(bounds);
    }
}

- (BOOL)drawsBorderForMenuItemCell:(NSMenuItemCell *)cell
                             state:(GSThemeControlState)state
                      isHorizontal:(BOOL)horizontal {
    return NO;
}

- (void)drawBorderAndBackgroundForMenuItemCell:(NSMenuItemCell *)cell
                                     withFrame:(NSRect)frame
                                        inView:(NSView *)view
                                         state:(GSThemeControlState)state
                                  isHorizontal:(BOOL)horizontal {
    // Short of the border around the menu.
    const NSRect inside = NSIntersectionRect(frame, NSInsetRect([view bounds], 1, 1));
    [colour(horizontal ? palette().bar : palette().menu) set];
    NSRectFill(inside);
    if (state == GSThemeSelectedState || state == GSThemeHighlightedState) {
        [colour(palette().accent) set];
        [roundedPath(NSInsetRect(inside, horizontal ? 1 : 3, 1), 4) fill];
    }
}

- (void)drawTitleForMenuItemCell:(NSMenuItemCell *)cell
                       withFrame:(NSRect)frame
                          inView:(NSView *)view
                           state:(GSThemeControlState)state
                    isHorizontal:(BOOL)horizontal {
    if (!horizontal) {
        [super drawTitleForMenuItemCell:cell withFrame:frame inView:view state:state isHorizontal:horizontal];
        return;
    }
    const bool chosen = state == GSThemeSelectedState || state == GSThemeHighlightedState;
    const bool enabled = [[cell menuItem] isEnabled];
    const unsigned ink = chosen ? palette().accentText : enabled ? palette().text : palette().disabledText;
    NSDictionary *attributes =
        @{NSFontAttributeName : [NSFont menuBarFontOfSize:0], NSForegroundColorAttributeName : colour(ink)};
    NSString *title = [[cell menuItem] title];
    const NSSize size = [title sizeWithAttributes:attributes];
    const NSPoint origin =
        NSMakePoint(std::round(NSMidX(frame) - size.width / 2), std::round(NSMidY(frame) - size.height / 2));
    [title drawAtPoint:origin withAttributes:attributes];
}

@end
