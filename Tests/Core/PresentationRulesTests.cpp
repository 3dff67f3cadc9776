#include "PresentationRules.h"

#include <gtest/gtest.h>

#include <vector>

using namespace appkitglue;

namespace {

TEST(PresentationRules, RefuseBothDisplaysMissingAsEqualOnes) {
    EXPECT_EQ(problemWithScreens(false, false, false),
              "Invalid configuration. Presenter screen is equal to Slideshow screen");
}

TEST(PresentationRules, NameTheOtherDisplayWhenOneIsMissing) {
    EXPECT_EQ(problemWithScreens(false, true, false), "Missing Slideshow Screen. Invalid Configuration.");
    EXPECT_EQ(problemWithScreens(true, false, false), "Invalid configuration. Missing external slides screen");
}

TEST(PresentationRules, RefuseOneDisplayForBoth) {
    EXPECT_EQ(problemWithScreens(true, true, true),
              "Invalid configuration. Presenter screen is equal to Slideshow screen");
    EXPECT_EQ(problemWithScreens(true, true, false), std::nullopt);
}

TEST(PresentationRules, TakeTheMainDisplayAndTheFirstOtherOneByDefault) {
    const std::vector<std::string> screens{"A", "B Main", "C"};
    EXPECT_EQ(defaultScreenNames(screens, "B Main"), (ScreenNames{.slideshow = "A", .presenter = "B Main"}));
    EXPECT_EQ(defaultScreenNames(screens, "A"), (ScreenNames{.slideshow = "B Main", .presenter = "A"}));
    EXPECT_EQ(defaultScreenNames(screens, "Unlisted"), (ScreenNames{.slideshow = "A", .presenter = "Unlisted"}));
}

TEST(PresentationRules, TakeNothingWhenAllDisplaysHaveTheMainOnesName) {
    const std::vector<std::string> screens{"A", "A"};
    EXPECT_EQ(defaultScreenNames(screens, "A"), std::nullopt);
    EXPECT_EQ(defaultScreenNames({}, "A"), std::nullopt);
}

} // namespace
