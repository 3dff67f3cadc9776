#include "ToolbarItems.h"

#include "ToolbarAction.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

using namespace appkitglue;
using testing::ElementsAre;

TEST(ToolbarItems, StandInTheOrderOfTheirKinds) {
    std::vector<std::string_view> identifiers;
    for (const ToolbarItemDescription& item : toolbarItems()) {
        identifiers.push_back(item.identifier);
    }
    EXPECT_THAT(identifiers, ElementsAre("addSlide", "media", "insert", "inspector", "report", "document", "arrange",
                                         "play", "search", "themes", "tabOverview"));
}

TEST(ToolbarItems, AreFoundByTheirExactIdentifier) {
    EXPECT_EQ(toolbarItem("play")->label, "Play");
    EXPECT_EQ(toolbarItem("Play"), nullptr);
    EXPECT_EQ(toolbarItem("play "), nullptr);
    EXPECT_EQ(toolbarItem(""), nullptr);
}

TEST(ToolbarItems, DescribeTheFeedbackItemInFull) {
    const ToolbarItemDescription& report = *toolbarItem("report");
    EXPECT_EQ(report.label, "Found Bug?");
    EXPECT_EQ(report.symbol, "exclamationmark.bubble");
    EXPECT_EQ(report.toolTip, "Submit Beta Testing Feedback");
    EXPECT_EQ(report.tag, 15);
}

TEST(ToolbarItems, CarryTagsThatAreActions) {
    for (const ToolbarItemDescription& item : toolbarItems()) {
        EXPECT_TRUE(item.tag == 0 || ToolbarAction::fromRawValue(item.tag)) << item.identifier;
    }
}

TEST(ToolbarItems, AreOfferedInTwoListsThatDiffer) {
    EXPECT_THAT(defaultToolbarItems(),
                ElementsAre(toolbarFlexibleSpace, "themes", "document", "search", "report", "tabOverview"));
    EXPECT_THAT(allowedToolbarItems(),
                ElementsAre("addSlide", "media", "insert", toolbarSpace, "inspector", "report", toolbarSpace, "arrange",
                            "play", toolbarSpace, "themes", "document", "search"));
}

TEST(PopoverRect, CountsFromTheTopAndScalesX) {
    const ToolbarRect rect = popoverRect({77, 100, 60, 30}, 800);
    EXPECT_EQ(rect.x, 100.0);
    EXPECT_EQ(rect.y, 700.0);
    EXPECT_EQ(rect.width, 4.0);
    EXPECT_EQ(rect.height, 30.0);
}

RC_GTEST_PROP(PopoverRectProperties, KeepsTheHeightAndNothingElseOfTheButton, ()) {
    const auto number = rc::gen::map(rc::gen::inRange(-100000, 100000), [](int n) { return n / 8.0; });
    const ToolbarRect button{*number, *number, *number, *number};
    const double windowHeight = *number;
    const ToolbarRect rect = popoverRect(button, windowHeight);
    RC_ASSERT(rect.x == button.x * 1.2987012987012987);
    RC_ASSERT(rect.y + button.y == windowHeight);
    RC_ASSERT(rect.width == 4.0);
    RC_ASSERT(rect.height == button.height);
}
