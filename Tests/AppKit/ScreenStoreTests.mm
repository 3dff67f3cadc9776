// test: displays=2
#import "Displays.h"
#import "Platform.h"
#import "ScreenStore.h"
#import "StringBridging.h"
#import "TestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <limits>

using appkitglue::ScreenHandling;
using appkitglue::ScreenNames;
using appkitglue::ScreenStore;
using testing::ElementsAre;

namespace {

NSString *const key = @"SCREEN_CONFIGURATIONS2";

constexpr const char *firstName = "DUMMY0 Main 1440×900";
constexpr const char *secondName = "DUMMY1  1920×1080";

NSUserDefaults *defaults() {
    return [NSUserDefaults standardUserDefaults];
}

ScreenHandling stored() {
    return ScreenHandling::decode(appkitglue::bytesOf([defaults() dataForKey:key])).value_or(ScreenHandling{});
}

void storePair(ScreenStore &store, const std::string &presenter, const std::string &slideshow) {
    store.currentDisplayConfiguration().names = {.slideshow = slideshow, .presenter = presenter};
    store.storeScreenSelection();
}

NSScreen *screen(NSUInteger index) {
    return [[NSScreen screens] objectAtIndex:index];
}

class ScreenStoreOnDisplays : public testing::Test {
protected:
    void SetUp() override {
        platform::prepareAppKit();
        test::nameDisplay("DUMMY0", "");
        test::nameDisplay("DUMMY1", "");
        [defaults() removeObjectForKey:key];
        ASSERT_TRUE(test::arrange(test::usualDisplays(2)));
    }
    void TearDown() override { [window_ close]; }

    /// The main screen is the one of the key window.
    void putKeyWindowOnFirstScreen() {
        window_ = [[[NSWindow alloc] initWithContentRect:NSMakeRect(100, 400, 200, 100)
                                               styleMask:NSTitledWindowMask
                                                 backing:NSBackingStoreBuffered
                                                   defer:NO] autorelease];
        [window_ setReleasedWhenClosed:NO];
        [window_ makeKeyAndOrderFront:nil];
        test::runUntilQuiet(window_);
        ASSERT_TRUE([window_ isKeyWindow]);
    }

