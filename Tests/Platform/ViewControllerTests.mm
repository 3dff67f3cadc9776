#import "Platform.h"
#import "TestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

@interface AppearingController : NSViewController {
@public
    std::vector<std::string> log;
}
@end

@implementation AppearingController
- (void)viewWillAppear {
    [super viewWillAppear];
    log.push_back([[[self view] window] isVisible] ? "will, in a visible window" : "will");
}
- (void)viewDidAppear {
    [super viewDidAppear];
    log.push_back([[[self view] window] isVisible] ? "did" : "did, off screen");
}
- (void)viewWillDisappear {
    [super viewWillDisappear];
    log.push_back("will go");
}
- (void)viewDidDisappear {
    [super viewDidDisappear];
    log.push_back("gone");
}
@end

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ViewControllerAppearance : public testing::Test {
protected:
    void SetUp() override {
        platform::prepareAppKit();
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 200, 200)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
        first_ = makeController();
        second_ = makeController();
    }

    void TearDown() override {
        [window_ close];
        [window_ release];
        [first_ release];
        [second_ release];
    }

    static AppearingController *makeController() {
        auto *controller = [[AppearingController alloc] initWithNibName:nil bundle:nil];
        [controller setView:[[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 50, 50)] autorelease]];
        return controller;
    }

    static std::vector<std::string> logOf(AppearingController *controller) {
        return std::exchange(controller->log, {});
    }

    NSWindow *window_ = nil;
    AppearingController *first_ = nil;
    AppearingController *second_ = nil;
};

TEST_F(ViewControllerAppearance, FollowsTheWindow) {
    [[window_ contentView] addSubview:[first_ view]];
    EXPECT_THAT(logOf(first_), IsEmpty());
    [window_ makeKeyAndOrderFront:nil];
    EXPECT_THAT(logOf(first_), ElementsAre("will", "did"));
    [window_ orderFront:nil];
    EXPECT_THAT(logOf(first_), IsEmpty());
    [window_ orderOut:nil];
    EXPECT_THAT(logOf(first_), ElementsAre("will go", "gone"));
    [window_ orderFront:nil];
    EXPECT_THAT(logOf(first_), ElementsAre("will", "did"));
    [window_ close];
    EXPECT_THAT(logOf(first_), ElementsAre("will go", "gone"));
}

TEST_F(ViewControllerAppearance, FollowsTheViewIntoAndOutOfAVisibleWindow) {
    [window_ orderFront:nil];
    NSView *parent = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 90, 90)] autorelease];
    [parent addSubview:[first_ view]];
    EXPECT_THAT(logOf(first_), IsEmpty());
    [[window_ contentView] addSubview:parent];
    EXPECT_THAT(logOf(first_), ElementsAre("will", "did"));
    [parent removeFromSuperview];
    EXPECT_THAT(logOf(first_), ElementsAre("will go", "gone"));
}

TEST_F(ViewControllerAppearance, FollowsTheSelectedTab) {
    NSTabView *tabs = [[[NSTabView alloc] initWithFrame:NSMakeRect(0, 0, 200, 200)] autorelease];
    for (AppearingController *controller : {first_, second_}) {
        NSTabViewItem *item = [[[NSTabViewItem alloc] initWithIdentifier:@"tab"] autorelease];
        [item setView:[controller view]];
        [tabs addTabViewItem:item];
    }
    [[window_ contentView] addSubview:tabs];
    [tabs selectTabViewItemAtIndex:0];
    EXPECT_THAT(logOf(first_), IsEmpty());
    [window_ orderFront:nil];
    EXPECT_THAT(logOf(first_), ElementsAre("will", "did"));
    EXPECT_THAT(logOf(second_), IsEmpty());
    [tabs selectTabViewItemAtIndex:1];
    EXPECT_THAT(logOf(first_), ElementsAre("will go", "gone"));
    EXPECT_THAT(logOf(second_), ElementsAre("will", "did"));
}

TEST_F(ViewControllerAppearance, IsOverWithTheController) {
    [[window_ contentView] addSubview:[first_ view]];
    [first_ release];
    first_ = nil;
    [window_ orderFront:nil];
    [[window_ contentView] addSubview:[second_ view]];
    EXPECT_THAT(logOf(second_), ElementsAre("will", "did"));
    [second_ setView:nil];
    [window_ orderOut:nil];
    EXPECT_THAT(logOf(second_), IsEmpty());
}

} // namespace
