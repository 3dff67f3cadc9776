#import "Input.h"
#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <gmock/gmock.h>

#include <array>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class GeneralTab : public test::PreferencesWindowFixture {
protected:
    // The widths of the previews' images; 0 for none.
    static std::vector<int> previews() {
        std::vector<int> widths;
        for (NSImageView *view : {[general() preview1],
                                  [general() preview2],
                                  [general() preview3],
                                  [general() preview4],
                                  [general() preview5]}) {
            widths.push_back(static_cast<int>([[view image] size].width));
        }
        return widths;
    }

    static std::vector<std::string> pictures(int first, int count) {
        std::vector<std::string> paths;
        for (int width = first; width < first + count; ++width) {
            paths.push_back(test::writePicture("general-" + std::to_string(width) + ".png", width, 5));
        }
        return paths;
    }
};

TEST_F(GeneralTab, ShowsTheHostsListsAndValues) {
    open();
    EXPECT_THAT(test::titlesOf([general() theme]), ElementsAre("Paper", "Ink", "Plain"));
    EXPECT_EQ(test::selectedTitleOf([general() theme]), "Paper");
    EXPECT_THAT(test::titlesOf([general() appearance]), ElementsAre("light", "dark", "auto"));
    EXPECT_EQ(test::selectedTitleOf([general() appearance]), "auto");
    EXPECT_THAT(test::titlesOf([general() slideSizesButton]), ElementsAre("4:3", "16:9"));
    EXPECT_EQ(test::selectedTitleOf([general() slideSizesButton]), "4:3");
    EXPECT_EQ([[general() samplePresentationButton] state], NSOffState);
}

TEST_F(GeneralTab, SendsTheWholeRecordForEachChange) {
    open();
    [[general() samplePresentationButton] performClick:nil];
    auto expected = changed("generalSamplePresentation", [](auto &s) { s.generalSamplePresentation = true; });
    EXPECT_THAT(host.get()->changes, ElementsAre(expected));
    test::choose([general() theme], "Ink");
    expected.affectedKey = "generalTheme";
    expected.generalTheme = "Ink";
    EXPECT_EQ(host.get()->changes.back(), expected);
    test::choose([general() appearance], "dark");
    expected.affectedKey = "generalAppearance";
    expected.generalAppearance = "dark";
    EXPECT_EQ(host.get()->changes.back(), expected);
    test::choose([general() slideSizesButton], "16:9");
    expected.affectedKey = "generalSlideSize";
    expected.generalSlideSize = "16:9";
    EXPECT_EQ(host.get()->changes.back(), expected);
    EXPECT_EQ(host.get()->changes.size(), 4U);
    EXPECT_EQ(host.get()->lastMessage, expected.encode().value());
}

TEST_F(GeneralTab, TakesTheSpaceKey) {
    open();
    ASSERT_TRUE(test::giveKeyboard(window()));
    [window() makeFirstResponder:[general() samplePresentationButton]];
    test::pressKey("space");
    EXPECT_TRUE(test::runUntil([&] { return !host.get()->changes.empty(); }));
    EXPECT_THAT(host.get()->changes,
                ElementsAre(changed("generalSamplePresentation", [](auto &s) { s.generalSamplePresentation = true; })));
}

TEST_F(GeneralTab, ChoosesAThemeWithTheKeyboard) {
    open();
    ASSERT_TRUE(test::giveKeyboard(window()));
    [window() makeFirstResponder:[general() theme]];
    test::pressKeys({"space", "Down", "Return"});
    EXPECT_TRUE(test::runUntil([&] { return !host.get()->changes.empty(); }));
    EXPECT_THAT(host.get()->changes, ElementsAre(changed("generalTheme", [](auto &s) { s.generalTheme = "Ink"; })));
}

TEST_F(GeneralTab, WritesTheMixedStateAsFalse) {
    auto settings = GeneralTab::settings();
    settings.generalSamplePresentation = true;
    open(settings);
    [[general() samplePresentationButton] setAllowsMixedState:YES];
    [[general() samplePresentationButton] setState:NSMixedState];
    [general() didUpdateSampleValue:nil];
    EXPECT_FALSE(host.get()->changes.at(0).generalSamplePresentation);
}

