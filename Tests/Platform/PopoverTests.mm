// NSPopover: where it appears, what it answers, when it closes.
#import "Input.h"
#import "PopoverPlacement.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

@interface PopoverRecorder : NSObject {
@public
    NSMutableArray *events;
    BOOL refusesToClose;
    BOOL shownInWillShow;
    BOOL shownInDidShow;
}
@end

@implementation PopoverRecorder
- (id)init {
    if ((self = [super init]) != nil) {
        events = [[NSMutableArray alloc] init];
    }
    return self;
}
- (void)dealloc {
    [events release];
    [super dealloc];
}
- (BOOL)popoverShouldClose:(NSPopover *)popover {
    return !refusesToClose;
}
- (void)popoverWillShow:(NSNotification *)notification {
    shownInWillShow = [(NSPopover *)[notification object] isShown];
    [events addObject:@"willShow"];
}
- (void)popoverDidShow:(NSNotification *)notification {
    shownInDidShow = [(NSPopover *)[notification object] isShown];
    [events addObject:@"didShow"];
}
- (void)popoverWillClose:(NSNotification *)notification {
    [events addObject:@"willClose"];
}
- (void)popoverDidClose:(NSNotification *)notification {
    [events addObject:@"didClose"];
}
@end

namespace {

using platform::popover::Edge;
using platform::popover::place;

class PopoverTest : public testing::Test {
protected:
    void SetUp() override {
        pool = [[NSAutoreleasePool alloc] init];
        window = [[NSWindow alloc] initWithContentRect:NSMakeRect(300, 300, 400, 300)
                                             styleMask:NSTitledWindowMask | NSClosableWindowMask
                                               backing:NSBackingStoreBuffered
                                                 defer:NO];
        [window setReleasedWhenClosed:NO];
        anchor = [[[NSButton alloc] initWithFrame:NSMakeRect(150, 200, 100, 28)] autorelease];
        [[window contentView] addSubview:anchor];
        [window makeKeyAndOrderFront:nil];
        recorder = [[PopoverRecorder alloc] init];
        popover = make();
        [popover setDelegate:recorder];
        ASSERT_TRUE(test::giveKeyboard(window));
        test::runUntilQuiet(window);
    }

    void TearDown() override {
        [popover setDelegate:nil];
        [popover close];
        [window close];
        test::spin(0.02);
        [window release];
        [recorder release];
        [pool release];
    }

    static NSPopover *make() {
        NSPopover *made = [[[NSPopover alloc] init] autorelease];
        [made setBehavior:NSPopoverBehaviorTransient];
        NSView *view = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 200, 120)] autorelease];
        NSButton *inside = [[[NSButton alloc] initWithFrame:NSMakeRect(50, 80, 100, 28)] autorelease];
        [view addSubview:inside];
        NSViewController *controller = [[[NSViewController alloc] initWithNibName:nil bundle:nil] autorelease];
        [controller setView:view];
        [made setContentViewController:controller];
        [made setContentSize:NSMakeSize(200, 120)];
        return made;
    }

    static NSWindow *windowOf(NSPopover *shown) { return [[[shown contentViewController] view] window]; }

    // Below: a button is flipped, so the edge with the highest y is its lower one.
    void show() {
        [popover showRelativeToRect:[anchor bounds] ofView:anchor preferredEdge:NSMaxYEdge];
        ASSERT_TRUE(test::giveKeyboard(windowOf(popover)));
    }

    std::string events() const { return [[recorder->events componentsJoinedByString:@" "] UTF8String]; }

    NSAutoreleasePool *pool = nil;
    NSWindow *window = nil;
    NSButton *anchor = nil;
    NSPopover *popover = nil;
    PopoverRecorder *recorder = nil;
};

} // namespace

TEST(PopoverPlacementTest, PrefersTheAskedEdge) {
    const auto placement = place({100, 500, 50, 20}, 200, 120, Edge::bottom, {0, 0, 1000, 800});
    EXPECT_EQ(placement.edge, Edge::bottom);
    EXPECT_DOUBLE_EQ(placement.frame.y + placement.frame.height, 500);
    EXPECT_DOUBLE_EQ(placement.frame.x + placement.frame.width / 2, 125);
    EXPECT_DOUBLE_EQ(placement.arrow, 100);
}

TEST(PopoverPlacementTest, TakesTheOppositeEdgeWhereTheAskedOneHasNoRoom) {
    EXPECT_EQ(place({100, 50, 50, 20}, 200, 120, Edge::bottom, {0, 0, 1000, 800}).edge, Edge::top);
    EXPECT_EQ(place({100, 780, 50, 20}, 200, 120, Edge::top, {0, 0, 1000, 800}).edge, Edge::bottom);
    EXPECT_EQ(place({10, 400, 50, 20}, 200, 120, Edge::left, {0, 0, 1000, 800}).edge, Edge::right);
    EXPECT_EQ(place({900, 400, 50, 20}, 200, 120, Edge::right, {0, 0, 1000, 800}).edge, Edge::left);
}

TEST(PopoverPlacementTest, StaysOnTheScreenAndPointsAtItsAnchor) {
    const auto placement = place({980, 500, 20, 20}, 200, 120, Edge::bottom, {0, 0, 1000, 800});
    EXPECT_DOUBLE_EQ(placement.frame.x, 800);
    EXPECT_LT(placement.arrow, 0) << "the anchor lies at the round corner";
    const auto shifted = place({930, 500, 20, 20}, 200, 120, Edge::bottom, {0, 0, 1000, 800});
    EXPECT_DOUBLE_EQ(shifted.arrow, 140);
}

