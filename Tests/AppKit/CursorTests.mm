#import "Displays.h"
#import "MouseMoveManager.h"
#import "Platform.h"
#import "TestSupport.h"
#import "WeakObjCPtr.h"

#include <gtest/gtest.h>

using namespace appkitglue;

namespace {

/// The pause before a hide, and a little more.
constexpr double afterTheHide = 2.1;

class CursorHiding : public testing::Test {
protected:
    void SetUp() override {
        platform::prepareAppKit();
        window_ = adoptNS([[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 1440, 800)
                                                      styleMask:NSBorderlessWindowMask
                                                        backing:NSBackingStoreBuffered
                                                          defer:NO]);
        [window_.get() setReleasedWhenClosed:NO];
        [window_.get() makeKeyAndOrderFront:nil];
        area_ = adoptNS([[NSTrackingArea alloc] initWithRect:NSZeroRect
                                                     options:static_cast<NSTrackingAreaOptions>(643)
                                                       owner:manager_.get()
                                                    userInfo:nil]);
        test::runUntilQuiet(window_.get());
        test::movePointer(x_, 500);
        ASSERT_TRUE(test::runUntil([] { return test::cursorShows(); }));
    }
    void TearDown() override {
        [[window_.get() contentView] removeTrackingArea:area_.get()];
        [NSCursor setHiddenUntilMouseMoves:NO];
        [window_.get() close];
    }

    void startTracking() {
        [[window_.get() contentView] addTrackingArea:area_.get()];
        [manager_.get() setTrackingArea:area_.get()];
    }
    void moveALittle() { test::movePointer(++x_, 500); }
    /// Lets the run loop work until everything that is due within so many seconds has run.
    static bool pass(double seconds) {
        auto passed = std::make_shared<bool>(false);
        platform::asyncAfter(seconds, [passed] { *passed = true; });
        return test::runUntil([passed] { return *passed; }, seconds + 30);
    }

    int x_ = 700;
    RetainPtr<NSWindow> window_;
    RetainPtr<MouseMoveManager> manager_ = adoptNS([[MouseMoveManager alloc] init]);
    RetainPtr<NSTrackingArea> area_;
};

TEST_F(CursorHiding, StartsIdleWithNeitherInitialiserDoingMore) {
    EXPECT_FALSE([manager_.get() cursorHideState]);
    EXPECT_EQ([manager_.get() trackingArea], nil);
    const auto framed = adoptNS([[MouseMoveManager alloc] initWithFrame:NSMakeRect(1, 2, 3, 4)]);
    EXPECT_FALSE([framed.get() cursorHideState]);
    EXPECT_TRUE(NSEqualRects([framed.get() frame], NSMakeRect(1, 2, 3, 4)));
    NSData *archive = [NSArchiver archivedDataWithRootObject:framed.get()];
    MouseMoveManager *decoded = [NSUnarchiver unarchiveObjectWithData:archive];
    EXPECT_FALSE([decoded cursorHideState]);
    EXPECT_EQ([decoded trackingArea], nil);
}

TEST_F(CursorHiding, HidesOnceTwoSecondsAfterASingleMovement) {
    startTracking();
    const double start = [NSDate timeIntervalSinceReferenceDate];
    moveALittle();
    ASSERT_TRUE(test::runUntil([&] { return [manager_.get() cursorHideState]; }));
    ASSERT_TRUE(test::runUntil([] { return !test::cursorShows(); }));
    EXPECT_GE([NSDate timeIntervalSinceReferenceDate] - start, 1.95);
    EXPECT_FALSE([manager_.get() cursorHideState]);
    moveALittle();
    EXPECT_TRUE(test::runUntil([] { return test::cursorShows(); }));
}

TEST_F(CursorHiding, StaysPendingWhenTrackingEndedMeanwhile) {
    startTracking();
    moveALittle();
    ASSERT_TRUE(test::runUntil([&] { return [manager_.get() cursorHideState]; }));
    [manager_.get() setTrackingArea:nil];
    ASSERT_TRUE(pass(afterTheHide));
    EXPECT_TRUE([manager_.get() cursorHideState]);
    EXPECT_TRUE(test::cursorShows());
    // From then on movements hide nothing any more.
    [manager_.get() setTrackingArea:area_.get()];
    moveALittle();
    ASSERT_TRUE(pass(afterTheHide));
    EXPECT_TRUE(test::cursorShows());
    EXPECT_TRUE([manager_.get() cursorHideState]);
}

TEST_F(CursorHiding, IsNotKeptAliveByAPendingHide) {
    const WeakObjCPtr<MouseMoveManager> weak(manager_.get());
    [manager_.get() setTrackingArea:area_.get()];
    [manager_.get() mouseMoved:nil];
    EXPECT_TRUE([manager_.get() cursorHideState]);
    manager_ = nullptr;
    EXPECT_FALSE(weak);
    ASSERT_TRUE(pass(afterTheHide));
    EXPECT_TRUE(test::cursorShows());
}

} // namespace
