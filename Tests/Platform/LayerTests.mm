// Layers of views: a transform that is seen and animates.
#import "DrawnViews.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

using test::Canvas;

namespace {

constexpr CGAffineTransform halfMoved{0.5, 0, 0, 0.5, 20, 30};

TEST(AffineTransform, AppliesTheLastChangeFirst) {
    const auto scaled = CGAffineTransformScale(CGAffineTransformIdentity, 0.7, 0.7);
    const auto moved = CGAffineTransformTranslate(scaled, -10, 130);
    EXPECT_DOUBLE_EQ(moved.a, 0.7);
    EXPECT_DOUBLE_EQ(moved.d, 0.7);
    EXPECT_DOUBLE_EQ(moved.tx, -7);
    EXPECT_DOUBLE_EQ(moved.ty, 91);
}

TEST(ViewLayer, IsThereOnlyWhenWanted) {
    Canvas canvas;
    NSView *view = test::addView(canvas.background, NSMakeRect(10, 10, 60, 60), test::red);
    EXPECT_EQ([view layer], nil);
    [view setWantsLayer:YES];
    EXPECT_NE([view layer], nil);
    EXPECT_EQ([[view animator] layer], [view layer]);
    [view setWantsLayer:NO];
    EXPECT_EQ([view layer], nil);
}

TEST(ViewLayer, ScalesAndMovesWhatTheViewDraws) {
    Canvas canvas;
    DrawnView *view = test::addEmptyView(canvas.background, NSMakeRect(100, 100, 100, 100));
    test::addView(view, NSMakeRect(0, 0, 100, 100), test::green);
    NSView *corner = test::addView(view, NSMakeRect(80, 80, 20, 20), test::red);
    [view setWantsLayer:YES];
    [[view layer] setAffineTransform:halfMoved];
    EXPECT_TRUE(NSEqualRects([view bounds], NSMakeRect(0, 0, 100, 100)));
    EXPECT_TRUE(NSEqualRects([corner frame], NSMakeRect(80, 80, 20, 20)));
    const auto at = [&](double x, double y) { return canvas.at(canvas.background, NSMakePoint(x, y)); };
    EXPECT_EQ(at(165, 175), test::red);
    EXPECT_EQ(at(125, 135), test::green);
    EXPECT_EQ(at(105, 105), test::white) << "where it was";
    EXPECT_EQ(at(175, 150), test::white);
    [[view layer] setAffineTransform:CGAffineTransformIdentity];
    EXPECT_TRUE(NSEqualRects([view frame], NSMakeRect(100, 100, 100, 100)));
    EXPECT_EQ(at(190, 190), test::red);
}

TEST(ViewLayer, DrawsTranslucentContentOnceWhenScaled) {
    Canvas canvas;
    NSView *view = test::addEmptyView(canvas.background, NSMakeRect(100, 100, 101, 101));
    DrawnView *content = test::addEmptyView(view, NSMakeRect(3, 3, 93, 93));
    content->_color = [[NSColor colorWithCalibratedRed:1 green:0 blue:0 alpha:0.5] retain];
    [view setWantsLayer:YES];
    [[view layer] setAffineTransform:{0.7, 0, 0, 0.7, 3.3, 4.7}];
    for (int i = 0; i < 4; ++i) {
        [content setNeedsDisplay:YES];
        EXPECT_EQ(canvas.at(view, NSMakePoint(50, 50)), mix(test::red, 0.5, test::white));
    }
}

TEST(ViewLayer, AnimatesInImplicitGroups) {
    Canvas canvas;
    NSView *view = test::addView(canvas.background, NSMakeRect(100, 100, 100, 100), test::red);
    [view setWantsLayer:YES];
    int done = 0;
    int *counter = &done;
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:0.1];
            [context setAllowsImplicitAnimation:YES];
            [[[view animator] layer] setAffineTransform:halfMoved];
        }
        completionHandler:^{
            ++*counter;
        }];
    EXPECT_EQ([view frame].size.width, 100);
    bool between = false;
    EXPECT_TRUE(test::runUntil([&] {
        between = between || ([view frame].size.width < 100 && [view frame].size.width > 50);
        return done == 1;
    }));
    EXPECT_TRUE(between);
    EXPECT_NEAR([view frame].origin.x, 120, 1e-6);
    EXPECT_NEAR([view frame].origin.y, 130, 1e-6);
    EXPECT_NEAR([view frame].size.width, 50, 1e-6);
    EXPECT_EQ([[view layer] affineTransform].tx, 20);
}

TEST(ViewLayer, EndsWithItsView) {
    Canvas canvas;
    int done = 0;
    int *counter = &done;
    @autoreleasepool {
        NSView *view = test::addView(canvas.background, NSMakeRect(100, 100, 100, 100), test::red);
        [view setWantsLayer:YES];
        [NSAnimationContext
            runAnimationGroup:^(NSAnimationContext *context) {
                [context setDuration:30];
                [context setAllowsImplicitAnimation:YES];
                [[view layer] setAffineTransform:halfMoved];
            }
            completionHandler:^{
                ++*counter;
            }];
        [view removeFromSuperview];
    }
    EXPECT_TRUE(test::runUntil([&] { return done == 1; }));
}

TEST(WindowContentViewController, IsKeptByTheWindowAndGivesItsView) {
    platform::prepareAppKit();
    auto view = [[[DrawnView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)] autorelease];
    platform::WeakReference controllerReference;
    @autoreleasepool {
        NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                       styleMask:NSTitledWindowMask
                                                         backing:NSBackingStoreBuffered
                                                           defer:YES];
        [window setReleasedWhenClosed:NO];
        NSViewController *controller = [[NSViewController alloc] initWithNibName:nil bundle:nil];
        [controller setView:view];
        controllerReference = platform::WeakReference(controller);
        [window setContentViewController:controller];
        [controller release];
        EXPECT_EQ([window contentView], view);
        EXPECT_EQ([window contentViewController], controller);
        [window release];
    }
    id left = controllerReference.loadRetained();
    EXPECT_EQ(left, nil) << "gone with its window";
    [left release];
}

} // namespace
