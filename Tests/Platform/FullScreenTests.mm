// test: displays=2
#import "Displays.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

@interface QVColourView : NSView {
@public
    NSColor *_colour;
}
@end

@implementation QVColourView

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (void)drawRect:(NSRect)rect {
    [_colour set];
    NSRectFill([self bounds]);
}

@end

namespace {

constexpr unsigned red = 0xff0000;

NSScreen *screen(NSUInteger index) {
    return [[NSScreen screens] objectAtIndex:index];
}

NSPoint middle(NSRect rect) {
    return NSMakePoint(NSMidX(rect), NSMidY(rect));
}

class FullScreenView : public testing::Test {
protected:
    void SetUp() override {
        platform::prepareAppKit();
        ASSERT_TRUE(test::arrange(test::usualDisplays(2)));
        window_ =
            [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 300, 500, 400)
                                        styleMask:NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask
                                          backing:NSBackingStoreBuffered
                                            defer:NO];
        [window_ setReleasedWhenClosed:NO];
        content_ = [[QVColourView alloc] initWithFrame:NSMakeRect(0, 0, 500, 400)];
        content_->_colour = [[NSColor colorWithCalibratedRed:1 green:0 blue:0 alpha:1] retain];
        [window_ setContentView:content_];
        [window_ makeKeyAndOrderFront:nil];
        [window_ makeFirstResponder:content_];
        test::runUntilQuiet(window_);
    }

    void TearDown() override {
        [content_ exitFullScreenModeWithOptions:nil];
        [window_ close];
        [content_ release];
        [window_ release];
    }

    bool enterOn(NSUInteger index) {
        return [content_ enterFullScreenMode:screen(index) withOptions:nil] &&
               test::runUntil([&] { return test::covers([content_ window], [screen(index) frame]); }) &&
               test::runUntil([&] { return test::screenPixel(middle([screen(index) frame])) == red; });
    }

    NSWindow *window_ = nil;
    QVColourView *content_ = nil;
};

TEST_F(FullScreenView, CoversTheWholeDisplayWithoutMenuStrip) {
    NSMenu *menu = [[NSMenu alloc] initWithTitle:@"Test"];
    [menu addItemWithTitle:@"Entry" action:@selector(terminate:) keyEquivalent:@""];
    [NSApp setMainMenu:menu];
    ASSERT_TRUE(enterOn(0));
    const NSRect frame = [screen(0) frame];
    EXPECT_TRUE(NSEqualSizes([content_ frame].size, frame.size));
    for (const double y : {NSMinY(frame) + 1, NSMaxY(frame) - 1, NSMaxY(frame) - 12}) {
        EXPECT_EQ(test::screenPixel(NSMakePoint(NSMinX(frame) + 20, y)), red) << y;
        EXPECT_EQ(test::screenPixel(NSMakePoint(NSMaxX(frame) - 2, y)), red) << y;
    }
    [NSApp setMainMenu:nil];
    [menu release];
}

TEST_F(FullScreenView, CoversTheDisplayItIsGiven) {
    ASSERT_TRUE(enterOn(1));
    EXPECT_TRUE([content_ isInFullScreenMode]);
    EXPECT_NE([content_ window], window_);
}

TEST_F(FullScreenView, PutsEverythingBackWhenItEnds) {
    NSView *before = [content_ superview];
    const NSRect frame = [content_ frame];
    const NSUInteger mask = [content_ autoresizingMask];
    const NSRect windowFrame = [window_ frame];
    ASSERT_TRUE(enterOn(1));
    [content_ exitFullScreenModeWithOptions:nil];
    EXPECT_FALSE([content_ isInFullScreenMode]);
    EXPECT_EQ([content_ superview], before);
    EXPECT_TRUE(NSEqualRects([content_ frame], frame));
    EXPECT_EQ([content_ autoresizingMask], mask);
    EXPECT_EQ([window_ contentView], content_);
    EXPECT_EQ([window_ firstResponder], content_);
    EXPECT_TRUE(test::runUntil([&] { return [window_ isKeyWindow]; }));
    EXPECT_TRUE(test::runUntil([&] { return test::screenPixel(middle([window_ frame])) == red; }));
    EXPECT_TRUE(NSEqualRects([window_ frame], windowFrame));
}