TEST_F(PopoverTest, ShowsBelowItsAnchorAndTakesTheKeys) {
    EXPECT_FALSE([popover isShown]);
    show();
    EXPECT_TRUE([popover isShown]);
    EXPECT_EQ(events(), "willShow didShow");
    EXPECT_FALSE(recorder->shownInWillShow);
    EXPECT_TRUE(recorder->shownInDidShow);
    const NSRect onScreen = [window convertRectToScreen:[anchor convertRect:[anchor bounds] toView:nil]];
    const NSRect frame = [windowOf(popover) frame];
    EXPECT_NEAR(NSMaxY(frame), NSMinY(onScreen), 1);
    EXPECT_NEAR(NSMidX(frame), NSMidX(onScreen), 1);
    EXPECT_EQ(NSWidth([[[popover contentViewController] view] frame]), 200);
    EXPECT_EQ(NSHeight([[[popover contentViewController] view] frame]), 120);
    test::savePicture(nil, "popover");
}

TEST_F(PopoverTest, HasRoundCorners) {
    show();
    NSWindow *shown = windowOf(popover);
    [window setBackgroundColor:[NSColor redColor]];
    [[window contentView] setNeedsDisplay:YES];
    // Just inside of the frame's lower corner shows what lies behind, a little further in the popover.
    EXPECT_TRUE(test::runUntil([&] { return test::pixel(shown, NSMakePoint(1, 1)) == 0xff0000; }));
    EXPECT_NE(test::pixel(shown, NSMakePoint(12, 12)), 0xff0000U);
}

TEST_F(PopoverTest, ClosesOnAClickInItsWindow) {
    show();
    test::click(window, NSMakePoint(20, 280));
    EXPECT_TRUE(test::runUntil([&] { return !static_cast<bool>([popover isShown]); }));
    EXPECT_EQ(events(), "willShow didShow willClose didClose");
}

TEST_F(PopoverTest, ClosesOnEscapeAndGivesTheKeysBack) {
    show();
    test::pressKey("Escape");
    EXPECT_TRUE(test::runUntil([&] { return !static_cast<bool>([popover isShown]); }));
    EXPECT_TRUE(test::runUntil([&] { return static_cast<bool>([window isKeyWindow]); }));
}

TEST_F(PopoverTest, AsksItsDelegateBeforeItCloses) {
    show();
    recorder->refusesToClose = YES;
    [popover performClose:nil];
    EXPECT_TRUE([popover isShown]);
    [popover close];
    EXPECT_FALSE([popover isShown]) << "an order to close is not asked about";
}

TEST_F(PopoverTest, StaysOpenWhenTheApplicationDecides) {
    [popover setBehavior:NSPopoverBehaviorApplicationDefined];
    show();
    [window makeKeyAndOrderFront:nil];
    test::runUntilQuiet(window);
    EXPECT_TRUE([popover isShown]);
}

TEST_F(PopoverTest, StaysOpenForAPopoverOpenedFromIt) {
    show();
    NSPopover *inner = make();
    NSView *within = [[[[popover contentViewController] view] subviews] lastObject];
    [inner showRelativeToRect:NSZeroRect ofView:within preferredEdge:NSMaxXEdge];
    ASSERT_TRUE(test::runUntil([&] { return static_cast<bool>([windowOf(inner) isKeyWindow]); }));
    test::runUntilQuiet(windowOf(inner));
    EXPECT_TRUE([popover isShown]);
    test::savePicture(nil, "popover-inner");
    [window makeKeyAndOrderFront:nil];
    EXPECT_TRUE(test::runUntil([&] { return ![inner isShown] && ![popover isShown]; }));
}

TEST_F(PopoverTest, StaysOpenWhileAMenuIsUsedInIt) {
    NSPopUpButton *menu = [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(20, 20, 150, 26) pullsDown:NO] autorelease];
    [menu addItemsWithTitles:@[ @"First", @"Second", @"Third" ]];
    [[[popover contentViewController] view] addSubview:menu];
    show();
    const NSPoint middle = [menu convertPoint:NSMakePoint(75, 13) toView:nil];
    // Down onto the next item: a menu's row is at least as high as a line of text.
    test::drag(windowOf(popover), middle, NSMakePoint(middle.x, middle.y - 24));
    EXPECT_TRUE(test::runUntil([&] { return [menu indexOfSelectedItem] == 1; }));
    test::runUntilQuiet(windowOf(popover));
    EXPECT_TRUE([popover isShown]);
}

TEST_F(PopoverTest, ClosesWithItsWindow) {
    show();
    [window close];
    EXPECT_FALSE([popover isShown]);
}

TEST_F(PopoverTest, FollowsAChangeOfItsContentSize) {
    show();
    [popover setContentSize:NSMakeSize(260, 90)];
    EXPECT_EQ(NSWidth([[[popover contentViewController] view] frame]), 260);
    EXPECT_EQ(NSHeight([[[popover contentViewController] view] frame]), 90);
}

TEST_F(PopoverTest, CanBeShownAgain) {
    show();
    [popover close];
    show();
    EXPECT_TRUE([popover isShown]);
    EXPECT_EQ(events(), "willShow didShow willClose didClose willShow didShow");
}
