// Animation groups, animator proxies and what they do to views; nothing here depends on how fast the machine is.
#import "DrawnViews.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using test::Canvas;

namespace {

constexpr double brief = 0.1;

/// A group of `duration` seconds; `*done` counts its completions.
void run(double duration, void (^changes)(void), int *done, bool implicit = false) {
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:duration];
            [context setAllowsImplicitAnimation:implicit];
            changes();
        }
        completionHandler:^{
            if (done != nullptr) {
                ++*done;
            }
        }];
}

class Animation : public testing::Test {
protected:
    ~Animation() override { test::spin(0.03); } // no animation is left for the next test

    bool until(const std::function<bool()> &condition) { return test::runUntil(condition); }

    Canvas canvas;
    DrawnView *view = test::addView(canvas.background, NSMakeRect(10, 10, 60, 60), test::red);
    int done = 0;
};

TEST_F(Animation, MovesAPropertyThroughTheAnimatorAndCompletesOnce) {
    std::vector<double> seen;
    run(
        brief,
        ^{
            [[view animator] setAlphaValue:0.5];
        },
        &done);
    EXPECT_EQ([view alphaValue], 1) << "not at once";
    EXPECT_TRUE(until([&] {
        seen.push_back([view alphaValue]);
        return done > 0;
    }));
    EXPECT_EQ([view alphaValue], 0.5);
    EXPECT_TRUE(std::ranges::is_sorted(seen, std::greater<>{}));
    EXPECT_TRUE(std::ranges::any_of(seen, [](double alpha) { return alpha < 1 && alpha > 0.5; }));
    test::spin(0.05);
    EXPECT_EQ(done, 1);
}

TEST_F(Animation, SetsDirectlyOutsideOfImplicitGroups) {
    run(
        brief,
        ^{
            [view setAlphaValue:0.5];
        },
        &done);
    EXPECT_EQ([view alphaValue], 0.5);
    EXPECT_TRUE(until([&] { return done == 1; }));
}

TEST_F(Animation, AnimatesDirectSettersInImplicitGroups) {
    run(
        brief,
        ^{
            [view setAlphaValue:0.5];
            [view setFrame:NSMakeRect(50, 10, 60, 80)];
        },
        &done, true);
    EXPECT_EQ([view alphaValue], 1);
    EXPECT_EQ([view frame].origin.x, 10);
    EXPECT_TRUE(until([&] { return done == 1; }));
    EXPECT_EQ([view alphaValue], 0.5);
    EXPECT_TRUE(NSEqualRects([view frame], NSMakeRect(50, 10, 60, 80)));
}

TEST_F(Animation, CompletesAnEmptyGroupOnALaterTurn) {
    run(brief,
        ^{
        },
        &done);
    EXPECT_EQ(done, 0);
    EXPECT_TRUE(until([&] { return done == 1; }));
}

TEST_F(Animation, CompletesAnOuterGroupAfterTheInnerOne) {
    auto order = std::make_shared<std::vector<std::string>>();
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *outer) {
            [outer setDuration:0.05];
            [[view animator] setAlphaValue:0];
            [NSAnimationContext
                runAnimationGroup:^(NSAnimationContext *inner) {
                    EXPECT_EQ([inner duration], 0.05) << "inherited";
                    [inner setDuration:brief];
                    [[view animator] setFrame:NSMakeRect(60, 60, 50, 30)];
                }
                completionHandler:^{
                    order->push_back("inner");
                }];
        }
        completionHandler:^{
            order->push_back("outer");
        }];
    EXPECT_TRUE(until([&] { return order->size() == 2; }));
    EXPECT_EQ(*order, (std::vector<std::string>{"inner", "outer"}));
    EXPECT_TRUE(NSEqualRects([view frame], NSMakeRect(60, 60, 50, 30)));
}

TEST_F(Animation, HasTheDefaultTimeOutsideOfGroups) {
    EXPECT_EQ([[NSAnimationContext currentContext] duration], 0.25);
    [[view animator] setAlphaValue:0];
    EXPECT_EQ([view alphaValue], 1);
    EXPECT_TRUE(until([&] { return [view alphaValue] == 0; }));
}

TEST_F(Animation, ClosesTheGroupWhenItsChangesRaise) {
    @try {
        run(
            brief,
            ^{
                [NSException raise:NSGenericException format:@"no"];
            },
            &done);
    } @catch (NSException *) {
    }
    [[view animator] setAlphaValue:0.5];
    EXPECT_EQ([[NSAnimationContext currentContext] duration], 0.25);
    EXPECT_TRUE(until([&] { return done == 1; }));
    EXPECT_TRUE(until([&] { return [view alphaValue] == 0.5; }));
}

