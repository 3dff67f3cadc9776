// Views are seen with their alpha value.
#import "DrawnViews.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>

using test::Canvas;
using test::mix;

namespace {

TEST(ViewAlpha, MixesAViewWithWhatLiesBehind) {
    Canvas canvas;
    NSView *view = test::addView(canvas.background, NSMakeRect(10, 10, 60, 60), test::red, 0.5);
    const NSPoint inside = NSMakePoint(30, 30);
    EXPECT_EQ(canvas.at(view, inside), mix(test::red, 0.5, test::white));
    [view setAlphaValue:0.25];
    EXPECT_EQ(canvas.at(view, inside), mix(test::red, 0.25, test::white));
    [view setAlphaValue:0];
    EXPECT_EQ(canvas.at(view, inside), test::white);
    [view setAlphaValue:1];
    EXPECT_EQ(canvas.at(view, inside), test::red);
}

TEST(ViewAlpha, KeepsValuesBetweenZeroAndOne) {
    Canvas canvas;
    NSView *view = test::addView(canvas.background, NSMakeRect(10, 10, 60, 60), test::red);
    [view setAlphaValue:7];
    EXPECT_EQ([view alphaValue], 1);
    [view setAlphaValue:-1];
    EXPECT_EQ([view alphaValue], 0);
}

TEST(ViewAlpha, IsOneForViewsFromAnArchive) {
    Canvas canvas;
    NSView *original = [[[NSView alloc] initWithFrame:NSMakeRect(10, 10, 60, 60)] autorelease];
    NSData *archive = [NSKeyedArchiver archivedDataWithRootObject:original];
    NSView *parent = [NSKeyedUnarchiver unarchiveObjectWithData:archive];
    EXPECT_EQ([parent alphaValue], 1);
    [canvas.background addSubview:parent];
    NSView *child = test::addView(parent, NSMakeRect(0, 0, 60, 60), test::red);
    EXPECT_EQ(canvas.at(child, NSMakePoint(30, 30)), test::red);
}

TEST(ViewAlpha, MultipliesThroughNestedViews) {
    Canvas canvas;
    NSView *parent = test::addEmptyView(canvas.background, NSMakeRect(10, 100, 100, 100), 0.5);
    NSView *child = test::addView(parent, NSMakeRect(10, 10, 50, 50), test::red, 0.5);
    EXPECT_EQ(canvas.at(child, NSMakePoint(25, 25)), mix(test::red, 0.25, test::white));
}

TEST(ViewAlpha, TreatsAViewAndItsSubviewsAsOnePicture) {
    Canvas canvas;
    DrawnView *parent = test::addView(canvas.background, NSMakeRect(120, 100, 100, 100), test::green, 0.5);
    parent->_flipped = YES;
    test::addView(parent, NSMakeRect(60, 60, 80, 80), test::red, 0.5);
    const auto both = mix(mix(test::red, 0.5, test::green), 0.5, test::white);
    EXPECT_EQ(canvas.at(parent, NSMakePoint(80, 80)), both);
    EXPECT_EQ(canvas.at(parent, NSMakePoint(20, 20)), mix(test::green, 0.5, test::white));
    EXPECT_EQ(canvas.at(canvas.background, NSMakePoint(230, 110)), test::white) << "clipped by the parent";
}

TEST(ViewAlpha, LeavesUnpaintedPartsAlone) {
    Canvas canvas;
    DrawnView *view = test::addView(canvas.background, NSMakeRect(240, 100, 100, 60), test::red, 0.5);
    view->_leftHalfOnly = YES;
    EXPECT_EQ(canvas.at(view, NSMakePoint(75, 30)), test::white);
    EXPECT_EQ(canvas.at(view, NSMakePoint(25, 30)), mix(test::red, 0.5, test::white));
}

TEST(ViewAlpha, DoesNotAddUpWhenAnOpaqueViewIsDrawnAgain) {
    Canvas canvas;
    DrawnView *view = test::addView(canvas.background, NSMakeRect(360, 100, 60, 60), test::red, 0.5);
    view->_opaque = YES;
    for (int i = 0; i < 4; ++i) {
        [view setNeedsDisplay:YES];
        [canvas.window displayIfNeeded];
        [view display];
        [view displayRect:NSMakeRect(5, 5, 30, 30)];
    }
    EXPECT_EQ(canvas.at(view, NSMakePoint(20, 20)), mix(test::red, 0.5, test::white));
}

TEST(ViewAlpha, HoldsForAnOpaqueChildDrawnByItself) {
    Canvas canvas;
    NSView *parent = test::addEmptyView(canvas.background, NSMakeRect(10, 100, 100, 100), 0.5);
    DrawnView *child = test::addView(parent, NSMakeRect(10, 10, 50, 50), test::red);
    child->_opaque = YES;
    for (int i = 0; i < 4; ++i) {
        [child setNeedsDisplay:YES];
        [canvas.window displayIfNeeded];
        [child display];
    }
    EXPECT_EQ(canvas.at(child, NSMakePoint(20, 20)), mix(test::red, 0.5, test::white));
    [child lockFocus];
    [test::colorOf(test::green) set];
    NSRectFill([child bounds]);
    [child unlockFocus];
    EXPECT_EQ(canvas.at(child, NSMakePoint(20, 20)), mix(test::red, 0.5, test::white)) << "direct drawing is repaired";
}

TEST(ViewAlpha, HoldsForControlsAndTheirText) {
    Canvas canvas;
    NSTextField *label = [[[NSTextField alloc] initWithFrame:NSMakeRect(100, 10, 200, 40)] autorelease];
    [label setFont:[NSFont boldSystemFontOfSize:26]];
    [label setStringValue:@"HHIIMM"];
    [label setBezeled:NO];
    [label setDrawsBackground:NO];
    [label setTextColor:[NSColor blackColor]];
    [canvas.background addSubview:label];
    const auto darkest = [&] {
        int value = 255;
        for (int x = 5; x < 60; ++x) {
            value = std::min(value, canvas.at(label, NSMakePoint(x, 20)).red);
        }
        return value;
    };
    const int opaque = darkest();
    [label setAlphaValue:0.3];
    EXPECT_NEAR(darkest(), 255 - 0.3 * (255 - opaque), 1.5);
}

TEST(ViewAlpha, HoldsUnderScaledAndRotatedParents) {
    Canvas canvas;
    NSView *scaled = test::addEmptyView(canvas.background, NSMakeRect(10, 220, 100, 100));
    [scaled setBoundsSize:NSMakeSize(50, 50)];
    NSView *inScaled = test::addView(scaled, NSMakeRect(5.3, 5.3, 30, 30), test::red, 0.5);
    NSView *rotated = test::addView(canvas.background, NSMakeRect(260, 220, 80, 80), test::red, 0.5);
    [rotated setFrameRotation:30];
    for (int i = 0; i < 3; ++i) {
        [inScaled setNeedsDisplay:YES];
        [rotated setNeedsDisplay:YES];
        EXPECT_EQ(canvas.at(inScaled, NSMakePoint(15, 15)), mix(test::red, 0.5, test::white));
        EXPECT_EQ(canvas.at(scaled, NSMakePoint(42, 42)), test::white);
        EXPECT_EQ(canvas.at(rotated, NSMakePoint(40, 40)), mix(test::red, 0.5, test::white));
    }
}

TEST(ViewAlpha, HoldsForAScrolledScrollView) {
    Canvas canvas;
    NSScrollView *scrollView = [[[NSScrollView alloc] initWithFrame:NSMakeRect(300, 220, 160, 120)] autorelease];
    DrawnView *document = [[[DrawnView alloc] initWithFrame:NSMakeRect(0, 0, 140, 600)] autorelease];
    document->_color = [test::colorOf(test::red) retain];
    [scrollView setDocumentView:document];
    [canvas.background addSubview:scrollView];
    [scrollView setAlphaValue:0.5];
    for (int i = 0; i < 5; ++i) {
        [document scrollPoint:NSMakePoint(0, i * 37)];
        [canvas.window displayIfNeeded];
    }
    EXPECT_EQ(canvas.at(scrollView, NSMakePoint(80, 60)), mix(test::red, 0.5, test::white));
}

TEST(ViewAlpha, IsUndoneWhenDrawingRaises) {
    Canvas canvas;
    DrawnView *view = test::addView(canvas.background, NSMakeRect(10, 10, 60, 60), test::red, 0.5);
    view->_raises = YES;
    BOOL raised = NO;
    @try {
        [view display];
    } @catch (NSException *) {
        raised = YES;
        [view unlockFocus]; // AppKit left it locked
    }
    EXPECT_TRUE(raised);
    view->_raises = NO;
    [canvas.background setNeedsDisplay:YES];
    EXPECT_EQ(canvas.at(view, NSMakePoint(30, 30)), mix(test::red, 0.5, test::white));
}

} // namespace
