#include "ColorContrast.h"

#include <gtest/gtest.h>

namespace {

using namespace appkitglue;

constexpr RGB black{0, 0, 0};
constexpr RGB white{1, 1, 1};
constexpr RGB blue{0x2f / 255.0, 0x6f / 255.0, 0xde / 255.0};
constexpr RGB darkGrey{0x2b / 255.0, 0x2c / 255.0, 0x2f / 255.0};

TEST(ColorContrast, GoesFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(contrastRatio(black, white), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(white, black), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(blue, blue), 1);
    EXPECT_NEAR(contrastRatio({0x76 / 255.0, 0x76 / 255.0, 0x76 / 255.0}, white), 4.54, 0.01);
}

TEST(ColorContrast, ColoursThatStandOutStayAsTheyAre) {
    EXPECT_EQ(inkNeeded(blue, black, white), 0);
    EXPECT_EQ(inkNeeded(black, black, white), 0);
}

TEST(ColorContrast, ColoursThatHardlyStandOutGetJustEnoughInk) {
    const double share = inkNeeded(blue, white, darkGrey);
    EXPECT_GT(share, 0);
    EXPECT_LT(share, 0.5);
    EXPECT_EQ(inkNeeded(white, white, white), 1);
}

} // namespace
