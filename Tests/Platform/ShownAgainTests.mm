// Windows that were hidden and come back.
#import "Platform.h"
#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <gtest/gtest.h>

#include <X11/Xlib.h>

// Red above, blue below.
@interface HalvesView : NSView
@end

@implementation HalvesView
- (void)drawRect:(NSRect)rect {
    [[NSColor redColor] set];
    NSRectFill([self bounds]);
    [[NSColor blueColor] set];
    NSRectFill(NSMakeRect(0, 0, NSWidth([self bounds]), NSHeight([self bounds]) / 2));
}
@end

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
        [[window contentView] addSubview:[[[HalvesView alloc] initWithFrame:NSMakeRect(0, 0, 400, 300)] autorelease]];
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
        EXPECT_TRUE(test::runUntil([&] {
            const auto isStriped = [&](CGFloat y) {
                return test::pixel(window, NSMakePoint(50, y)) == (y < 150 ? 0x0000ffU : 0xff0000U);
            };
            return isStriped(NSMinY([[window contentView] frame]) + 1) &&
                   isStriped(NSMinY([[window contentView] frame]) + 298);
        })) << "drawn where it belongs, from edge to edge";
        [window close];
    }
}
