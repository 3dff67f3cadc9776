// test: displays=2
#import "Input.h"
#import "PreferencesManager.h"
#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <gmock/gmock.h>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char *firstScreen = "DUMMY0 Main 1440×900";
constexpr const char *secondScreen = "DUMMY1  1920×1080";
NSString *const defaultsKey = @"SCREEN_CONFIGURATIONS2";

class SlideshowTab : public test::PreferencesWindowFixture {
protected:
    SlideshowTab() { [[NSUserDefaults standardUserDefaults] removeObjectForKey:defaultsKey]; }

    void openTab(bool presenterActive) {
        auto settings = SlideshowTab::settings();
        settings.presenterActive = presenterActive;
        open(settings);
        names() = {};
        press("Slideshow");
    }

    static ScreenNames &names() { return RoutingSettingsProvider::shared()->currentDisplayConfiguration().names; }
    static bool isApplied() { return [[NSUserDefaults standardUserDefaults] dataForKey:defaultsKey] != nil; }
    static bool showsError() { return ![[slideshow() errorMessageField] isHidden]; }
    static bool isExpanded() {
        return ![[slideshow() presenterBox] isHidden] && [[slideshow() heightConstraint] constant] == 235;
    }
    static bool isCollapsed() {
        return [[slideshow() presenterBox] isHidden] && [[slideshow() heightConstraint] constant] == 134;
    }
    static CGFloat tabHeight() { return NSHeight([[slideshow() view] frame]); }
};

TEST_F(SlideshowTab, ShowsTheHostsSwitches) {
    auto settings = SlideshowTab::settings();
    settings.presenterActive = true;
    settings.presenterExitLastSlide = false;
    settings.presenterMuteVideos = true;
    open(settings);
    EXPECT_EQ([slideshow() expandedHeight], 0);
    EXPECT_EQ([slideshow() unexpandedHeight], 0);
    press("Slideshow");
    EXPECT_EQ([slideshow() expandedHeight], 235);
    EXPECT_EQ([slideshow() unexpandedHeight], 134);
    EXPECT_EQ([[slideshow() presenterModeToggle] state], NSOnState);
    EXPECT_EQ([[slideshow() lastSlideExitButton] state], NSOffState);
    EXPECT_EQ([[slideshow() muteVideosButton] state], NSOnState);
    EXPECT_THAT(host.get()->changes, IsEmpty());
}

TEST_F(SlideshowTab, AppearsInTheFormThatTheToggleAsksFor) {
    openTab(true);
    EXPECT_EQ([[slideshow() heightConstraint] constant], 235);
    EXPECT_TRUE(test::runUntil(isExpanded));
    EXPECT_EQ(tabHeight(), 235);
    openTab(false);
    EXPECT_EQ([[slideshow() heightConstraint] constant], 134);
    EXPECT_TRUE(test::runUntil(isCollapsed));
    EXPECT_EQ(tabHeight(), 134);
}

TEST_F(SlideshowTab, ExpandsAndCollapsesWithAnimation) {
    openTab(true);
    ASSERT_TRUE(test::runUntil(isExpanded));
    [[slideshow() presenterModeToggle] performClick:nil];
    EXPECT_GT([[slideshow() heightConstraint] constant], 134);
    EXPECT_FALSE([[slideshow() presenterBox] isHidden]);
    EXPECT_TRUE(test::runUntil([] { return isCollapsed() && tabHeight() == 134; }));
    [[slideshow() presenterModeToggle] performClick:nil];
    EXPECT_LT([[slideshow() heightConstraint] constant], 235);
    EXPECT_TRUE(test::runUntil([] { return isExpanded() && tabHeight() == 235; }));
    EXPECT_THAT(host.get()->changes,
                ElementsAre(changed("presenterActive", [](auto &s) { s.presenterActive = false; }),
                            changed("presenterActive", [](auto &s) { s.presenterActive = true; })));
}

TEST_F(SlideshowTab, TurnsPresenterModeOffByItsCaption) {
    openTab(true);
    ASSERT_TRUE(test::runUntil(isExpanded));
    // A click in a window without the keys only gives it the keys.
    ASSERT_TRUE(test::giveKeyboard(window()));
    NSTextField *label = [slideshow() presenterModeLabel];
    const NSPoint middle = [label convertPoint:NSMakePoint(NSMidX([label bounds]), NSMidY([label bounds])) toView:nil];
    for (const NSEventType type : {NSLeftMouseDown, NSLeftMouseUp}) {
        [NSApp sendEvent:[NSEvent mouseEventWithType:type
                                            location:middle
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:[window() windowNumber]
                                             context:nil
                                         eventNumber:0
                                          clickCount:1
                                            pressure:1]];
    }
    EXPECT_EQ([[slideshow() presenterModeToggle] state], NSOffState);
    EXPECT_THAT(host.get()->changes,
                ElementsAre(changed("presenterActive", [](auto &s) { s.presenterActive = false; })));
    EXPECT_FALSE([[slideshow() presenterBox] isHidden]);
    EXPECT_TRUE(test::runUntil(isCollapsed));
    [slideshow() didUpdatePresenterModeViaLabel:label];
    EXPECT_EQ([[slideshow() presenterModeToggle] state], NSOnState);
}

