#import "DocumentWindow.h"

#import "TestSupport.h"

#include <cstdio>

using namespace appkitglue;

/// The buttons that a toolbar makes for items without a view know their item.
@interface NSView (ToolbarButton)
- (NSToolbarItem *)toolbarItem;
@end

namespace test {

namespace {

NSButton *buttonOf(NSToolbarItem *item, NSView *view) {
    if ([view isKindOfClass:[NSButton class]] && [view respondsToSelector:@selector(toolbarItem)] &&
        [view toolbarItem] == item) {
        return static_cast<NSButton *>(view);
    }
    for (NSView *subview in [view subviews]) {
        if (NSButton *found = buttonOf(item, subview)) {
            return found;
        }
    }
    return nil;
}

} // namespace

DocumentWindow::DocumentWindow() {
    @autoreleasepool {
        window = adoptNS([[NSWindow alloc]
            initWithContentRect:NSMakeRect(100, 50, 1000, 700)
                      styleMask:NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask
                        backing:NSBackingStoreBuffered
                          defer:NO]);
        [window.get() setReleasedWhenClosed:NO];
        controller = adoptNS([[QVAppKitController alloc] init]);
        [controller.get() setupDelegate:host.get()];
        [controller.get() setupToolbarInWindow:window.get()];
        toolbar = adoptNS([[NSToolbar alloc] initWithIdentifier:@"document"]);
        [toolbar.get() setDelegate:controller.get()];
        [window.get() setToolbar:toolbar.get()];
        [window.get() orderFront:nil];
    }
}

DocumentWindow::~DocumentWindow() {
    @autoreleasepool {
        [toolbar.get() setDelegate:nil];
        [window.get() close];
        window = nullptr;
    }
}

NSToolbarItem *DocumentWindow::addItem(NSString *identifier) {
    [toolbar.get() insertItemWithItemIdentifier:identifier atIndex:0];
    return item(identifier);
}

NSToolbarItem *DocumentWindow::item(NSString *identifier) const {
    for (NSToolbarItem *candidate in [toolbar.get() items]) {
        if ([[candidate itemIdentifier] isEqualToString:identifier]) {
            return candidate;
        }
    }
    return nil;
}

NSButton *DocumentWindow::button(NSToolbarItem *item) const {
    if (NSView *view = [item view]) {
        return [view isKindOfClass:[NSButton class]] ? static_cast<NSButton *>(view) : nil;
    }
    return buttonOf(item, [[window.get() contentView] superview]);
}

std::string DocumentWindow::popoverEntry(int code, NSView *view) const {
    const NSRect rect = [view convertRect:[view bounds] toView:nil];
    char text[128];
    std::snprintf(text, sizeof text, "popover %d (%g, %g, 4, %g)", code, rect.origin.x * 1.2987012987012987,
                  [window.get() frame].size.height - rect.origin.y, rect.size.height);
    return text;
}

bool DocumentWindow::shows(NSImage *image, const char *symbol) {
    // Images of the same symbol share their masks.
    NSImage *expected = [NSImage imageWithSystemSymbolName:[NSString stringWithUTF8String:symbol]
                                  accessibilityDescription:nil];
    const auto masks = [](NSImage *of) { return [[[of representations] lastObject] valueForKey:@"masks"]; };
    return image != nil && masks(image) != nil && masks(image) == masks(expected);
}

void DocumentWindow::dropWindow() {
    @autoreleasepool {
        [toolbar.get() setDelegate:nil];
        [window.get() close];
        window = nullptr;
        toolbar = nullptr;
    }
    spin(0.05);
}

} // namespace test
