// Which windows show the menu bar. AppKit gives it only to the windows that are there when the menu changes; here each
// window that should have it gets it before it appears.
#import "ElementHooks.h"
#import "FlatTheme.h"
#import "Hooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"
#import "WeakReference.h"

#import <GNUstepGUI/GSWindowDecorationView.h>

#include <algorithm>
#include <vector>

using namespace flattheme;

namespace {

struct Choice {
    platform::WeakReference window;
    bool shows = false;
};

// What hosts said about their windows; entries of windows that are gone go with the next look-up.
std::vector<Choice> &choices() {
    static std::vector<Choice> all;
    return all;
}

NSWindow *windowOf(const Choice &choice) {
    return [choice.window.loadRetained() autorelease];
}

bool showsMenuBar(NSWindow *window) {
    std::erase_if(choices(), [](const Choice &choice) { return windowOf(choice) == nil; });
    for (const Choice &choice : choices()) {
        if (windowOf(choice) == window) {
            return choice.shows;
        }
    }
    constexpr NSUInteger document = NSTitledWindowMask | NSResizableWindowMask;
    return ![window isKindOfClass:[NSPanel class]] && ([window styleMask] & document) == document;
}

bool isMenuInWindows() {
    return NSInterfaceStyleForKey(@"NSMenuInterfaceStyle", nil) == NSWindows95InterfaceStyle;
}

void giveMenuBar(NSWindow *window) {
    NSMenu *wanted = showsMenuBar(window) ? [NSApp mainMenu] : nil;
    if ([window menu] == wanted || (wanted == nil && [window menu] != [NSApp mainMenu])) {
        return;
    }
    const NSSize content = [[window contentView] frame].size;
    [[GSTheme theme] updateMenu:wanted forWindow:window];
    if (!NSEqualSizes(content, [[window contentView] frame].size)) {
        [window setContentSize:content];
    }
}

platform::Hook<void, NSWindowOrderingMode, NSInteger> orderHook;

void orderWindow(id self, SEL command, NSWindowOrderingMode place, NSInteger other) {
    if (place != NSWindowOut && isMenuInWindows() && ![self isVisible] && [NSApp mainMenu] != nil) {
        giveMenuBar(self);
    }
    orderHook.original(self, command, place, other);
}

} // namespace

void flattheme::installWindowHooks() {
    orderHook.install([NSWindow class], @selector(orderWindow:relativeTo:), orderWindow);
}

void flattheme::setShowsMenuBar(NSWindow *window, bool shows) {
    std::erase_if(choices(), [window](const Choice &choice) { return windowOf(choice) == window; });
    choices().push_back({.window = platform::WeakReference(window), .shows = shows});
    if (isMenuInWindows() && [window isVisible]) {
        giveMenuBar(window);
    }
}

@implementation QVFlatTheme (Windows)

- (void)updateMenu:(NSMenu *)menu forWindow:(NSWindow *)window {
    if (menu != nil && !showsMenuBar(window)) {
        return;
    }
    [super updateMenu:menu forWindow:window];
    for (NSView *view in [[[window contentView] superview] subviews]) {
        if ([view isKindOfClass:[NSMenuView class]]) {
            [(NSMenuView *)view setHorizontalEdgePadding:8];
            [(NSMenuView *)view sizeToFit];
        }
    }
}

@end
