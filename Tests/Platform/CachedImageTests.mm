// test: displays=2
#import "Displays.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(CachedImage, IsStillThereAfterADisplayWasRemoved) {
    platform::prepareAppKit();
    ASSERT_TRUE(test::arrange(test::usualDisplays(2)));
    NSImage *image = [[[NSImage alloc] initWithSize:NSMakeSize(100, 100)] autorelease];
    [image lockFocus];
    [[NSColor colorWithDeviceRed:0 green:1 blue:0 alpha:1] set];
    NSRectFill(NSMakeRect(0, 0, 100, 100));
    [image unlockFocus];
    NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 300, 200, 200)
                                                   styleMask:NSTitledWindowMask
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];
    [window setReleasedWhenClosed:NO];
    NSImageView *view = [[[NSImageView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)] autorelease];
    [view setImage:image];
    [[window contentView] addSubview:view];
    [window makeKeyAndOrderFront:nil];
    const auto isGreen = [&] { return test::pixel(window, NSMakePoint(50, 50)) == 0x00ff00; };
    EXPECT_TRUE(test::runUntil(isGreen));
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    test::runUntilQuiet(window);
    [[window contentView] setNeedsDisplay:YES];
    [window display];
    EXPECT_TRUE(test::runUntil(isGreen));
    [window close];
    [window release];
}

} // namespace
