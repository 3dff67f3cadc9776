#import "Displays.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

/// Counts what a tracking area tells it.
@interface QVTrackingOwner : NSObject {
@public
    int _entered;
    int _exited;
    int _moved;
}
@end

@implementation QVTrackingOwner

- (void)mouseEntered:(NSEvent *)event {
    ++_entered;
}

- (void)mouseExited:(NSEvent *)event {
    ++_exited;
}

- (void)mouseMoved:(NSEvent *)event {
    ++_moved;
}

@end

namespace {

constexpr NSUInteger presentation = 643;
constexpr NSUInteger always = 0x80;

class TrackingArea : public testing::Test {
protected:
    void SetUp() override {
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 400, 300)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
        view_ = [[[NSView alloc] initWithFrame:NSMakeRect(100, 100, 200, 100)] autorelease];
        [[window_ contentView] addSubview:view_];
        owner_ = [[QVTrackingOwner alloc] init];
    }

    void TearDown() override {
        for (NSTrackingArea *area in [view_ trackingAreas]) {
            [view_ removeTrackingArea:area];
        }
        [owner_ release];
        [window_ close];
        [window_ release];
    }

    NSTrackingArea *add(NSUInteger options, NSRect rect = NSMakeRect(0, 0, 100, 100)) {
        NSTrackingArea *area = [[[NSTrackingArea alloc] initWithRect:rect
                                                             options:static_cast<NSTrackingAreaOptions>(options)
                                                               owner:owner_
                                                            userInfo:nil] autorelease];
        [view_ addTrackingArea:area];
        return area;
    }

    /// Moves the mouse to a point of the view.
    void mouse(double x, double y, NSEventType type = NSMouseMoved) {
        NSEvent *event = [NSEvent mouseEventWithType:type
                                            location:[view_ convertPoint:NSMakePoint(x, y) toView:nil]
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:[window_ windowNumber]
                                             context:nil
                                         eventNumber:0
                                          clickCount:0
                                            pressure:0];
        [window_ sendEvent:event];
    }

    NSWindow *window_ = nil;
    NSView *view_ = nil;
    QVTrackingOwner *owner_ = nil;
};

TEST_F(TrackingArea, TellsItsOwnerOfMovesOverTheVisibleViewWhateverItsRectangle) {
    add(presentation, NSMakeRect(0, 0, 1, 1));
    mouse(50, 50);
    mouse(180, 90);
    EXPECT_EQ(owner_->_moved, 2);
    EXPECT_EQ(owner_->_entered, 1);
    mouse(300, 50);
    EXPECT_EQ(owner_->_moved, 2);
    EXPECT_EQ(owner_->_exited, 1);
}

TEST_F(TrackingArea, IsItsRectangleWithoutTheVisibleRectOption) {
    add(always | 3);
    mouse(150, 50);
    EXPECT_EQ(owner_->_moved, 0);
    mouse(50, 50);
    EXPECT_EQ(owner_->_moved, 1);
}

TEST_F(TrackingArea, TellsOnlyWhatItsOptionsName) {
    add(always | 1);
    mouse(50, 50);
    EXPECT_EQ(owner_->_entered, 1);
    EXPECT_EQ(owner_->_moved, 0);
}

TEST_F(TrackingArea, AssumedInsideTellsNoEntry) {
    add(always | 1 | 0x100);
    mouse(50, 50);
    EXPECT_EQ(owner_->_entered, 0);
    mouse(150, 50);
    EXPECT_EQ(owner_->_exited, 1);
}

TEST_F(TrackingArea, ForTheKeyWindowIsQuietInOthers) {
    add(0x20 | 3);
    ASSERT_FALSE([window_ isKeyWindow]);
    mouse(50, 50);
    EXPECT_EQ(owner_->_moved, 0);
}

TEST_F(TrackingArea, IsQuietWhileDraggingUnlessItsOptionsSayOtherwise) {
    NSTrackingArea *area = add(always | 1);
    mouse(50, 50, NSLeftMouseDragged);
    EXPECT_EQ(owner_->_entered, 0);
    [view_ removeTrackingArea:area];
    add(always | 1 | 0x400);
    mouse(50, 50, NSLeftMouseDragged);
    EXPECT_EQ(owner_->_entered, 1);
}

TEST_F(TrackingArea, OnAHiddenViewIsQuiet) {
    add(presentation);
    [view_ setHidden:YES];
    mouse(50, 50);
    EXPECT_EQ(owner_->_moved, 0);
}

TEST_F(TrackingArea, IsQuietOnceRemoved) {
    NSTrackingArea *area = add(presentation);
    EXPECT_EQ([[view_ trackingAreas] count], 1U);
    [view_ removeTrackingArea:area];
    EXPECT_EQ([[view_ trackingAreas] count], 0U);
    mouse(50, 50);
    EXPECT_EQ(owner_->_moved, 0);
}

TEST_F(TrackingArea, OutlivesItsOwnerWithoutHarm) {
    const NSUInteger count = [owner_ retainCount];
    add(presentation);
    EXPECT_EQ([owner_ retainCount], count);
    [owner_ release];
    owner_ = nil;
    mouse(50, 50);
    EXPECT_EQ([[view_ trackingAreas] count], 1U);
}

TEST_F(TrackingArea, GoesWithItsView) {
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    NSView *child = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 50, 50)];
    [view_ addSubview:child];
    NSTrackingArea *area = [[NSTrackingArea alloc] initWithRect:NSMakeRect(0, 0, 50, 50)
                                                        options:static_cast<NSTrackingAreaOptions>(presentation)
                                                          owner:owner_
                                                       userInfo:nil];
    [child addTrackingArea:area];
    [child removeFromSuperview];
    [child release];
    [pool drain];
    mouse(20, 20);
    EXPECT_EQ(owner_->_moved, 0);
    EXPECT_EQ([area retainCount], 1U);
    [area release];
}

TEST_F(TrackingArea, HearsOfTheRealPointer) {
    [window_ makeKeyAndOrderFront:nil];
    test::runUntilQuiet(window_);
    add(presentation);
    const NSPoint inside = [window_ convertBaseToScreen:[view_ convertPoint:NSMakePoint(50, 50) toView:nil]];
    const int top = static_cast<int>(NSMaxY([[NSScreen mainScreen] frame]));
    test::movePointer(static_cast<int>(inside.x), top - static_cast<int>(inside.y));
    EXPECT_TRUE(test::runUntil([&] { return owner_->_entered == 1; }));
    test::movePointer(static_cast<int>(inside.x) + 5, top - static_cast<int>(inside.y));
    EXPECT_TRUE(test::runUntil([&] { return owner_->_moved > 0; }));
    test::movePointer(1400, 20);
    EXPECT_TRUE(test::runUntil([&] { return owner_->_exited == 1; }));
}

} // namespace
