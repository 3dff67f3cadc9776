// test: alone
// test: timing
#import "PresentationWindows.h"

#include <cstdio>
#include <vector>

namespace {

class CursorCadence : public test::PresentationWindows {};

TEST_F(CursorCadence, HidesAboutEveryTwoSecondsDuringTenSecondsOfMovement) {
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    ASSERT_EQ([controller_ beginFullscreenSetupWithExternalSlides:nil], nil);
    ASSERT_TRUE(shows(documentColour, 0));
    ASSERT_TRUE(test::runUntil([] { return !test::cursorShows(); }));
    const double start = [NSDate timeIntervalSinceReferenceDate];
    std::vector<double> hides;
    bool wasShown = false;
    int x = 200;
    double nextMove = 0;
    for (double now = 0; now < 10; now = [NSDate timeIntervalSinceReferenceDate] - start) {
        const bool shown = test::cursorShows();
        if (wasShown && !shown) {
            hides.push_back(now);
        }
        wasShown = shown;
        if (now >= nextMove) {
            test::movePointer(++x, 400);
            // Slow enough for the hidden cursor to be seen hidden between two moves.
            nextMove = now + 0.1;
        }
        test::spin(0.01);
    }
    std::printf("hidden after");
    for (const double hide : hides) {
        std::printf(" %.2f", hide);
    }
    std::printf(" s\n");
    ASSERT_GE(hides.size(), 4U);
    ASSERT_LE(hides.size(), 5U);
    for (std::size_t i = 0; i < hides.size(); ++i) {
        EXPECT_NEAR(hides[i] - (i == 0 ? 0 : hides[i - 1]), 2.1, 0.35) << i;
    }
    [controller_ endFullscreenSetup];
    EXPECT_TRUE(test::runUntil([] { return test::cursorShows(); }));
}

} // namespace
