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

} // namespace
