#include "Catalogue.h"
#include "EventLog.h"
#include "MarkdownColouring.h"
#include "Settings.h"
#include "SlideContent.h"
#include "SlideshowState.h"
#include "TextHistory.h"

using namespace samplehost;

TEST(SettingsTest, WritesEveryFieldInOrder) {
    Settings settings;
    settings.generalTheme = "Paper";
    settings.allPreviewPaths = {{"Paper", {"/a.png"}}};
    EXPECT_EQ(settingsToJson(settings),
              R"({"generalSamplePresentation":true,"generalTheme":"Paper","generalSlideSize":"",)"
              R"("generalAppearance":"","editorFontName":"","editorFontSize":1.4E1,"editorTheme":"",)"
              R"("presenterActive":true,"presenterExitLastSlide":true,"presenterMuteVideos":false,)"
              R"("allPreviewPaths":{"Paper":["/a.png"]},"allGeneralThemes":[],"allGeneralSizes":[],)"
              R"("allAppearances":[],"allEditorThemes":[]})");
}

TEST(SettingsTest, ReadsWhatItWrites) {
    const auto settings = initialSettings();
    const auto read = settingsFromJson(settingsToJson(settings));
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(read->settings, settings);
    EXPECT_EQ(read->affectedKey, std::nullopt);
}

TEST(SettingsTest, ReadsTheAffectedKeyAndWholeNumbers) {
    auto text = settingsToJson(initialSettings());
    text.insert(1, R"("affectedKey":"editorFontSize",)");
    const auto at = text.find("1.4E1");
    ASSERT_NE(at, std::string::npos);
    text.replace(at, 5, "18");
    const auto read = settingsFromJson(text);
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(read->affectedKey, "editorFontSize");
    EXPECT_EQ(read->settings.editorFontSize, 18);
}

TEST(SettingsTest, RefusesRecordsThatAreNone) {
    EXPECT_FALSE(settingsFromJson(""));
    EXPECT_FALSE(settingsFromJson("[]"));
    EXPECT_FALSE(settingsFromJson("{}"));
    EXPECT_FALSE(settingsFromJson(R"({"generalSamplePresentation":1})"));
}

TEST(SettingsTest, ChoicesThatAreNoLongerOfferedAreReplaced) {
    auto stored = initialSettings();
    stored.generalTheme = "Gone";
    stored.generalSlideSize = "4:3";
    stored.allEditorThemes = {"Old"};
    stored.editorFontSize = -3;
    const auto fresh = refreshed(stored);
    EXPECT_EQ(fresh.generalTheme, "Paper");
    EXPECT_EQ(fresh.generalSlideSize, "4:3");
    EXPECT_EQ(fresh.allEditorThemes.size(), 4U);
    EXPECT_EQ(fresh.editorFontSize, 14);
}

TEST(CatalogueTest, OffersEnoughToChooseFrom) {
    EXPECT_GE(slideThemes().size(), 6U);
    EXPECT_EQ(slideSizes().size(), 3U);
    EXPECT_EQ(editorThemes().size(), 4U);
    EXPECT_EQ(appearances(), (std::vector<std::string>{"light", "dark", "auto"}));
    EXPECT_EQ(slideThemeNamed("nobody").name, slideThemes().front().name);
    EXPECT_EQ(editorThemeNamed("Automatic", true).name, "Dusk");
    EXPECT_EQ(editorThemeNamed("Sepia", true).name, "Sepia");
}