TEST_F(Animation, TakesOverFromWhereARunningAnimationIs) {
    int second = 0;
    run(
        5,
        ^{
            [[view animator] setAlphaValue:0];
        },
        &done);
    ASSERT_TRUE(until([&] { return [view alphaValue] < 1; }));
    const double then = [view alphaValue];
    run(
        brief,
        ^{
            [[view animator] setAlphaValue:1];
        },
        &second);
    EXPECT_EQ([view alphaValue], then);
    EXPECT_TRUE(until([&] { return second == 1 && done == 1; })) << "the first group is over as well";
    EXPECT_EQ([view alphaValue], 1);
}

TEST_F(Animation, GivesWayToADirectChange) {
    run(
        5,
        ^{
            [[view animator] setAlphaValue:0];
        },
        &done);
    ASSERT_TRUE(until([&] { return [view alphaValue] < 1; }));
    [view setAlphaValue:0.75];
    EXPECT_TRUE(until([&] { return done == 1; }));
    EXPECT_EQ([view alphaValue], 0.75);
}

TEST_F(Animation, EndsWithItsViewAndStillCompletesOnce) {
    auto dead = std::make_shared<bool>(false);
    @autoreleasepool {
        DrawnView *mortal = [[DrawnView alloc] initWithFrame:NSMakeRect(100, 10, 60, 60)];
        mortal->_whenDeallocated = [dead] { *dead = true; };
        [canvas.background addSubview:mortal];
        run(
            30,
            ^{
                [[mortal animator] setAlphaValue:0];
                [[mortal animator] setHidden:YES];
            },
            &done);
        [mortal release];
    }
    test::runUntil([&] { return false; }, 0.05);
    EXPECT_EQ(done, 0);
    @autoreleasepool {
        [[[canvas.background subviews] lastObject] removeFromSuperview];
    }
    EXPECT_TRUE(until([&] { return *dead && done == 1; }));
    test::spin(0.05);
    EXPECT_EQ(done, 1);
}

TEST_F(Animation, SurvivesAWindowThatGoesWhenItsAnimationEnds) {
    int viewDone = 0;
    int *doneOfView = &viewDone;
    @autoreleasepool {
        NSWindow *other = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                      styleMask:NSTitledWindowMask
                                                        backing:NSBackingStoreBuffered
                                                          defer:YES];
        [other setReleasedWhenClosed:NO];
        NSView *inside = test::addView([other contentView], NSMakeRect(0, 0, 50, 50), test::red);
        run(
            30,
            ^{
                [[inside animator] setAlphaValue:0.5];
            },
            doneOfView);
        run(
            brief,
            ^{
                [[other animator] setAlphaValue:0.5];
            },
            &done);
        [other release]; // the animation has the last reference
    }
    EXPECT_TRUE(until([&] { return done == 1 && *doneOfView == 1; }));
}

TEST_F(Animation, FadesAViewOutBeforeHidingIt) {
    run(
        brief,
        ^{
            [[view animator] setHidden:YES];
        },
        &done);
    EXPECT_FALSE([view isHidden]);
    EXPECT_TRUE(until([&] {
        const auto color = canvas.at(view, NSMakePoint(30, 30));
        return color.green > 10 && color.green < 245;
    }));
    EXPECT_TRUE(until([&] { return done == 1; }));
    EXPECT_TRUE([view isHidden]);
    EXPECT_EQ([view alphaValue], 1) << "the view's own alpha is left alone";
    run(
        brief,
        ^{
            [[view animator] setHidden:NO];
        },
        &done);
    EXPECT_FALSE([view isHidden]);
    EXPECT_TRUE(until([&] { return done == 2; }));
    EXPECT_EQ(canvas.at(view, NSMakePoint(30, 30)), test::red);
}

TEST_F(Animation, ObeysADirectHideDuringAFade) {
    run(
        5,
        ^{
            [[view animator] setHidden:YES];
        },
        &done);
    [view setHidden:NO];
    EXPECT_TRUE(until([&] { return done == 1; }));
    EXPECT_FALSE([view isHidden]);
    EXPECT_EQ(canvas.at(view, NSMakePoint(30, 30)), test::red);
}

