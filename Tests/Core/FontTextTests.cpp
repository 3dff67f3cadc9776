#include "FontText.h"

#include <gtest/gtest.h>

namespace {

TEST(FontText, SizesAlwaysHaveAFraction) {
    EXPECT_EQ(appkitglue::fontSizeText(14), "14.0");
    EXPECT_EQ(appkitglue::fontSizeText(13.5), "13.5");
    EXPECT_EQ(appkitglue::fontSizeText(0), "0.0");
    EXPECT_EQ(appkitglue::fontSizeText(12.1), "12.1");
    EXPECT_EQ(appkitglue::fontSizeText(1000000), "1000000.0");
    EXPECT_EQ(appkitglue::fontSizeText(0.1 + 0.2), "0.30000000000000004");
}

TEST(FontText, NamesTheFontAndItsSize) {
    EXPECT_EQ(appkitglue::fontText("Menlo Regular", 14), "Menlo Regular, 14.0");
}

} // namespace