    ScreenStore store_;
    NSWindow *window_ = nil;
};

TEST_F(ScreenStoreOnDisplays, ListsDisplayNamesInThePlatformsOrder) {
    EXPECT_THAT(store_.availableScreenNames(), ElementsAre(firstName, secondName));
}

TEST_F(ScreenStoreOnDisplays, FindsNothingOnTheFirstRun) {
    store_.restoreScreenNames();
    EXPECT_EQ(store_.currentDisplayConfiguration().names, ScreenNames{});
    EXPECT_FALSE(store_.currentDisplayConfiguration().screens);
    EXPECT_EQ(store_.presenterScreen(), screen(0));
    EXPECT_EQ(store_.slideshowScreen(), screen(1));
}

TEST_F(ScreenStoreOnDisplays, HasNoSlideshowScreenOnOneDisplay) {
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_EQ(store_.presenterScreen(), screen(0));
    EXPECT_EQ(store_.slideshowScreen(), nil);
}

TEST_F(ScreenStoreOnDisplays, ResolvesAndPersistsThePairItStores) {
    storePair(store_, secondName, firstName);
    EXPECT_EQ(store_.presenterScreen(), screen(1));
    EXPECT_EQ(store_.slideshowScreen(), screen(0));
    ASSERT_TRUE(store_.currentDisplayConfiguration().screens);
    EXPECT_EQ(store_.currentDisplayConfiguration().names, (ScreenNames{firstName, secondName}));
    const std::string json(appkitglue::bytesOf([defaults() dataForKey:key]));
    const std::string start = R"({"combinations":[{"presenter":{"name":"DUMMY1","isMain":false,"width":1920,)"
                              R"("height":1080},"slideshow":{"name":"DUMMY0","isMain":true,"width":1440,)"
                              R"("height":900},"lastUse":)";
    EXPECT_EQ(json.substr(0, start.size()), start);
    EXPECT_NEAR(stored().combinations.at(0).lastUse, [NSDate timeIntervalSinceReferenceDate], 60);
}

TEST_F(ScreenStoreOnDisplays, RestoresAPairInEitherOrderOfTheDisplays) {
    putKeyWindowOnFirstScreen();
    storePair(store_, secondName, firstName);
    for (const bool firstIsPrimary : {true, false}) {
        ASSERT_TRUE(test::arrange(
            {{"DUMMY0", 1440, 900, 0, 0, firstIsPrimary}, {"DUMMY1", 1920, 1080, 1440, 0, !firstIsPrimary}}));
        ASSERT_TRUE(test::runUntil(
            [&] { return (NSWidth([screen(0) frame]) == 1440) == firstIsPrimary && [window_ isKeyWindow]; }));
        ScreenStore later;
        later.restoreScreenNames();
        EXPECT_EQ(later.currentDisplayConfiguration().names, (ScreenNames{firstName, secondName})) << firstIsPrimary;
        EXPECT_FALSE(later.currentDisplayConfiguration().screens);
    }
    EXPECT_EQ(stored().combinations.size(), 1U);
}

TEST_F(ScreenStoreOnDisplays, KeepsOneEntryPerPairAndOneMoreForTheReversedPair) {
    storePair(store_, firstName, secondName);
    const double firstUse = stored().combinations.at(0).lastUse;
    test::spin(0.02);
    storePair(store_, firstName, secondName);
    ASSERT_EQ(stored().combinations.size(), 1U);
    EXPECT_GT(stored().combinations[0].lastUse, firstUse);
    storePair(store_, secondName, firstName);
    ASSERT_EQ(stored().combinations.size(), 2U);
    EXPECT_EQ(stored().combinations[1].presenter.name, "DUMMY1");
}

TEST_F(ScreenStoreOnDisplays, ConsidersOnlyTheFirstTwoOfThreeDisplaysWhenRestoring) {
    ASSERT_TRUE(test::arrange(test::usualDisplays(3)));
    storePair(store_, firstName, "DUMMY2  1280×720");
    ScreenStore later;
    later.restoreScreenNames();
    EXPECT_EQ(later.currentDisplayConfiguration().names, ScreenNames{});
    storePair(store_, firstName, secondName);
    ScreenStore evenLater;
    evenLater.restoreScreenNames();
    EXPECT_EQ(evenLater.currentDisplayConfiguration().names, (ScreenNames{secondName, firstName}));
}

TEST_F(ScreenStoreOnDisplays, ForgetsAPairWhenAResolutionChanges) {
    storePair(store_, firstName, secondName);
    ASSERT_TRUE(test::arrange({{"DUMMY0", 1440, 900, 0, 0, true}, {"DUMMY1", 1280, 720, 1440, 0, false}}));
    ScreenStore later;
    later.restoreScreenNames();
    EXPECT_EQ(later.currentDisplayConfiguration().names, ScreenNames{});
}

TEST_F(ScreenStoreOnDisplays, IgnoresNamesThatMatchNoDisplay) {
    storePair(store_, firstName, "Nobody  1×1");
    storePair(store_, "DUMMY1 1920×1080", firstName);
    storePair(store_, "", "");
    EXPECT_EQ([defaults() objectForKey:key], nil);
    EXPECT_TRUE(store_.screenHandler().combinations.empty());
    EXPECT_FALSE(store_.currentDisplayConfiguration().screens);
}

TEST_F(ScreenStoreOnDisplays, AcceptsOneDisplayForBoth) {
    storePair(store_, firstName, firstName);
    EXPECT_EQ(store_.presenterScreen(), screen(0));
    EXPECT_EQ(store_.slideshowScreen(), screen(0));
}

TEST_F(ScreenStoreOnDisplays, ReadsTheDefaultsOnlyOnce) {
    storePair(store_, firstName, secondName);
    ScreenStore other;
    EXPECT_EQ(other.availableScreenNames().size(), 2U);
    [defaults() removeObjectForKey:key];
    EXPECT_EQ(other.screenHandler().combinations.size(), 1U);
}

TEST_F(ScreenStoreOnDisplays, TakesTheFirstOfTwoDisplaysWithTheSameName) {
    test::nameDisplay("DUMMY0", "Twin");
    test::nameDisplay("DUMMY1", "Twin");
    storePair(store_, "Twin Main 1440×900", "Twin  1920×1080");
    EXPECT_EQ(stored().combinations.at(0).slideshow.width, 1920);
    EXPECT_EQ(store_.presenterScreen(), screen(0));
    EXPECT_EQ(store_.slideshowScreen(), screen(0));
}

TEST_F(ScreenStoreOnDisplays, TellsMirroredDisplaysApartByName) {
    ASSERT_TRUE(test::arrange({{"DUMMY0", 1440, 900, 0, 0, true}, {"DUMMY1", 1440, 900, 0, 0, false}}));
    storePair(store_, "DUMMY1  1440×900", "DUMMY0 Main 1440×900");
    EXPECT_EQ(store_.presenterScreen(), screen(1));
    EXPECT_EQ(store_.slideshowScreen(), screen(0));
    EXPECT_TRUE(NSEqualRects([screen(0) frame], [screen(1) frame]));
}

TEST_F(ScreenStoreOnDisplays, KeepsQuotesEmojiAndSignsInNames) {
    test::nameDisplay("DUMMY0", "\"Q\\\" 📽");
    test::nameDisplay("DUMMY1", "A × B");
    const auto names = store_.availableScreenNames();
    ASSERT_THAT(names, ElementsAre("\"Q\\\" 📽 Main 1440×900", "A × B  1920×1080"));
    storePair(store_, names[0], names[1]);
    ScreenStore later;
    later.restoreScreenNames();
    EXPECT_EQ(later.currentDisplayConfiguration().names, (ScreenNames{names[1], names[0]}));
}

TEST_F(ScreenStoreOnDisplays, ShowsADisplayWithoutNameByItsSize) {
    // No X output is without a name.
    Method method = class_getInstanceMethod([NSScreen class], @selector(localizedName));
    IMP original = method_setImplementation(method, reinterpret_cast<IMP>(+[](id, SEL) -> NSString * { return @""; }));
    const auto names = store_.availableScreenNames();
    storePair(store_, names.at(0), names.at(1));
    const auto &configuration = store_.currentDisplayConfiguration();
    method_setImplementation(method, original);
    EXPECT_THAT(names, ElementsAre(" Main 1440×900", "  1920×1080"));
    EXPECT_EQ(configuration.names, (ScreenNames{"  1920×1080", " Main 1440×900"}));
}

TEST_F(ScreenStoreOnDisplays, FindsAChosenDisplayAgainAfterItWasUnplugged) {
    storePair(store_, secondName, firstName);
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_EQ(store_.presenterScreen(), screen(0));
    EXPECT_EQ(store_.slideshowScreen(), nil);
    ASSERT_TRUE(test::arrange({{"DUMMY0", 1440, 900, 1920, 0, true}, {"DUMMY1", 1920, 1080, 0, 0, false}}));
    EXPECT_EQ(store_.presenterScreen(), screen(1));
    EXPECT_EQ(store_.slideshowScreen(), screen(0));
}

TEST_F(ScreenStoreOnDisplays, ADisplayOfEndlessSizeEndsTheProcess) {
    EXPECT_DEATH(
        {
            Method method = class_getInstanceMethod([NSScreen class], @selector(frame));
            method_setImplementation(method, reinterpret_cast<IMP>(+[](id, SEL) {
                                         return NSMakeRect(0, 0, std::numeric_limits<double>::infinity(), 1);
                                     }));
            [[maybe_unused]] const auto names = store_.availableScreenNames();
        },
        "^AppKitGlue/PreferencesManager:[0-9]+: Fatal error: ");
}

} // namespace