TEST_F(Animation, DissolvesAReplacedSubviewIntoTheNewOne) {
    DrawnView *next = [[[DrawnView alloc] initWithFrame:[view frame]] autorelease];
    next->_color = [test::colorOf(test::blue) retain];
    [view retain];
    run(
        0.2,
        ^{
            [[canvas.background animator] replaceSubview:view with:next];
        },
        &done, true);
    EXPECT_EQ([next superview], canvas.background);
    EXPECT_EQ([view superview], nil);
    EXPECT_EQ(canvas.at(next, NSMakePoint(30, 30)), test::red) << "starts with the old picture";
    bool mixed = false;
    EXPECT_TRUE(until([&] {
        const auto color = canvas.at(next, NSMakePoint(30, 30));
        EXPECT_NEAR(color.red + color.blue, 255, 3);
        EXPECT_LE(color.green, 1);
        mixed |= color.red > 20 && color.blue > 20;
        return done == 1;
    }));
    EXPECT_TRUE(mixed);
    EXPECT_EQ(canvas.at(next, NSMakePoint(30, 30)), test::blue);
    [view release];
}

TEST_F(Animation, AnimatesTheConstantOfAConstraint) {
    NSLayoutConstraint *height = [NSLayoutConstraint constraintWithItem:view
                                                              attribute:NSLayoutAttributeHeight
                                                              relatedBy:NSLayoutRelationEqual
                                                                 toItem:nil
                                                              attribute:NSLayoutAttributeNotAnAttribute
                                                             multiplier:1
                                                               constant:60];
    run(
        brief,
        ^{
            [[height animator] setConstant:110];
        },
        &done);
    EXPECT_EQ([height constant], 60);
    EXPECT_TRUE(until([&] { return done == 1; }));
    EXPECT_EQ([height constant], 110);
    EXPECT_TRUE(NSEqualRects([view frame], NSMakeRect(10, -40, 60, 110))) << "the upper edge stays";
}

TEST_F(Animation, SendsEverythingElseToTheViewAtOnce) {
    EXPECT_EQ([[view animator] superview], canvas.background);
    [[view animator] setToolTip:@"hello"];
    EXPECT_TRUE([[view toolTip] isEqualToString:@"hello"]);
}

TEST_F(Animation, RunsWhileAModalWindowIsUp) {
    NSWindow *modal = [[[NSWindow alloc] initWithContentRect:NSMakeRect(300, 300, 100, 60)
                                                   styleMask:NSTitledWindowMask
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO] autorelease];
    [modal setReleasedWhenClosed:NO];
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:brief];
            [[view animator] setAlphaValue:0.5];
        }
        completionHandler:^{
            EXPECT_TRUE([[[NSRunLoop currentRunLoop] currentMode] isEqualToString:NSModalPanelRunLoopMode]);
            [NSApp stopModal];
            // The session looks whether it was stopped when an event arrives.
            [NSApp postEvent:[NSEvent otherEventWithType:NSApplicationDefined
                                                location:NSZeroPoint
                                           modifierFlags:0
                                               timestamp:0
                                            windowNumber:[modal windowNumber]
                                                 context:nil
                                                 subtype:0
                                                   data1:0
                                                   data2:0]
                     atStart:NO];
        }];
    [NSApp runModalForWindow:modal];
    [modal close];
    EXPECT_EQ([view alphaValue], 0.5);
}

TEST_F(Animation, RunsWhileTheMouseIsTracked) {
    run(
        brief,
        ^{
            [[view animator] setAlphaValue:0.5];
        },
        &done);
    NSDate *end = [NSDate dateWithTimeIntervalSinceNow:10];
    while (done == 0 && [end timeIntervalSinceNow] > 0) {
        [NSApp nextEventMatchingMask:NSLeftMouseUpMask
                           untilDate:[NSDate dateWithTimeIntervalSinceNow:0.05]
                              inMode:NSEventTrackingRunLoopMode
                             dequeue:YES];
    }
    EXPECT_EQ(done, 1);
    EXPECT_EQ([view alphaValue], 0.5);
}

TEST(TimingFunction, EasesInAndOut) {
    const auto curve = [[CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionEaseInEaseOut] curve];
    EXPECT_EQ(curve.at(0), 0);
    EXPECT_NEAR(curve.at(0.25), 0.1292, 0.001);
    EXPECT_NEAR(curve.at(0.5), 0.5, 0.0001);
    EXPECT_NEAR(curve.at(0.75), 0.8708, 0.001);
    EXPECT_EQ(curve.at(1), 1);
    EXPECT_NEAR([[CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionLinear] curve].at(0.3), 0.3, 0.0001);
}

} // namespace
