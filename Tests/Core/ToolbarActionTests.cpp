#include "ToolbarAction.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using appkitglue::ToolbarAction;

TEST(ToolbarActionCodes, OnlyOneToTwentyTwoAreActions) {
    for (std::int64_t code = 1; code <= 22; code++)
        EXPECT_EQ(ToolbarAction::fromRawValue(code)->rawValue(), code);
    for (const std::int64_t code : {std::int64_t(0), std::int64_t(23), std::int64_t(-1),
                                    std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
        EXPECT_FALSE(ToolbarAction::fromRawValue(code));
}

TEST(ToolbarActionCodes, AreTheAgreedOnes) {
    using enum ToolbarAction::Case;
    const std::vector<std::int64_t> codes{
        addSlide, media,    headlineLevel1, headlineLevel2, headlineLevel3, quote,     numberedList, bulletedList,
        code,     footnote, table,          website,        comment,        inspector, report,       document,
        arrange,  play,     hostDefined19,  hostDefined20,  insert,         themes};
    for (std::size_t i = 0; i < codes.size(); i++)
        EXPECT_EQ(codes[i], std::int64_t(i + 1));
    EXPECT_EQ(codes.size(), 22U);
}

TEST(ToolbarActionCodes, NamesTheCallbackSelectors) {
    EXPECT_STREQ(ToolbarAction::selectorForAction, "toolbarActionForAction:");
    EXPECT_STREQ(ToolbarAction::selectorForSearch, "toolbarActionForSearch:");
    EXPECT_STREQ(ToolbarAction::selectorForPopover, "toolbarActionForPopover:CGRect:");
}

} // namespace
