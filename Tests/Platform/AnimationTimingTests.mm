// How long animations take and how evenly they move, in real time.
// test: alone
// test: timing
#import "DrawnViews.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

double now() {
    return [NSDate timeIntervalSinceReferenceDate];
}

TEST(AnimationTiming, TakesTheTimeOfTheGroup) {
    test::Canvas canvas;
    NSView *view = test::addView(canvas.background, NSMakeRect(10, 10, 200, 200), test::red);
    double ended = 0;
    double *end = &ended;
    const double start = now();
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:0.5];
            [[view animator] setFrameOrigin:NSMakePoint(200, 100)];
            [[view animator] setAlphaValue:0.5];
        }
        completionHandler:^{
            *end = now();
        }];
    std::vector<double> changes;
    double alpha = [view alphaValue];
    EXPECT_TRUE(test::runUntil([&] {
        if ([view alphaValue] != alpha) {
            alpha = [view alphaValue];
            changes.push_back(now());
        }
        return ended > 0;
    }));
    EXPECT_NEAR(ended - start, 0.5, 0.02);
    EXPECT_GE(changes.size(), 24U) << "30 frames in half a second";
    double worst = 0;
    for (std::size_t i = 1; i < changes.size(); ++i) {
        worst = std::max(worst, changes[i] - changes[i - 1]);
    }
    EXPECT_LT(worst, 0.05);
}

/// Runs `count` groups, each started when the one before it completes.
void runChain(NSView *view, int count, int *done) {
    if (*done == count) {
        return;
    }
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:0.1];
            [[view animator] setAlphaValue:*done % 2 == 0 ? 0.2 : 0.9];
        }
        completionHandler:^{
            ++*done;
            runChain(view, count, done);
        }];
}

TEST(AnimationTiming, LosesNoTimeAlongAChainOfGroups) {
    test::Canvas canvas;
    NSView *view = test::addView(canvas.background, NSMakeRect(10, 10, 200, 200), test::red);
    int done = 0;
    const double start = now();
    runChain(view, 5, &done);
    EXPECT_TRUE(test::runUntil([&] { return done == 5; }));
    EXPECT_NEAR(now() - start, 0.5, 0.04);
}

} // namespace
