// test: displays=2
// test: alone
// test: timing
//
// Prints how long presenting takes to show and to settle. The bounds are those beyond which a speaker would notice that
// something is wrong, not the usual figures.
#import "PresentationWindows.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int rounds = 5;
constexpr double noticeable = 5;

double now() {
    return [NSDate timeIntervalSinceReferenceDate];
}

void print(const char *what, std::vector<double> seconds) {
    std::ranges::sort(seconds);
    std::printf("%s: median %.0f ms, worst %.0f ms of %zu\n", what, seconds[seconds.size() / 2] * 1000,
                seconds.back() * 1000, seconds.size());
}

class PresentationTiming : public test::PresentationWindows {};

TEST_F(PresentationTiming, FromBeginToPixelsOnBothDisplays) {
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        const double start = now();
        ASSERT_EQ([controller_ beginFullscreenSetupWithExternalSlides:slides_], nil);
        ASSERT_TRUE(shows(documentColour, 0));
        ASSERT_TRUE(shows(slidesColour, 1));
        seconds.push_back(now() - start);
        [controller_ endFullscreenSetup];
        test::runUntilQuiet(document_);
    }
    print("begin to pixels on both displays", seconds);
    EXPECT_LT(seconds.back(), noticeable);
}

TEST_F(PresentationTiming, FromUnplugToASettledWindow) {
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        ASSERT_EQ([controller_ beginFullscreenSetupWithExternalSlides:slides_], nil);
        ASSERT_TRUE(shows(slidesColour, 1));
        NSWindow *slides = [[slides_ contentView] window];
        test::arrangeWithoutWaiting(test::usualDisplays(1));
        // From here on the display is off: switching it off is not the application's time.
        const double start = now();
        ASSERT_TRUE(test::runUntil([&] {
            return [[NSScreen screens] count] == 1 && test::covers(slides, [screen(0) frame]) &&
                   NSEqualRects([slides frame], [screen(0) frame]);
        }));
        seconds.push_back(now() - start);
        [controller_ endFullscreenSetup];
        ASSERT_TRUE(test::arrange(test::usualDisplays(2)));
    }
    print("unplug to a settled window", seconds);
    EXPECT_LT(seconds.back(), noticeable);
}

} // namespace