namespace {

double luminance(Color color) {
    const auto channel = [](Color value) {
        const double v = value / 255.0;
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color >> 16U) + 0.7152 * channel((color >> 8U) & 0xFFU) + 0.0722 * channel(color & 0xFFU);
}

double contrast(Color a, Color b) {
    const auto x = luminance(a);
    const auto y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

} // namespace

TEST(CatalogueTest, TextStandsOutFromItsBackground) {
    for (const auto& theme : slideThemes()) {
        for (const auto background : {theme.backgroundTop, theme.backgroundBottom}) {
            EXPECT_GE(contrast(theme.text, background), 4.5) << theme.name;
            EXPECT_GE(contrast(theme.heading, background), 4.5) << theme.name;
        }
        EXPECT_GE(contrast(theme.text, theme.codeBackground), 4.5) << theme.name;
    }
    for (const auto& theme : editorThemes()) {
        for (const auto color :
             {theme.text, theme.heading, theme.emphasis, theme.code, theme.link, theme.comment, theme.separator}) {
            EXPECT_GE(contrast(color, theme.background), 4.5) << theme.name << " " << std::hex << color;
        }
    }
}

TEST(SlideshowStateTest, GoesThroughTheSlidesAndEndsAfterTheLast) {
    SlideshowState show(2, 0, true);
    EXPECT_FALSE(show.press(ShowKey::previous));
    EXPECT_TRUE(show.press(ShowKey::next));
    EXPECT_EQ(show.current(), 1U);
    EXPECT_TRUE(show.press(ShowKey::next));
    EXPECT_TRUE(show.hasEnded());
    EXPECT_FALSE(show.press(ShowKey::first));
}

TEST(SlideshowStateTest, StaysOnTheLastSlideWhenItShallNotEnd) {
    SlideshowState show(2, 1, false);
    EXPECT_FALSE(show.press(ShowKey::next));
    EXPECT_FALSE(show.hasEnded());
    EXPECT_EQ(show.current(), 1U);
}

TEST(SlideshowStateTest, HomeEndAndNumbers) {
    SlideshowState show(12, 3, true);
    show.press(ShowKey::last);
    EXPECT_EQ(show.current(), 11U);
    show.press(ShowKey::first);
    EXPECT_EQ(show.current(), 0U);
    EXPECT_TRUE(show.pressDigit('1'));
    EXPECT_TRUE(show.pressDigit('0'));
    EXPECT_EQ(show.digits(), "10");
    show.press(ShowKey::enter);
    EXPECT_EQ(show.current(), 9U);
    EXPECT_EQ(show.digits(), "");
    for (const char digit : std::string("99999999999999999999999")) {
        show.pressDigit(digit);
    }
    show.press(ShowKey::enter);
    EXPECT_EQ(show.current(), 11U);
    EXPECT_FALSE(show.pressDigit('x'));
}

TEST(SlideshowStateTest, AnotherKeyForgetsTheDigits) {
    SlideshowState show(5, 0, true);
    show.pressDigit('4');
    show.press(ShowKey::next);
    show.press(ShowKey::enter);
    EXPECT_EQ(show.current(), 2U);
}

TEST(SlideshowStateTest, BlackHidesTheSlideUntilTheNextKey) {
    SlideshowState show(3, 0, true);
    show.press(ShowKey::black);
    EXPECT_TRUE(show.isBlack());
    show.press(ShowKey::next);
    EXPECT_FALSE(show.isBlack());
    EXPECT_EQ(show.current(), 0U);
    show.press(ShowKey::black);
    show.press(ShowKey::black);
    EXPECT_FALSE(show.isBlack());
}

TEST(SlideshowStateTest, EscapeEndsAndFewerSlidesMoveTheCurrentOne) {
    SlideshowState show(3, 2, true);
    show.setCount(1);
    EXPECT_EQ(show.current(), 0U);
    show.setCount(0);
    EXPECT_EQ(show.count(), 1U);
    EXPECT_TRUE(show.press(ShowKey::escape));
    EXPECT_TRUE(show.hasEnded());
}

namespace {

std::string edited(const std::string& text, const std::optional<Edit>& edit) {
    return edit ? applied(text, *edit) : text;
}

} // namespace

TEST(TextHistoryTest, TakesChangesBackAndMakesThemAgain) {
    TextHistory history;
    history.record("ab", "aXb", {1, 0}, "Typing");
    history.record("aXb", "", {0, 0}, "Delete");
    EXPECT_EQ(history.undoName(), "Delete");
    auto text = edited("", history.undo());
    EXPECT_EQ(text, "aXb");
    text = edited(text, history.undo());
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(history.undo(), std::nullopt);
    text = edited(text, history.redo());
    EXPECT_EQ(text, "aXb");
    text = edited(text, history.redo());
    EXPECT_EQ(text, "");
    EXPECT_EQ(history.redo(), std::nullopt);
}

TEST(TextHistoryTest, TypingOnIsOneChange) {
    TextHistory history;
    history.record("", "a", {0, 0}, "Typing");
    history.record("a", "ab", {1, 0}, "Typing");
    history.breakCoalescing();
    history.record("ab", "abc", {2, 0}, "Typing");
    EXPECT_EQ(edited("abc", history.undo()), "ab");
    EXPECT_EQ(edited("ab", history.undo()), "");
}

TEST(TextHistoryTest, NeverSplitsACharacter) {
    TextHistory history;
    history.record("ä", "ö", {0, 0}, "Typing");
    const auto edit = history.undo();
    ASSERT_TRUE(edit);
    EXPECT_EQ(edit->replaced, (TextRange{0, 2}));
    EXPECT_EQ(edited("ö", edit), "ä");
}

TEST(TextHistoryTest, TheMarkSaysWhetherTheTextIsAsItWas) {
    TextHistory history;
    history.record("", "a", {0, 0}, "Typing");
    const auto saved = history.mark();
    history.record("a", "a\n", {1, 0}, "Typing");
    EXPECT_NE(history.mark(), saved);
    history.undo();
    EXPECT_EQ(history.mark(), saved);
    history.undo();
    EXPECT_EQ(history.mark(), 0U);
}

TEST(ColouringTest, FindsTheKindsOfText) {
    const std::string text = "# Head\n- a *b* **c** `d` [e](f)\n---\n<!-- n -->\n```\n# x\n```";
    const auto ranges = colouring(text);
    const auto has = [&](TextKind kind, std::string_view wanted) {
        return std::ranges::any_of(ranges, [&](const ColouredRange& r) {
            return r.kind == kind && text.substr(r.range.start, r.range.length) == wanted;
        });
    };
    EXPECT_TRUE(has(TextKind::heading, "# Head"));
    EXPECT_TRUE(has(TextKind::mark, "-"));
    EXPECT_TRUE(has(TextKind::emphasis, "*b*"));
    EXPECT_TRUE(has(TextKind::strong, "**c**"));
    EXPECT_TRUE(has(TextKind::code, "`d`"));
    EXPECT_TRUE(has(TextKind::link, "[e](f)"));
    EXPECT_TRUE(has(TextKind::separator, "---"));
    EXPECT_TRUE(has(TextKind::comment, "<!-- n -->"));
    EXPECT_TRUE(has(TextKind::code, "# x"));
    EXPECT_FALSE(has(TextKind::heading, "# x"));
}

TEST(SlideContentTest, MakesBlocksOfStyledText) {
    const auto blocks = blocksOf("# Title\n\nA *b* **c** `d`\n\n> quoted\n\n```\ncode\n```\n\n---\n");
    ASSERT_EQ(blocks.size(), 5U);
    EXPECT_EQ(blocks[0].kind, BlockKind::heading);
    EXPECT_EQ(blocks[0].level, 1);
    EXPECT_EQ(blocks[1].runs.size(), 6U);
    EXPECT_TRUE(blocks[1].runs[1].italic);
    EXPECT_TRUE(blocks[1].runs[3].bold);
    EXPECT_TRUE(blocks[1].runs[5].code);
    EXPECT_EQ(blocks[2].kind, BlockKind::quote);
    EXPECT_EQ(plainText(blocks[3].runs), "code");
    EXPECT_EQ(blocks[4].kind, BlockKind::rule);
}

TEST(SlideContentTest, NumbersAndNestsLists) {
    const auto blocks = blocksOf("3. three\n4. four\n   - inner\n");
    ASSERT_EQ(blocks.size(), 3U);
    EXPECT_EQ(blocks[0].marker, "3.");
    EXPECT_EQ(blocks[1].marker, "4.");
    EXPECT_EQ(blocks[2].level, 2);
    EXPECT_EQ(blocks[2].marker, "–");
}

TEST(SlideContentTest, ReadsTables) {
    const auto blocks = blocksOf("| A | **B** |\n| --- | :-: |\n| c | `d` |\n");
    ASSERT_EQ(blocks.size(), 1U);
    ASSERT_EQ(blocks[0].kind, BlockKind::table);
    ASSERT_EQ(blocks[0].rows.size(), 2U);
    ASSERT_EQ(blocks[0].rows[0].size(), 2U);
    EXPECT_EQ(plainText(blocks[0].rows[0][1]), "B");
    EXPECT_TRUE(blocks[0].rows[0][1][0].bold);
    EXPECT_EQ(plainText(blocks[0].rows[1][0]), "c");
}

TEST(SlideContentTest, ReadsImagesAndFootnotes) {
    const auto blocks = blocksOf("See[^1] it\n\n![a plan](plan.png)\n\n[^1]: Word\n");
    ASSERT_EQ(blocks.size(), 3U);
    EXPECT_EQ(plainText(blocks[0].runs), "See¹ it");
    EXPECT_EQ(blocks[1].kind, BlockKind::image);
    EXPECT_EQ(blocks[1].path, "plan.png");
    EXPECT_EQ(plainText(blocks[1].runs), "a plan");
    EXPECT_EQ(blocks[2].kind, BlockKind::footnote);
    EXPECT_EQ(blocks[2].marker, "1");
    EXPECT_EQ(plainText(blocks[2].runs), "Word");
}

TEST(SlideContentTest, SurvivesAnything) {
    EXPECT_TRUE(blocksOf("").empty());
    blocksOf(std::string(20000, '>') + "x");
    blocksOf(std::string(5000, '*') + "x" + std::string(5000, '*'));
    blocksOf("\xff\xfe\x80 | |\n|-|\n");
    blocksOf("|\n|-|\n|");
}

TEST(EventLogTest, WritesOneObjectPerLine) {
    EXPECT_EQ(eventlog::action(7), R"({"event":"action","code":7,"name":"numberedList"})");
    EXPECT_EQ(eventlog::search(std::nullopt), R"({"event":"search","text":null})");
    EXPECT_EQ(eventlog::search("a\n"), R"({"event":"search","text":"a\n"})");
    EXPECT_EQ(eventlog::preferencesWritten(R"({"affectedKey":"editorTheme"})"),
              R"({"event":"setPreferencesValues","affectedKey":"editorTheme","record":{"affectedKey":"editorTheme"}})");
    EXPECT_EQ(eventlog::preferencesWritten("{"), R"({"event":"setPreferencesValues","affectedKey":null,"record":"{"})");
    EXPECT_EQ(eventlog::notification("N", "m", std::nullopt), R"({"event":"notification","name":"N","metric":"m"})");
    EXPECT_EQ(eventlog::slideshow("slide", 2, ""), R"({"event":"slideshow","what":"slide","slide":3,"detail":""})");
}