TEST_F(SlideshowTab, SendsItsSwitches) {
    openTab(false);
    [[slideshow() lastSlideExitButton] performClick:nil];
    [[slideshow() muteVideosButton] performClick:nil];
    const bool exits = !settings().presenterExitLastSlide;
    const bool mutes = !settings().presenterMuteVideos;
    auto first = changed("presenterExitLastSlide", [&](auto &s) {
        s.presenterActive = false;
        s.presenterExitLastSlide = exits;
    });
    auto second = first;
    second.affectedKey = "presenterMuteVideos";
    second.presenterMuteVideos = mutes;
    EXPECT_THAT(host.get()->changes, ElementsAre(first, second));
}

TEST_F(SlideshowTab, WritesTheMixedStateAsFalse) {
    auto settings = SlideshowTab::settings();
    settings.presenterExitLastSlide = settings.presenterMuteVideos = settings.presenterActive = true;
    open(settings);
    press("Slideshow");
    for (NSButton *button :
         {[slideshow() presenterModeToggle], [slideshow() lastSlideExitButton], [slideshow() muteVideosButton]}) {
        [button setAllowsMixedState:YES];
        [button setState:NSMixedState];
    }
    [slideshow() didUpdatePresenterMode:nil];
    [slideshow() didUpdateExitLastSlide:nil];
    [slideshow() didUpdateMuteVideos:nil];
    ASSERT_EQ(host.get()->changes.size(), 3U);
    EXPECT_FALSE(host.get()->changes[2].presenterActive);
    EXPECT_FALSE(host.get()->changes[2].presenterExitLastSlide);
    EXPECT_FALSE(host.get()->changes[2].presenterMuteVideos);
}

TEST_F(SlideshowTab, ListsTheScreensAndSelectsTheChosenOnes) {
    open();
    names() = {.slideshow = secondScreen, .presenter = firstScreen};
    press("Slideshow");
    EXPECT_THAT(test::titlesOf([slideshow() slideshowButton]), ElementsAre(firstScreen, secondScreen));
    EXPECT_THAT(test::titlesOf([slideshow() presenterButton]), ElementsAre(firstScreen, secondScreen));
    EXPECT_EQ(test::selectedTitleOf([slideshow() slideshowButton]), secondScreen);
    EXPECT_EQ(test::selectedTitleOf([slideshow() presenterButton]), firstScreen);
    EXPECT_TRUE([[slideshow() presenterButton] isEnabled]);
    EXPECT_TRUE([[slideshow() presenterApplyButton] isEnabled]);
}

TEST_F(SlideshowTab, KeepsTheFirstItemForAScreenThatIsNotConnected) {
    open();
    names() = {.slideshow = "Projector 1024×768", .presenter = ""};
    press("Slideshow");
    EXPECT_EQ(test::selectedTitleOf([slideshow() slideshowButton]), firstScreen);
    EXPECT_EQ(test::selectedTitleOf([slideshow() presenterButton]), firstScreen);
    EXPECT_EQ(names().slideshow, "Projector 1024×768");
}

TEST_F(SlideshowTab, KeepsChosenScreensWithoutApplyingThem) {
    openTab(true);
    test::choose([slideshow() slideshowButton], secondScreen);
    test::choose([slideshow() presenterButton], firstScreen);
    EXPECT_EQ(names().slideshow, secondScreen);
    EXPECT_EQ(names().presenter, firstScreen);
    EXPECT_THAT(host.get()->changes, IsEmpty());
    EXPECT_FALSE(isApplied());
    press("General");
    press("Slideshow");
    EXPECT_EQ(test::selectedTitleOf([slideshow() slideshowButton]), secondScreen);
}

TEST_F(SlideshowTab, AppliesTwoDistinctScreens) {
    openTab(true);
    test::choose([slideshow() slideshowButton], secondScreen);
    [[slideshow() presenterApplyButton] performClick:nil];
    EXPECT_FALSE(showsError());
    EXPECT_TRUE(isApplied());
    EXPECT_EQ(names().presenter, firstScreen);
    const auto &screens = RoutingSettingsProvider::shared()->currentDisplayConfiguration().screens;
    ASSERT_TRUE(screens);
    EXPECT_EQ(screens->slideshow, [[NSScreen screens] objectAtIndex:1]);
}

TEST_F(SlideshowTab, RefusesTheSameScreenTwice) {
    openTab(true);
    test::choose([slideshow() slideshowButton], secondScreen);
    test::choose([slideshow() presenterButton], secondScreen);
    [[slideshow() presenterApplyButton] performClick:nil];
    EXPECT_TRUE(showsError());
    EXPECT_EQ(toUTF8([[slideshow() errorMessageField] stringValue]), "Distinct screens are needed for presenter mode");
    EXPECT_FALSE(isApplied());
    test::choose([slideshow() presenterButton], firstScreen);
    EXPECT_TRUE(showsError());
    [[slideshow() presenterApplyButton] performClick:nil];
    EXPECT_FALSE(showsError());
    EXPECT_TRUE(isApplied());
}

TEST_F(SlideshowTab, AppliesNothingWithPresenterModeOff) {
    openTab(false);
    [[slideshow() errorMessageField] setHidden:NO];
    test::choose([slideshow() slideshowButton], secondScreen);
    names() = {};
    [slideshow() applyScreenChanges:nil];
    EXPECT_EQ(names().slideshow, secondScreen);
    EXPECT_EQ(names().presenter, firstScreen);
    EXPECT_FALSE(showsError());
    EXPECT_FALSE(isApplied());
}

} // namespace
