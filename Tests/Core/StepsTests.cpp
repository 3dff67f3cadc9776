#include "Steps.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using appkitglue::Steps;

TEST(TutorialSteps, HaveRawValuesZeroToFive) {
    for (std::int64_t raw = 0; raw <= 5; raw++)
        EXPECT_EQ(Steps::fromRawValue(raw)->rawValue(), raw);
    for (const std::int64_t raw : {std::int64_t(-1), std::int64_t(6), std::numeric_limits<std::int64_t>::max()})
        EXPECT_FALSE(Steps::fromRawValue(raw));
}

TEST(TutorialSteps, LeadOn) {
    EXPECT_EQ(Steps(Steps::begin).next(), Steps::tm1);
    EXPECT_EQ(Steps(Steps::animateDrawing).next(), Steps::tm1);
    EXPECT_EQ(Steps(Steps::tm1).next(), Steps::tm2);
    EXPECT_EQ(Steps(Steps::tm2).next(), Steps::tm3);
    EXPECT_EQ(Steps(Steps::tm3).next(), Steps::tm4);
    EXPECT_EQ(Steps(Steps::tm4).next(), Steps::tm4);
}

TEST(TutorialSteps, AdvanceByOneUpToTheLast) {
    EXPECT_EQ(Steps(Steps::begin).advanced(), Steps::animateDrawing);
    EXPECT_EQ(Steps(Steps::animateDrawing).advanced(), Steps::tm1);
    EXPECT_EQ(Steps(Steps::tm3).advanced(), Steps::tm4);
    EXPECT_EQ(Steps(Steps::tm4).advanced(), Steps::tm4);
}

TEST(TutorialSteps, PagerTagsLeadToPages) {
    EXPECT_EQ(Steps::forPagerTag(1), Steps::tm1);
    EXPECT_EQ(Steps::forPagerTag(4), Steps::tm4);
    for (const std::int64_t tag : {std::int64_t(0), std::int64_t(-1), std::int64_t(5),
                                   std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
        EXPECT_FALSE(Steps::forPagerTag(tag)) << tag;
}

TEST(TutorialSteps, OnlyPagesHaveAContentBox) {
    EXPECT_FALSE(Steps(Steps::begin).pageIndex());
    EXPECT_FALSE(Steps(Steps::animateDrawing).pageIndex());
    EXPECT_EQ(Steps(Steps::tm1).pageIndex(), 0U);
    EXPECT_EQ(Steps(Steps::tm4).pageIndex(), 3U);
}

TEST(TutorialSteps, DescribeThePages) {
    EXPECT_EQ(Steps(Steps::begin).description(), "");
    EXPECT_EQ(Steps(Steps::animateDrawing).description(), "");
    EXPECT_EQ(Steps(Steps::tm1).description(), "Quorvel is Split Into a Markdown Editor and a Slide Preview");
    EXPECT_EQ(Steps(Steps::tm2).description(), "Modify the Current Slide or Element with Action Buttons");
    EXPECT_EQ(Steps(Steps::tm3).description(),
              "Document Overrides Allow Setting Headers, Footers or Custom Animations");
    EXPECT_EQ(Steps(Steps::tm4).description(), "Quickly Reorder Slides in the Reorder Mode");
}

TEST(TutorialSteps, ReportTheirName) {
    const std::vector<std::string> names{"begin", "animateDrawing", "tm1", "tm2", "tm3", "tm4"};
    for (std::size_t raw = 0; raw < names.size(); raw++) {
        EXPECT_EQ(Steps::fromRawValue(std::int64_t(raw))->closePayload(false), names[raw]);
        EXPECT_EQ(Steps::fromRawValue(std::int64_t(raw))->closePayload(true), names[raw] + "-sample");
    }
    EXPECT_EQ(Steps::closeMetric, "macOStutorialScreenClose");
}

} // namespace
