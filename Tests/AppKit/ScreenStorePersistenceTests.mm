#import "Displays.h"
#import "Platform.h"
#import "ScreenStore.h"
#import "StringBridging.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using appkitglue::ScreenCombination;
using appkitglue::ScreenHandling;
using appkitglue::ScreenStore;

namespace {

NSString *const key = @"SCREEN_CONFIGURATIONS2";

constexpr const char *name = "DUMMY0 Main 1440×900";

NSUserDefaults *defaults() {
    return [NSUserDefaults standardUserDefaults];
}

ScreenHandling stored() {
    return ScreenHandling::decode(appkitglue::bytesOf([defaults() dataForKey:key])).value_or(ScreenHandling{});
}

ScreenHandling manyCombinations(std::size_t count) {
    ScreenHandling handling;
    for (std::size_t i = 0; i < count; ++i) {
        const auto size = static_cast<std::int64_t>(i);
        handling.combinations.push_back({{"Display " + std::to_string(i), true, size, 900},
                                         {"Projector", false, 1920, 1080},
                                         static_cast<double>(i) + 0.25});
    }
    return handling;
}

void storeWithName(ScreenStore &store, const std::string &displayName) {
    store.currentDisplayConfiguration().names = {.slideshow = displayName, .presenter = displayName};
    store.storeScreenSelection();
}

class ScreenStorePersistence : public testing::Test {
protected:
    void SetUp() override {
        platform::prepareAppKit();
        test::nameDisplay("DUMMY0", "");
        [defaults() removeObjectForKey:key];
    }
    void TearDown() override {
        [defaults() removeObjectForKey:key];
        [defaults() synchronize];
    }
};

TEST_F(ScreenStorePersistence, TakesUnreadableDataForAnEmptyListAndOverwritesIt) {
    for (const std::string json :
         {"", "{", "[]", "null", R"({"combinations":[)", R"({"combinations":{}})", R"({"combinations":[{}]})",
          R"({"combinations":[{"presenter":{"name":"A","isMain":1,"width":1,"height":1}}]})", "\xff\xfe", "\0\0"}) {
        [defaults() setObject:appkitglue::toNSData(json) forKey:key];
        ScreenStore store;
        EXPECT_TRUE(store.screenHandler().combinations.empty()) << json;
        storeWithName(store, name);
        EXPECT_EQ(stored().combinations.size(), 1U) << json;
    }
}

TEST_F(ScreenStorePersistence, TakesEveryTruncationForAnEmptyList) {
    const std::string whole = manyCombinations(2).encode().value();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        [defaults() setObject:appkitglue::toNSData(whole.substr(0, size)) forKey:key];
        ScreenStore store;
        ASSERT_TRUE(store.screenHandler().combinations.empty()) << size;
    }
}

TEST_F(ScreenStorePersistence, TakesValuesOfOtherTypesForAnEmptyList) {
    for (id value in @[ @"{\"combinations\":[]}", [NSNumber numberWithInt:7], @[ @"a" ], @{@"combinations" : @[]} ]) {
        [defaults() setObject:value forKey:key];
        ScreenStore store;
        EXPECT_TRUE(store.screenHandler().combinations.empty());
        storeWithName(store, name);
        EXPECT_EQ(stored().combinations.size(), 1U);
    }
}