TEST_F(FullScreenView, GoesBackBetweenItsSiblings) {
    NSView *below = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 50, 50)] autorelease];
    NSTextField *field = [[[NSTextField alloc] initWithFrame:NSMakeRect(10, 20, 100, 24)] autorelease];
    NSView *above = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 50, 50)] autorelease];
    for (NSView *view in @[ below, field, above ]) {
        [content_ addSubview:view];
    }
    [field setAutoresizingMask:NSViewMinXMargin];
    [window_ makeFirstResponder:field];
    [field enterFullScreenMode:screen(0) withOptions:nil];
    [field exitFullScreenModeWithOptions:nil];
    EXPECT_EQ([[content_ subviews] indexOfObject:field], 1U);
    EXPECT_EQ([[content_ subviews] count], 3U);
    EXPECT_TRUE(NSEqualRects([field frame], NSMakeRect(10, 20, 100, 24)));
    EXPECT_EQ([field autoresizingMask], static_cast<NSUInteger>(NSViewMinXMargin));
    EXPECT_NE([field currentEditor], nil);
}

TEST_F(FullScreenView, HasTheKeysEvenWhenItsWindowIsBroughtToTheFront) {
    ASSERT_TRUE(enterOn(0));
    EXPECT_TRUE(test::runUntil([&] { return [[content_ window] isKeyWindow]; }));
    EXPECT_EQ([[content_ window] firstResponder], content_);
    [window_ makeKeyAndOrderFront:nil];
    test::spin(0.05);
    EXPECT_TRUE(test::runUntil([&] { return [[content_ window] isKeyWindow]; }));
    EXPECT_TRUE(test::runUntil([&] { return test::screenPixel(middle([window_ frame])) == red; }));
}

TEST_F(FullScreenView, LetsAPanelOfTheApplicationComeBeforeIt) {
    ASSERT_TRUE(enterOn(0));
    NSPanel *panel = [[NSPanel alloc] initWithContentRect:NSMakeRect(500, 500, 300, 200)
                                                styleMask:NSTitledWindowMask
                                                  backing:NSBackingStoreBuffered
                                                    defer:NO];
    [panel setReleasedWhenClosed:NO];
    [panel setBackgroundColor:[NSColor colorWithCalibratedRed:0 green:1 blue:0 alpha:1]];
    [panel setLevel:NSModalPanelWindowLevel];
    [panel makeKeyAndOrderFront:nil];
    EXPECT_TRUE(test::runUntil([&] { return test::screenPixel(middle([panel frame])) == 0x00ff00; }));
    [panel close];
    [panel release];
    EXPECT_TRUE(test::runUntil([&] { return test::screenPixel(NSMakePoint(650, 600)) == red; }));
}

TEST_F(FullScreenView, RefusesASecondEntryAndAMissingScreen) {
    EXPECT_FALSE([content_ enterFullScreenMode:nil withOptions:nil]);
    EXPECT_FALSE([content_ isInFullScreenMode]);
    ASSERT_TRUE([content_ enterFullScreenMode:screen(0) withOptions:nil]);
    EXPECT_FALSE([content_ enterFullScreenMode:screen(1) withOptions:nil]);
    [content_ exitFullScreenModeWithOptions:nil];
    [content_ exitFullScreenModeWithOptions:nil];
    EXPECT_EQ([content_ window], window_);
}

TEST_F(FullScreenView, GivesTheApplicationItsPresentationOptionsWhileItLasts) {
    const auto before = [NSApp presentationOptions];
    NSDictionary *options = @{NSFullScreenModeApplicationPresentationOptions : [NSNumber numberWithInt:3077]};
    [content_ enterFullScreenMode:screen(0) withOptions:options];
    EXPECT_EQ(static_cast<int>([NSApp presentationOptions]), 3077);
    [content_ exitFullScreenModeWithOptions:nil];
    EXPECT_EQ([NSApp presentationOptions], before);
}

TEST_F(FullScreenView, StaysItsWindowsContentAndKeepsItsSizeWhenThatIsResized) {
    ASSERT_TRUE(enterOn(1));
    EXPECT_EQ([window_ contentView], content_);
    [window_ setFrame:NSMakeRect(100, 300, 700, 500) display:YES];
    test::runUntilQuiet(window_);
    EXPECT_TRUE(NSEqualSizes([content_ frame].size, [screen(1) frame].size));
    [content_ exitFullScreenModeWithOptions:nil];
    EXPECT_EQ([window_ contentView], content_);
    EXPECT_EQ(NSWidth([content_ frame]), NSWidth([NSWindow contentRectForFrameRect:[window_ frame]
                                                                         styleMask:[window_ styleMask]]));
}

