// test: displays=2
#import "PresentationWindows.h"

#include <gmock/gmock.h>

using namespace appkitglue;
using testing::ElementsAre;

namespace {

constexpr const char *firstName = "DUMMY0 Main 1440×900";
constexpr const char *secondName = "DUMMY1  1920×1080";

/// What the host is told about the displays.
class ScreenConfiguration : public test::PresentationWindows {
protected:
    [[nodiscard]] std::vector<std::string> answered(NSString *key) const {
        id value = [[controller_ multipleWindowConfiguration] objectForKey:key];
        std::vector<std::string> result;
        for (NSString *text in [value isKindOfClass:[NSArray class]] ? value : @[ value ]) {
            result.push_back(toUTF8(text));
        }
        return result;
    }

    static ScreenNames &names() { return provider().currentDisplayConfiguration().names; }
};

TEST_F(ScreenConfiguration, PutsThePresenterOnTheMainScreenAndTheSlidesOnTheOtherByDefault) {
    EXPECT_THAT(answered(@"screens"), ElementsAre(firstName, secondName));
    EXPECT_THAT(answered(@"presenter"), ElementsAre(firstName));
    EXPECT_THAT(answered(@"slideshow"), ElementsAre(secondName));
    EXPECT_EQ(names(), (ScreenNames{secondName, firstName}));
    EXPECT_EQ([[controller_ multipleWindowConfiguration] count], 3U);
}

TEST_F(ScreenConfiguration, FollowsTheMainScreenByDefault) {
    [document_ setFrame:NSMakeRect(1600, 300, 600, 400) display:YES];
    ASSERT_TRUE(test::runUntil([] { return [[NSScreen mainScreen] isEqual:screen(1)]; }));
    EXPECT_THAT(answered(@"presenter"), ElementsAre("DUMMY1 Main 1920×1080"));
    EXPECT_THAT(answered(@"slideshow"), ElementsAre("DUMMY0  1440×900"));
}

TEST_F(ScreenConfiguration, ReplacesAPresenterThatWasChosenAlone) {
    names() = {.slideshow = "", .presenter = secondName};
    EXPECT_THAT(answered(@"presenter"), ElementsAre(firstName));
    EXPECT_THAT(answered(@"slideshow"), ElementsAre(secondName));
}

TEST_F(ScreenConfiguration, LeavesAChosenPairAloneEvenWhenItsDisplaysAreGone) {
    names() = {.slideshow = "Gone  1×1", .presenter = "Away  2×2"};
    EXPECT_THAT(answered(@"presenter"), ElementsAre("Away  2×2"));
    EXPECT_THAT(answered(@"slideshow"), ElementsAre("Gone  1×1"));
}

TEST_F(ScreenConfiguration, UsesAndRemembersAPairThatTheHostChooses) {
    [controller_ choosePresenterScreen:@"DUMMY1  1920×1080" slideshowScreen:@"DUMMY0 Main 1440×900"];
    EXPECT_EQ(names(), (ScreenNames{firstName, secondName}));
    EXPECT_TRUE([provider().presenterScreen() isEqual:screen(1)]);
    EXPECT_TRUE([provider().slideshowScreen() isEqual:screen(0)]);
    ASSERT_FALSE(provider().screenHandler().combinations.empty());
    EXPECT_EQ(provider().screenHandler().combinations.back().presenter.name, "DUMMY1");
}

TEST_F(ScreenConfiguration, IgnoresAChosenNameThatNoDisplayHas) {
    const auto before = names();
    const auto remembered = provider().screenHandler().combinations.size();
    [controller_ choosePresenterScreen:@"Gone  1×1" slideshowScreen:@"DUMMY0 Main 1440×900"];
    EXPECT_EQ(names(), before);
    EXPECT_EQ(provider().screenHandler().combinations.size(), remembered);
}

TEST_F(ScreenConfiguration, ChoosesNothingOnOneScreen) {
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_THAT(answered(@"screens"), ElementsAre(firstName));
    EXPECT_THAT(answered(@"presenter"), ElementsAre(""));
    EXPECT_THAT(answered(@"slideshow"), ElementsAre(""));
}

TEST_F(ScreenConfiguration, ByDefaultDropsAnEarlierStoredChoice) {
    store(secondName, firstName);
    ASSERT_TRUE(provider().currentDisplayConfiguration().screens);
    names() = {};
    EXPECT_EQ(answered(@"screens").size(), 2U);
    EXPECT_FALSE(provider().currentDisplayConfiguration().screens);
    EXPECT_EQ(names(), (ScreenNames{secondName, firstName}));
}

TEST_F(ScreenConfiguration, BoundsAreTheSlideshowScreensFrame) {
    EXPECT_TRUE(NSEqualRects([[controller_ slideshowWindowBounds] rectValue], NSMakeRect(1440, 0, 1920, 1080)));
    store(secondName, firstName);
    EXPECT_TRUE(NSEqualRects([[controller_ slideshowWindowBounds] rectValue], NSMakeRect(0, 180, 1440, 900)));
}

TEST_F(ScreenConfiguration, HasNoBoundsWithoutSlideshowScreen) {
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_EQ([controller_ slideshowWindowBounds], nil);
}

} // namespace
