// The main queue in the loops that AppKit runs by itself, and when work goes wrong.
#import "HardwareModel.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

NSWindow *panel() {
    NSWindow *window = [[[NSPanel alloc] initWithContentRect:NSMakeRect(200, 200, 200, 100)
                                                   styleMask:NSTitledWindowMask
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO] autorelease];
    [window setReleasedWhenClosed:NO];
    return window;
}

NSEvent *emptyEvent() {
    return [NSEvent otherEventWithType:NSApplicationDefined
                              location:NSZeroPoint
                         modifierFlags:0
                             timestamp:0
                          windowNumber:0
                               context:nil
                               subtype:0
                                 data1:0
                                 data2:0];
}

// A modal loop looks whether it was stopped when it has handled an event.
void stopModalLoop() {
    [NSApp stopModal];
    [NSApp postEvent:emptyEvent() atStart:NO];
}

TEST(MainQueueModes, RunsWhileAModalPanelIsUp) {
    @autoreleasepool {
        NSWindow *window = panel();
        NSString *mode = nil;
        std::thread([&] {
            platform::async([&] { mode = [[NSRunLoop currentRunLoop] currentMode]; });
            platform::asyncAfter(0.05, stopModalLoop);
        }).join();
        [NSApp runModalForWindow:window];
        [window close];
        EXPECT_TRUE([mode isEqualToString:NSModalPanelRunLoopMode]);
    }
}

TEST(MainQueueModes, RunsWhileAMenuIsTracked) {
    @autoreleasepool {
        while ([NSApp nextEventMatchingMask:NSApplicationDefinedMask
                                  untilDate:[NSDate distantPast]
                                     inMode:NSDefaultRunLoopMode
                                    dequeue:YES] != nil) {
        }
        bool ran = false;
        platform::async([&] { ran = true; });
        platform::asyncAfter(0.05, [&] { [NSApp postEvent:emptyEvent() atStart:NO]; });
        NSEvent *seen = [NSApp nextEventMatchingMask:NSApplicationDefinedMask
                                           untilDate:[NSDate dateWithTimeIntervalSinceNow:10]
                                              inMode:NSEventTrackingRunLoopMode
                                             dequeue:YES];
        EXPECT_TRUE(ran);
        EXPECT_NE(seen, nil) << "delayed work runs too";
    }
}

TEST(MainQueueModes, WorkThatStartsALoopOfItsOwnDoesNotHoldUpTheRest) {
    @autoreleasepool {
        NSWindow *window = panel();
        std::vector<int> ran;
        platform::async([&] {
            [NSApp runModalForWindow:window];
            ran.push_back(2);
        });
        platform::async([&] {
            ran.push_back(1);
            stopModalLoop();
        });
        EXPECT_TRUE(test::runUntil([&] { return ran.size() == 2; }));
        EXPECT_EQ(ran, (std::vector{1, 2}));
        [window close];
    }
}

TEST(MainQueueModes, AnExceptionInOnePieceDoesNotLoseTheOthers) {
    @autoreleasepool {
        std::vector<int> ran;
        platform::async([&] { ran.push_back(1); });
        platform::async([&] { [NSException raise:NSGenericException format:@"this work goes wrong"]; });
        platform::async([&] { ran.push_back(2); });
        platform::async([&] { ran.push_back(3); });
        for (int i = 0; i < 3 && ran.size() < 3; i++) {
            @try {
                test::runUntil([&] { return ran.size() == 3; }, 3);
            } @catch (NSException *) {
                continue;
            }
        }
        EXPECT_EQ(ran, (std::vector{1, 2, 3}));
    }
}

TEST(MainQueueModes, WorkThatAlwaysAsksForMoreLetsTimersAndEventsThrough) {
    @autoreleasepool {
        bool stop = false;
        std::function<void()> again = [&] {
            if (!stop) {
                platform::async(again);
            }
        };
        platform::async(again);
        platform::asyncAfter(0.02, [] { [NSApp postEvent:emptyEvent() atStart:NO]; });
        NSEvent *seen = [NSApp nextEventMatchingMask:NSApplicationDefinedMask
                                           untilDate:[NSDate dateWithTimeIntervalSinceNow:10]
                                              inMode:NSDefaultRunLoopMode
                                             dequeue:YES];
        EXPECT_NE(seen, nil);
        stop = true;
        bool last = false;
        platform::async([&] { last = true; });
        EXPECT_TRUE(test::runUntil([&] { return last; }));
    }
}

TEST(MainQueueModes, KeepsTheOrderOfEachOfManyThreads) {
    constexpr int threads = 4;
    constexpr int each = 200;
    std::vector<std::vector<int>> seen(threads);
    int count = 0;
    std::vector<std::thread> running;
    for (int t = 0; t < threads; t++) {
        running.emplace_back([&, t] {
            for (int i = 0; i < each; i++) {
                platform::async([&, t, i] {
                    seen[static_cast<std::size_t>(t)].push_back(i);
                    count++;
                });
            }
        });
    }
    for (std::thread &thread : running) {
        thread.join();
    }
    EXPECT_TRUE(test::runUntil([&] { return count == threads * each; }));
    for (const auto &order : seen) {
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    }
}

TEST(MainQueueModes, DelayedWorkKeepsItsOrderInTime) {
    std::vector<int> ran;
    platform::asyncAfter(0.1, [&] { ran.push_back(2); });
    std::thread([&] { platform::asyncAfter(0.01, [&] { ran.push_back(1); }); }).join();
    EXPECT_TRUE(test::runUntil([&] { return ran.size() == 2; }));
    EXPECT_EQ(ran, (std::vector{1, 2}));
}

TEST(HardwareModel, IsTheFirstLineOfTheFirstFileThatTells) {
    const std::string folder = [NSTemporaryDirectory() UTF8String];
    const auto write = [&](const std::string &name, const std::string &text) {
        std::ofstream(folder + "/" + name, std::ios::binary) << text;
        return folder + "/" + name;
    };
    const std::string empty = write("empty", "\n");
    const std::string dmi = write("dmi", "Standard PC (Q35)\n");
    const std::string tree = write("tree", std::string("Board Model 4\0", 14));
    const std::string broken = write("broken", "\xff\xfe\n");
    using platform::firstModelName;
    EXPECT_EQ(firstModelName({folder + "/missing", empty, dmi, tree}), "Standard PC (Q35)");
    EXPECT_EQ(firstModelName({tree}), "Board Model 4");
    EXPECT_EQ(firstModelName({broken, dmi}), std::nullopt) << "a name that is not UTF-8 is none";
    EXPECT_EQ(firstModelName({folder + "/missing"}), std::nullopt);
}

} // namespace
