#include "Screen.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

using namespace appkitglue;

const Screen x{"X", true, 1440, 900};
const Screen y{"Y", false, 1920, 1080};
const Screen z{"Z", false, 800, 600};

ScreenNames names(const Screen& presenter, const Screen& slideshow) {
    return {.slideshow = slideshow.displayName(), .presenter = presenter.displayName()};
}

TEST(ScreenNaming, MainDisplaysSaySo) {
    EXPECT_EQ(x.displayName(), "X Main 1440×900");
}

TEST(ScreenNaming, OtherDisplaysHaveTwoBlanks) {
    EXPECT_EQ((Screen{"Projector", false, 1920, 1080}.displayName()), "Projector  1920×1080");
    EXPECT_EQ(displayNames(std::vector{x, y}), (std::vector<std::string>{"X Main 1440×900", "Y  1920×1080"}));
}

TEST(ScreenSizes, AreCutOff) {
    EXPECT_EQ(Screen::make("A", false, 1440.9, -0.5), (Screen{"A", false, 1440, 0}));
    EXPECT_EQ(Screen::make("A", true, -0x1p63, 0).width, std::numeric_limits<std::int64_t>::min());
}

TEST(ScreenSizesDeathTest, StopTheProcessWhenTheyDoNotFit) {
    const auto expected = testing::ContainsRegex(
        "^AppKitGlue/PreferencesManager:[0-9]+: Fatal error: The size of a display does not fit 64 bits\n$");
    for (const double length : {std::nan(""), double(INFINITY), 0x1p63, -0x1.8p63})
        EXPECT_EXIT(Screen::make("A", false, 1, length), testing::KilledBySignal(SIGABRT), expected) << length;
}

TEST(ScreenJSON, HasOneMember) {
    const ScreenHandling handling{{{x, y, 0.5}}};
    const auto* text = R"({"combinations":[{"presenter":{"name":"X","isMain":true,"width":1440,"height":900},)"
                       R"("slideshow":{"name":"Y","isMain":false,"width":1920,"height":1080},"lastUse":0.5}]})";
    EXPECT_EQ(handling.encode(), text);
    EXPECT_EQ(ScreenHandling::decode(text), handling);
    EXPECT_EQ(ScreenHandling{}.encode(), R"({"combinations":[]})");
}

TEST(ScreenJSON, NeedsEveryMember) {
    EXPECT_EQ(ScreenHandling::decode(R"({"combinations":[{"presenter":{"name":"X","isMain":true,"width":1.5}}]})")
                  .error()
                  .description(),
              "combinations[0].presenter.width: expected a 64-bit integer, found the number 1.5");
    EXPECT_EQ(ScreenHandling::decode("{}").error().description(), "combinations: expected an array, found nothing");
}

TEST(ScreenJSON, UnreadableChoicesCountAsNone) {
    for (const char* text : {"", "{", "{\"combinations\":[{}]}", "[]"})
        EXPECT_EQ(ScreenHandling::decodeOrEmpty(text), ScreenHandling{});
    EXPECT_EQ(ScreenHandling::decodeOrEmpty(R"({"combinations":[],"more":1})"), ScreenHandling{});
}

TEST(ScreenRestoring, FindsNothingOnTheFirstRun) {
    EXPECT_FALSE(ScreenHandling{}.restoredNames(std::vector{x, y}));
}

TEST(ScreenRestoring, FindsAPairInEitherOrderOfTheDisplays) {
    const ScreenHandling handling{{{x, y, 1}}};
    EXPECT_EQ(handling.restoredNames(std::vector{x, y}), names(x, y));
    EXPECT_EQ(handling.restoredNames(std::vector{y, x}), names(x, y));
}

TEST(ScreenRestoring, PrefersThePairInTheOrderOfTheDisplays) {
    const ScreenHandling handling{{{y, x, 1}, {x, y, 2}}};
    EXPECT_EQ(handling.restoredNames(std::vector{x, y}), names(x, y));
    EXPECT_EQ(handling.restoredNames(std::vector{y, x}), names(y, x));
}

