// test: timeout=240
#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

using namespace appkitglue;
using testing::ElementsAre;

namespace {

class PreferencesBadInput : public test::PreferencesWindowFixture {
protected:
    // Opens the window, shows all tabs and lets it draw; says how long that took.
    void openAndSay(const char *what, const SettingsPayload &settings) {
        const auto start = std::chrono::steady_clock::now();
        open(settings);
        for (const char *label : {"Editor", "Slideshow", "About", "General"}) {
            press(label);
            test::spin(0.01);
        }
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        std::printf("%s: four tabs in %.2f s\n", what, taken.count());
        EXPECT_EQ(selectedTab(), "general");
    }
};

TEST_F(PreferencesBadInput, OpensOverEmptyLists) {
    SettingsPayload settings = SettingsPayload::defaultSettings();
    openAndSay("empty lists", settings);
    EXPECT_THAT(test::titlesOf([general() theme]), ElementsAre());
}

TEST_F(PreferencesBadInput, OffersTenThousandThemes) {
    auto settings = PreferencesBadInput::settings();
    settings.allGeneralThemes.clear();
    for (int i = 0; i < 10'000; ++i) {
        settings.allGeneralThemes.push_back("Theme " + std::to_string(i));
    }
    settings.generalTheme = "Theme 9998";
    openAndSay("10,000 themes", settings);
    EXPECT_EQ([[general() theme] numberOfItems], 10'000);
    EXPECT_EQ(test::selectedTitleOf([general() theme]), "Theme 9998");
    test::choose([general() theme], "Theme 7");
    EXPECT_EQ(host.get()->changes.at(0).generalTheme, "Theme 7");
}

TEST_F(PreferencesBadInput, KeepsTextsOfAMegabyte) {
    auto settings = PreferencesBadInput::settings();
    const std::string text(1'000'000, 'x');
    settings.allGeneralThemes = {"Paper", text};
    settings.generalTheme = text;
    settings.editorFontName = text;
    openAndSay("texts of 1 MB", settings);
    EXPECT_EQ(test::selectedTitleOf([general() theme]), text);
    test::choose([general() theme], "Paper");
    test::choose([general() theme], text);
    EXPECT_EQ(host.get()->changes.at(1).generalTheme, text);
}

TEST_F(PreferencesBadInput, KeepsEmojiRightToLeftTextAndControlCharacters) {
    auto settings = PreferencesBadInput::settings();
    const std::vector<std::string> names{"\U0001F469\u200D\U0001F4BB theme", "\u0645\u0631\u062D\u0628\u0627",
                                         "a\x01\x1b[31m\tb\n\u2028\x7f", "e\u0301", "\u00E9"};
    settings.allGeneralThemes = names;
    settings.generalTheme = names[1];
    openAndSay("unusual names", settings);
    EXPECT_EQ(test::titlesOf([general() theme]), names);
    EXPECT_EQ(test::selectedTitleOf([general() theme]), names[1]);
    for (const auto &name : names) {
        [[general() theme] selectItemAtIndex:&name - names.data()];
        [general() didUpdateDefaultTheme:nil];
        EXPECT_EQ(host.get()->changes.back().generalTheme, name);
    }
}

TEST_F(PreferencesBadInput, ShowsWhatCanBeShownOfPreviewPaths) {
    const std::string sparse = test::temporaryPath("sparse.png");
    std::ofstream(sparse).put('x');
    std::filesystem::resize_file(sparse, 100'000'000);
    const std::string unreadable = test::writePicture("unreadable.png", 30, 5);
    std::filesystem::permissions(unreadable, std::filesystem::perms::none);
    const std::string pipe = test::temporaryPath("pipe");
    mkfifo(pipe.c_str(), 0600);
    const std::string garbage = test::temporaryPath("garbage.png");
    std::ofstream(garbage) << "\x89PNG\r\n\x1a\nno picture";
    const std::string good = test::writePicture("good.png", 31, 5);
    const std::vector<std::vector<std::string>> lists{{"/dev/zero", "/dev/stdin", sparse, pipe, good},
                                                      {"/tmp", "", garbage, std::string("/dev/nu\0ll", 10), good}};
    for (const auto &paths : lists) {
        auto settings = PreferencesBadInput::settings();
        settings.allPreviewPaths["Paper"] = paths;
        openAndSay("preview paths that lead nowhere", settings);
        EXPECT_EQ([[general() preview1] image], nil);
        EXPECT_EQ([[general() preview2] image], nil);
        EXPECT_EQ([[general() preview4] image], nil);
        EXPECT_EQ([[[general() preview5] image] size].width, 31);
    }
    std::filesystem::remove(sparse);
    std::filesystem::remove(pipe);
}

} // namespace