TEST_F(ScreenStorePersistence, KeepsTenThousandEntriesInOrder) {
    const ScreenHandling many = manyCombinations(10'000);
    [defaults() setObject:appkitglue::toNSData(many.encode().value()) forKey:key];
    ScreenStore store;
    EXPECT_EQ(store.screenHandler(), many);
    storeWithName(store, name);
    ScreenHandling now = stored();
    ASSERT_EQ(now.combinations.size(), 10'001U);
    now.combinations.pop_back();
    EXPECT_EQ(now, many);
}

TEST_F(ScreenStorePersistence, WorksOnWithDefaultsThatCannotBeWritten) {
    [defaults() synchronize];
    const std::filesystem::path folder = [GSDefaultsRootForUser(NSUserName()) UTF8String];
    const std::filesystem::path away = folder.string() + ".away";
    std::filesystem::rename(folder, away);
    std::ofstream(folder) << "no folder";
    ScreenStore store;
    storeWithName(store, name);
    std::filesystem::remove(folder);
    std::filesystem::rename(away, folder);
    EXPECT_EQ(store.screenHandler().combinations.size(), 1U);
    EXPECT_TRUE(store.currentDisplayConfiguration().screens.has_value());
    storeWithName(store, name);
    EXPECT_EQ(stored().combinations.size(), 1U);
}

// Stores pair after pair and says so after each, until it is ended.
TEST_F(ScreenStorePersistence, DISABLED_ChildThatStoresUntilItIsKilled) {
    ScreenHandling many = manyCombinations(2'000);
    [defaults() setObject:appkitglue::toNSData(many.encode().value()) forKey:key];
    [defaults() synchronize];
    ScreenStore store;
    for (int i = 0;; ++i) {
        test::nameDisplay("DUMMY0", "D" + std::to_string(i));
        storeWithName(store, store.availableScreenNames().at(0));
        std::printf("stored %d\n", i);
        std::fflush(stdout);
    }
}

/// Starts the child, ends it without warning some time after its third store; returns how many stores it reported.
int storesBeforeKill(std::chrono::milliseconds later) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return -1;
    }
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execl(program.c_str(), program.c_str(), "--gtest_also_run_disabled_tests",
              "--gtest_filter=ScreenStorePersistence.DISABLED_ChildThatStoresUntilItIsKilled", nullptr);
        _exit(127);
    }
    close(ends[1]);
    std::FILE *output = fdopen(ends[0], "r");
    std::array<char, 256> line{};
    int last = -1;
    int lines = 0;
    bool killed = false;
    while (std::fgets(line.data(), line.size(), output) != nullptr) {
        if (std::sscanf(line.data(), "stored %d", &last) == 1 && ++lines >= 3 && !killed) {
            std::this_thread::sleep_for(later);
            kill(child, SIGKILL);
            killed = true;
        }
    }
    std::fclose(output);
    // The dead process's lock would be broken after five seconds.
    std::filesystem::remove_all(std::string([GSDefaultsRootForUser(NSUserName()) UTF8String]) + "/.lck");
    waitpid(child, nullptr, 0);
    return last + 1;
}

TEST_F(ScreenStorePersistence, LosesAtMostTheStoreDuringWhichTheProcessIsKilled) {
    const auto seed = std::random_device{}();
    std::printf("seed %u\n", seed);
    std::minstd_rand random(seed);
    for (int round = 0; round < 12; ++round) {
        const int reported = storesBeforeKill(std::chrono::milliseconds(std::uniform_int_distribution(0, 30)(random)));
        ASSERT_GE(reported, 3);
        const std::string file = std::string([GSDefaultsRootForUser(NSUserName()) UTF8String]) + "/" +
                                 [[[NSProcessInfo processInfo] processName] UTF8String] + ".plist";
        NSDictionary *read = [NSDictionary dictionaryWithContentsOfFile:appkitglue::toNSString(file)];
        const auto handling = ScreenHandling::decode(appkitglue::bytesOf([read objectForKey:key]));
        ASSERT_TRUE(handling) << "after " << reported << " stores";
        const std::size_t earlier = 2'000;
        ASSERT_GE(handling->combinations.size(), earlier + static_cast<std::size_t>(reported));
        EXPECT_EQ(handling->combinations[earlier - 1].presenter.name, "Display 1999");
        for (int i = 0; i < reported; ++i) {
            EXPECT_EQ(handling->combinations[earlier + static_cast<std::size_t>(i)].presenter.name,
                      "D" + std::to_string(i));
        }
    }
}

} // namespace
