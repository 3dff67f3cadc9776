#import "Platform.h"
#import "TabOverviewWindow.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class TabOverview : public testing::Test {
protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
        NSArray *colours = @[ [NSColor redColor], [NSColor greenColor], [NSColor blueColor] ];
        for (int i = 0; i < 3; i++) {
            NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100 + 60 * i, 300 - 40 * i, 600, 400)
                                                           styleMask:NSTitledWindowMask | NSClosableWindowMask
                                                             backing:NSBackingStoreBuffered
                                                               defer:NO];
            [window setReleasedWhenClosed:NO];
            [window setTitle:[NSString stringWithFormat:@"Talk %d", i + 1]];
            [window setBackgroundColor:[colours objectAtIndex:static_cast<NSUInteger>(i)]];
            [window makeKeyAndOrderFront:nil];
            windows_.push_back(window);
        }
        test::runUntilQuiet(windows_[2]);
    }
    void TearDown() override {
        [[QVTabOverviewWindow current] close];
        for (NSWindow *window : windows_) {
            [window close];
            [window release];
        }
        [pool_ release];
    }
    QVTabOverviewWindow *open() {
        [windows_[2] toggleTabOverview:nil];
        QVTabOverviewWindow *overview = [QVTabOverviewWindow current];
        test::runUntil([&] { return [overview isKeyWindow]; });
        return overview;
    }
    void press(unichar key) {
        NSString *text = [NSString stringWithCharacters:&key length:1];
        NSWindow *window = [QVTabOverviewWindow current];
        [window sendEvent:[NSEvent keyEventWithType:NSKeyDown
                                                 location:NSZeroPoint
                                            modifierFlags:0
                                                timestamp:0
                                             windowNumber:[window windowNumber]
                                                  context:nil
                                               characters:text
                              charactersIgnoringModifiers:text
                                                isARepeat:NO
                                                  keyCode:0]];
    }

    NSAutoreleasePool *pool_ = nil;
    std::vector<NSWindow *> windows_;
};

TEST_F(TabOverview, ShowsEveryOpenWindowWithItsPicture) {
    QVTabOverviewWindow *overview = open();
    ASSERT_NE(overview, nil);
    EXPECT_EQ([[overview shownWindows] count], 3U);
    EXPECT_EQ([[overview shownWindows] objectAtIndex:[overview selectedIndex]], windows_[2]);
    const NSUInteger green = [[overview shownWindows] indexOfObjectIdenticalTo:windows_[1]];
    const NSRect thumbnail = [overview thumbnailRectAtIndex:green];
    const NSPoint middle = NSMakePoint(NSMidX(thumbnail), NSMidY(thumbnail));
    EXPECT_TRUE(test::runUntil([&] { return test::pixel(overview, middle) == 0x00FF00; }));
    test::savePicture(overview, "tab-overview");
}

TEST_F(TabOverview, ThePicturesAreLive) {
    QVTabOverviewWindow *overview = open();
    const NSRect thumbnail =
        [overview thumbnailRectAtIndex:[[overview shownWindows] indexOfObjectIdenticalTo:windows_[0]]];
    [windows_[0] setBackgroundColor:[NSColor yellowColor]];
    [[windows_[0] contentView] setNeedsDisplay:YES];
    EXPECT_TRUE(test::runUntil(
        [&] { return test::pixel(overview, NSMakePoint(NSMidX(thumbnail), NSMidY(thumbnail))) == 0xFFFF00; }));
}

TEST_F(TabOverview, ArrowsAndReturnBringAWindowToTheFront) {
    QVTabOverviewWindow *overview = open();
    while ([overview selectedIndex] > 0) {
        press([overview selectedIndex] >= 2 ? NSUpArrowFunctionKey : NSLeftArrowFunctionKey);
    }
    press(NSRightArrowFunctionKey);
    EXPECT_EQ([overview selectedIndex], 1U);
    NSWindow *expected = [[overview shownWindows] objectAtIndex:1];
    press('\r');
    EXPECT_EQ([QVTabOverviewWindow current], nil);
    EXPECT_TRUE(test::runUntil([&] { return [expected isKeyWindow]; }));
}

TEST_F(TabOverview, AClickBringsAWindowToTheFront) {
    QVTabOverviewWindow *overview = open();
    const NSRect thumbnail =
        [overview thumbnailRectAtIndex:[[overview shownWindows] indexOfObjectIdenticalTo:windows_[0]]];
    [overview sendEvent:[NSEvent mouseEventWithType:NSLeftMouseDown
                                           location:NSMakePoint(NSMidX(thumbnail), NSMidY(thumbnail))
                                      modifierFlags:0
                                          timestamp:0
                                       windowNumber:[overview windowNumber]
                                            context:nil
                                        eventNumber:0
                                         clickCount:1
                                           pressure:1]];
    EXPECT_EQ([QVTabOverviewWindow current], nil);
    EXPECT_TRUE(test::runUntil([&] { return [windows_[0] isKeyWindow]; }));
}

TEST_F(TabOverview, EscapeAndASecondToggleCloseIt) {
    open();
    press(033);
    EXPECT_EQ([QVTabOverviewWindow current], nil);
    open();
    [windows_[0] toggleTabOverview:nil];
    EXPECT_EQ([QVTabOverviewWindow current], nil);
}

TEST_F(TabOverview, AWindowThatClosesLeavesIt) {
    QVTabOverviewWindow *overview = open();
    [windows_[0] orderOut:nil];
    EXPECT_TRUE(test::runUntil([&] { return [[overview shownWindows] count] == 2; }));
    EXPECT_EQ([[overview shownWindows] objectAtIndex:[overview selectedIndex]], windows_[2]);
}

} // namespace
