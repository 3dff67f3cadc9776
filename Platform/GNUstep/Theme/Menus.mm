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
    const NSRect inside = horizontal ? NSInsetRect(frame, 0, 1) : NSInsetRect(frame, 1, 0);
    [colour(horizontal ? palette().bar : palette().menu) set];
    NSRectFill(inside);
    if (state == GSThemeSelectedState || state == GSThemeHighlightedState) {
        [colour(palette().accent) set];
        [roundedPath(NSInsetRect(inside, horizontal ? 1 : 3, 1), 4) fill];
    }
}

@end
