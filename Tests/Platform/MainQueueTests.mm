#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

TEST(MainQueue, RunsWorkOnALaterTurnInTheOrderOfTheCalls) {
    std::vector<int> ran;
    platform::async([&] { ran.push_back(1); });
    platform::async([&] { ran.push_back(2); });
    EXPECT_TRUE(ran.empty());
    EXPECT_TRUE(test::runUntil([&] { return ran.size() == 2; }));
    EXPECT_EQ(ran, (std::vector{1, 2}));
}

TEST(MainQueue, RunsWorkOfOtherThreadsOnTheMainThread) {
    bool onMainThread = false;
    bool done = false;
    std::thread([&] {
        platform::async([&] {
            onMainThread = [NSThread isMainThread];
            done = true;
        });
    }).join();
    EXPECT_TRUE(test::runUntil([&] { return done; }));
    EXPECT_TRUE(onMainThread);
}

TEST(MainQueue, RunsDelayedWorkInTheOrderOfItsTimesNotTooEarly) {
    std::vector<int> ran;
    const double start = [NSDate timeIntervalSinceReferenceDate];
    double firstAt = 0;
    platform::asyncAfter(0.2, [&] { ran.push_back(3); });
    platform::asyncAfter(0.1, [&] {
        firstAt = [NSDate timeIntervalSinceReferenceDate];
        ran.push_back(1);
    });
    platform::asyncAfter(0.1, [&] { ran.push_back(2); });
    EXPECT_TRUE(test::runUntil([&] { return ran.size() == 3; }));
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
    EXPECT_GE(firstAt - start, 0.099);
}

TEST(MainQueue, RunsDelayedWorkOfOtherThreadsAndOfWorkItself) {
    int count = 0;
    std::thread([&] {
        platform::asyncAfter(0.01, [&] {
            ++count;
            platform::asyncAfter(0, [&] { ++count; });
        });
    }).join();
    EXPECT_TRUE(test::runUntil([&] { return count == 2; }));
}

TEST(MainQueue, RunsDelayedWorkWhileAMenuIsTrackedOrAModalPanelIsUp) {
    for (NSString *mode in @[ NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode ]) {
        bool ran = false;
        platform::asyncAfter(0.02, [&] { ran = true; });
        NSDate *end = [NSDate dateWithTimeIntervalSinceNow:10];
        while (!ran && [end timeIntervalSinceNow] > 0) {
            [[NSRunLoop currentRunLoop] runMode:mode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
        }
        EXPECT_TRUE(ran);
    }
}

} // namespace