TEST_F(GeneralTab, FillsItsPopUpsAlsoWithoutAKnownValue) {
    auto settings = GeneralTab::settings();
    settings.generalTheme = "paper";
    open(settings);
    EXPECT_THAT(test::titlesOf([general() theme]), ElementsAre("Paper", "Ink", "Plain"));
    EXPECT_THAT(host.get()->changes, IsEmpty());
}

TEST_F(GeneralTab, WritesNothingWithoutASelectedItem) {
    auto settings = GeneralTab::settings();
    settings.allGeneralThemes.clear();
    settings.allAppearances.clear();
    settings.allGeneralSizes.clear();
    open(settings);
    EXPECT_THAT(test::titlesOf([general() theme]), IsEmpty());
    [general() didUpdateDefaultTheme:nil];
    [general() didUpdateAppAppearance:nil];
    [general() didUpdateSlideSize:nil];
    EXPECT_THAT(host.get()->changes, IsEmpty());
}

TEST_F(GeneralTab, ShowsTheFirstFiveOfSevenPreviews) {
    auto settings = GeneralTab::settings();
    settings.allPreviewPaths["Paper"] = pictures(11, 7);
    open(settings);
    EXPECT_THAT(previews(), ElementsAre(11, 12, 13, 14, 15));
}

TEST_F(GeneralTab, KeepsPreviewsBeyondTheLastPath) {
    auto settings = GeneralTab::settings();
    settings.allPreviewPaths["Paper"] = pictures(11, 5);
    settings.allPreviewPaths["Ink"] = pictures(21, 2);
    settings.allPreviewPaths["Plain"] = {};
    open(settings);
    test::choose([general() theme], "Ink");
    EXPECT_THAT(previews(), ElementsAre(21, 22, 13, 14, 15));
    test::choose([general() theme], "Plain");
    EXPECT_THAT(previews(), ElementsAre(21, 22, 13, 14, 15));
}

TEST_F(GeneralTab, ChangesNoPreviewForAThemeWithoutAnEntry) {
    auto settings = GeneralTab::settings();
    settings.allPreviewPaths["Paper"] = pictures(11, 5);
    open(settings);
    test::choose([general() theme], "Ink");
    EXPECT_THAT(previews(), ElementsAre(11, 12, 13, 14, 15));
    EXPECT_EQ(host.get()->changes.size(), 1U);
}

TEST_F(GeneralTab, WritesTheThemeBeforeItsPreviewsAreRead) {
    auto settings = GeneralTab::settings();
    settings.allPreviewPaths["Paper"] = pictures(11, 1);
    settings.allPreviewPaths["Ink"] = pictures(21, 1);
    open(settings);
    int shown = 0;
    host.get()->whileCalled = [&] { shown = previews()[0]; };
    test::choose([general() theme], "Ink");
    host.get()->whileCalled = nullptr;
    EXPECT_EQ(shown, 11);
    EXPECT_EQ(previews()[0], 21);
}

TEST_F(GeneralTab, ShowsNoImageForAFileThatCannotBeRead) {
    auto settings = GeneralTab::settings();
    auto paths = pictures(11, 5);
    settings.allPreviewPaths["Ink"] = paths;
    paths[1] = "/nowhere/at/all.png";
    settings.allPreviewPaths["Paper"] = paths;
    open(settings);
    EXPECT_THAT(previews(), ElementsAre(11, 0, 13, 14, 15));
    test::choose([general() theme], "Ink");
    EXPECT_THAT(previews(), ElementsAre(11, 12, 13, 14, 15));
    test::choose([general() theme], "Paper");
    EXPECT_THAT(previews(), ElementsAre(11, 0, 13, 14, 15));
}

TEST_F(GeneralTab, DoesWithoutPreviewViews) {
    auto settings = GeneralTab::settings();
    settings.allPreviewPaths["Paper"] = pictures(11, 5);
    bind(settings);
    [PreferencesWindowController openPreferences];
    [general() setPreview2:nil];
    [general() viewWillAppear];
    EXPECT_THAT(previews(), ElementsAre(11, 0, 13, 14, 15));
}

} // namespace
