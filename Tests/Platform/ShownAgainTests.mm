// Windows that were hidden and come back.
#import "Platform.h"
#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <gtest/gtest.h>

#include <X11/Xlib.h>

namespace {

int serverHeight(NSWindow *window) {
    GSDisplayServer *server = GSServerForWindow(window);
    XWindowAttributes attributes{};
    XGetWindowAttributes(static_cast<Display *>([server serverDevice]),
                         reinterpret_cast<uintptr_t>([server windowDevice:static_cast<int>([window windowNumber])]),
                         &attributes);
    return attributes.height;
}

} // namespace

TEST(ShownAgainTest, AWindowPlacedWhileHiddenKeepsItsSize) {
    @autoreleasepool {
        platform::prepareAppKit();
        NSWindow *window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(300, 300, 400, 300)
                                                        styleMask:NSTitledWindowMask | NSResizableWindowMask
                                                          backing:NSBackingStoreBuffered
                                                            defer:NO] autorelease];
        [window setReleasedWhenClosed:NO];
        [window makeKeyAndOrderFront:nil];
        test::runUntilQuiet(window);
        ASSERT_EQ(serverHeight(window), 300);
        [window orderOut:nil];
        test::spin(0.2);
        NSRect frame = [window frame];
        frame.origin.x += 50;
        [window setFrame:frame display:NO];
        [window makeKeyAndOrderFront:nil];
        test::runUntilQuiet(window);
        EXPECT_TRUE(test::runUntil([&] { return serverHeight(window) == 300; })) << serverHeight(window);
        EXPECT_EQ(NSHeight([[window contentView] frame]), 300);
        [window close];
    }
}