TEST_F(FullScreenView, EndsWhenItsWindowCloses) {
    ASSERT_TRUE(enterOn(1));
    [window_ close];
    EXPECT_FALSE([content_ isInFullScreenMode]);
    EXPECT_EQ([content_ window], window_);
}

TEST_F(FullScreenView, MovesToTheRemainingDisplayAndBackAgain) {
    ASSERT_TRUE(enterOn(1));
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_TRUE(test::runUntil([&] { return test::covers([content_ window], [screen(0) frame]); }));
    EXPECT_TRUE(test::runUntil([&] { return test::screenPixel(middle([screen(0) frame])) == red; }));
    ASSERT_TRUE(test::arrange(test::usualDisplays(2)));
    EXPECT_TRUE(test::runUntil([&] { return test::covers([content_ window], [screen(1) frame]); }));
}

TEST_F(FullScreenView, FollowsItsDisplayToAnotherPlaceAndSize) {
    ASSERT_TRUE(enterOn(1));
    ASSERT_TRUE(test::arrange({{"DUMMY0", 1440, 900, 1280, 0, true}, {"DUMMY1", 1280, 720, 0, 0, false}}));
    EXPECT_TRUE(test::runUntil([&] { return test::covers([content_ window], NSMakeRect(0, 180, 1280, 720)); }));
    EXPECT_TRUE(NSEqualSizes([content_ frame].size, NSMakeSize(1280, 720)));
}

TEST_F(FullScreenView, OnADisplayThatIsGoneTakesOneThatIsThere) {
    NSScreen *second = [[screen(1) retain] autorelease];
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    ASSERT_TRUE([content_ enterFullScreenMode:second withOptions:nil]);
    EXPECT_TRUE(test::runUntil([&] { return test::covers([content_ window], [screen(0) frame]); }));
}

TEST_F(FullScreenView, ComesBackToAWindowThatCanBeReached) {
    [window_ setFrame:NSMakeRect(2000, 300, 500, 400) display:YES];
    test::runUntilQuiet(window_);
    ASSERT_TRUE(enterOn(0));
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    [content_ exitFullScreenModeWithOptions:nil];
    EXPECT_TRUE(test::runUntil([&] { return NSContainsRect([screen(0) frame], [window_ frame]); }));
}

class FullScreenWindow : public FullScreenView {};

TEST_F(FullScreenWindow, CoversItsDisplayAndComesBackToItsFrame) {
    const NSRect before = [window_ frame];
    [window_ toggleFullScreen:nil];
    EXPECT_TRUE(test::runUntil([&] { return test::covers(window_, [screen(0) frame]); }));
    EXPECT_TRUE(test::runUntil([&] { return NSWidth([content_ frame]) == NSWidth([screen(0) frame]); }));
    EXPECT_NE([window_ styleMask] & NSFullScreenWindowMask, 0U);
    [window_ toggleFullScreen:nil];
    EXPECT_TRUE(test::runUntil([&] { return NSEqualRects([window_ frame], before); }));
    EXPECT_EQ([window_ styleMask] & NSFullScreenWindowMask, 0U);
    EXPECT_TRUE(test::runUntil([&] { return NSEqualSizes([content_ frame].size, NSMakeSize(500, 400)); }));
}

TEST_F(FullScreenWindow, IsNotLeftOnARemovedDisplay) {
    [window_ setFrame:NSMakeRect(2000, 300, 500, 400) display:YES];
    test::runUntilQuiet(window_);
    [window_ toggleFullScreen:nil];
    ASSERT_TRUE(test::runUntil([&] { return test::covers(window_, [screen(1) frame]); }));
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_TRUE(test::runUntil([&] { return test::covers(window_, [screen(0) frame]); }));
    [window_ toggleFullScreen:nil];
    EXPECT_TRUE(test::runUntil([&] { return NSIntersectsRect([screen(0) frame], [window_ frame]); }));
}

class WindowOnARemovedDisplay : public FullScreenView {};

TEST_F(WindowOnARemovedDisplay, IsBroughtBackToOneThatIsThere) {
    [window_ setFrame:NSMakeRect(2600, 300, 500, 400) display:YES];
    test::runUntilQuiet(window_);
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_TRUE(test::runUntil([&] { return NSContainsRect([screen(0) frame], [window_ frame]); }));
}

} // namespace