TEST(ScreenRestoring, ConsidersTheFirstTwoDisplaysOnly) {
    const ScreenHandling handling{{{x, z, 1}, {y, z, 1}}};
    EXPECT_FALSE(handling.restoredNames(std::vector{x, y, z}));
    EXPECT_EQ(handling.restoredNames(std::vector{x, z, y}), names(x, z));
    EXPECT_FALSE(handling.restoredNames(std::vector{x}));
}

TEST(ScreenRestoring, DoesNotKnowADisplayOfAnotherSize) {
    auto larger = y;
    larger.width = 2560;
    EXPECT_FALSE((ScreenHandling{{{x, y, 1}}}).restoredNames(std::vector{x, larger}));
}

TEST(ScreenRemembering, AppendsANewPair) {
    ScreenHandling handling;
    const auto pair = handling.remember(names(x, y), std::vector{x, y}, 5);
    EXPECT_EQ(pair, (ScreenPair{x, y}));
    EXPECT_EQ(handling, (ScreenHandling{{{x, y, 5}}}));
}

TEST(ScreenRemembering, KeepsOneEntryForAPairAndItsPlace) {
    ScreenHandling handling{{{x, y, 1}, {y, z, 2}}};
    handling.remember(names(x, y), std::vector{x, y, z}, 9);
    EXPECT_EQ(handling, (ScreenHandling{{{x, y, 9}, {y, z, 2}}}));
    handling.remember(names(y, x), std::vector{x, y, z}, 10);
    EXPECT_EQ(handling, (ScreenHandling{{{x, y, 9}, {y, z, 2}, {y, x, 10}}}));
}

TEST(ScreenRemembering, IgnoresNamesOfNoDisplay) {
    ScreenHandling handling;
    EXPECT_FALSE(handling.remember(names(x, z), std::vector{x, y}, 1));
    EXPECT_FALSE(handling.remember(names(z, x), std::vector{x, y}, 1));
    EXPECT_FALSE(handling.remember(ScreenNames{}, std::vector{x, y}, 1));
    EXPECT_FALSE(handling.remember(names(x, y), {}, 1));
    EXPECT_EQ(handling, ScreenHandling{});
}

TEST(ScreenRemembering, AllowsTheSameDisplayTwice) {
    ScreenHandling handling;
    EXPECT_EQ(handling.remember(names(x, x), std::vector{x, y}, 1), (ScreenPair{x, x}));
}

TEST(ScreenFinding, TakesTheFirstOfEqualNames) {
    EXPECT_EQ(indexOfScreenNamed("X", std::vector{y, x, Screen{"X", false, 1, 1}}), 1U);
    EXPECT_FALSE(indexOfScreenNamed("X Main 1440×900", std::vector{x}));
}

rc::Gen<Screen> screens() {
    return rc::gen::build<Screen>(
        rc::gen::set(&Screen::name, rc::gen::container<std::string>(rc::gen::inRange<char>(1, 127))),
        rc::gen::set(&Screen::isMain), rc::gen::set(&Screen::width), rc::gen::set(&Screen::height));
}

RC_GTEST_PROP(ScreenProperties, ChoicesReadBackEqual, (std::vector<int> times)) {
    ScreenHandling handling;
    for (const int time : times)
        handling.combinations.push_back({*screens(), *screens(), time / 8.0});
    const auto text = handling.encode();
    RC_ASSERT(text.has_value());
    RC_ASSERT((ScreenHandling::decode(*text) == handling));
}

RC_GTEST_PROP(ScreenProperties, WhatIsRememberedIsRestored, ()) {
    const std::vector connected{*screens(), *screens()};
    RC_PRE(connected[0].displayName() != connected[1].displayName());
    ScreenHandling handling;
    const ScreenNames chosen = names(connected[1], connected[0]);
    RC_ASSERT(handling.remember(chosen, connected, 1).has_value());
    RC_ASSERT((ScreenHandling::decodeOrEmpty(*handling.encode()).restoredNames(connected) == chosen));
}

} // namespace
