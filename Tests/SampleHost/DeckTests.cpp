#include "Deck.h"
#include "Search.h"

using namespace samplehost;

TEST(DeckTest, SeparatesSlidesAtLinesOfThreeDashes) {
    const auto deck = parseDeck("# One\n\n---\n\n# Two\n\n---\n\n# Three\n");
    ASSERT_EQ(deck.slides.size(), 3U);
    EXPECT_EQ(deck.slides[0].markdown, "# One");
    EXPECT_EQ(deck.slides[1].title, "Two");
    EXPECT_EQ(deck.slides[2].markdown, "# Three");
}

TEST(DeckTest, AnEmptyTextHasOneEmptySlide) {
    const auto deck = parseDeck("");
    ASSERT_EQ(deck.slides.size(), 1U);
    EXPECT_EQ(deck.slides[0].markdown, "");
    EXPECT_EQ(deck.slideAt(0), 0U);
}

TEST(DeckTest, DashesInsideFencedCodeSeparateNothing) {
    const auto deck = parseDeck("```yaml\n---\na: 1\n```\n\n---\nnext");
    ASSERT_EQ(deck.slides.size(), 2U);
    EXPECT_EQ(deck.slides[1].markdown, "next");
}

TEST(DeckTest, LongerOrIndentedDashesSeparateNothing) {
    EXPECT_EQ(parseDeck("a\n----\nb\n ---\nc\n--- d\n").slides.size(), 1U);
    EXPECT_EQ(parseDeck("a\n---  \r\nb").slides.size(), 2U);
}

TEST(DeckTest, CommentsAreTheNotesAndAreNotShown) {
    const auto deck = parseDeck("# A\n\n<!-- Say hello. -->\n\nText <!-- and\nsmile --> here\n");
    EXPECT_EQ(deck.slides[0].notes, "Say hello.\n\nand\nsmile");
    EXPECT_EQ(deck.slides[0].markdown, "# A\n\n\n\nText  here");
}

TEST(DeckTest, CommentMarksInCodeAreCode) {
    const auto deck = parseDeck("```\n<!-- code -->\n```\n");
    EXPECT_EQ(deck.slides[0].notes, "");
    EXPECT_NE(deck.slides[0].markdown.find("<!-- code -->"), std::string::npos);
}

TEST(DeckTest, AnUnfinishedCommentEndsWithItsSlide) {
    const auto deck = parseDeck("a <!-- never closed\n\n---\n\nb");
    ASSERT_EQ(deck.slides.size(), 2U);
    EXPECT_EQ(deck.slides[0].notes, "never closed");
    EXPECT_EQ(deck.slides[1].markdown, "b");
}

TEST(DeckTest, ReadsTheSettingsAtTheTop) {
    const auto deck = parseDeck("<!--\ntitle: My Talk\ntheme: Forest\n-->\n\n# One\n");
    EXPECT_EQ(deck.settings.title, "My Talk");
    EXPECT_EQ(deck.settings.theme, "Forest");
    EXPECT_EQ(deck.settings.size, std::nullopt);
    EXPECT_EQ(deck.slides[0].markdown, "# One");
    EXPECT_EQ(deck.slides[0].notes, "");
}

TEST(DeckTest, AFirstCommentOfOtherLinesIsANote) {
    const auto deck = parseDeck("<!-- Remember: breathe -->\n# One\n");
    EXPECT_EQ(deck.settings, DocumentSettings());
    EXPECT_EQ(deck.slides[0].notes, "Remember: breathe");
}

TEST(DeckTest, TitlesAreHeadingsElseTheFirstLine) {
    EXPECT_EQ(parseDeck("text\n\n## A **bold** title").slides[0].title, "A bold title");
    EXPECT_EQ(parseDeck("- entry\n- other").slides[0].title, "entry");
    EXPECT_EQ(parseDeck("```\n# code\n```").slides[0].title, "");
}

TEST(DeckTest, FindsTheSlideOfAnOffset) {
    const std::string text = "one\n---\ntwo\n---\nthree";
    const auto deck = parseDeck(text);
    EXPECT_EQ(deck.slideAt(0), 0U);
    EXPECT_EQ(deck.slideAt(text.find("---") + 1), 0U);
    EXPECT_EQ(deck.slideAt(text.find("two")), 1U);
    EXPECT_EQ(deck.slideAt(text.size() + 100), 2U);
}

TEST(DeckTest, RangesCoverTheTextOfTheSlides) {
    const std::string text = "one\n---\ntwo\n";
    const auto deck = parseDeck(text);
    EXPECT_EQ(text.substr(deck.slides[1].range.start, deck.slides[1].range.length), "two\n");
}

TEST(SearchTest, FindsTextWhateverTheCase) {
    const std::string text = "Ärger\n---\nim ärger und ÄRGER";
    const auto deck = parseDeck(text);
    const auto hits = findInDeck(deck, text, "ärger");
    ASSERT_EQ(hits.size(), 3U);
    EXPECT_EQ(hits[0].slide, 0U);
    EXPECT_EQ(hits[2].slide, 1U);
    EXPECT_EQ(text.substr(hits[2].range.start, hits[2].range.length), "ÄRGER");
}

TEST(SearchTest, FindsNothingForNothing) {
    EXPECT_TRUE(findInDeck(parseDeck("a a"), "a a", "").empty());
    EXPECT_TRUE(findInDeck(parseDeck("a a"), "a a", "  ").empty());
}

TEST(TextTest, ConvertsOffsetsBetweenEncodings) {
    const std::string text = "aä€😀b";
    EXPECT_EQ(utf16Offset(text, text.size()), 6U);
    EXPECT_EQ(utf16Offset(text, 3), 2U);
    EXPECT_EQ(utf8Offset(text, 3), 6U);
    EXPECT_EQ(utf8Offset(text, 5), 10U);
    EXPECT_EQ(utf8Offset(text, 99), text.size());
    EXPECT_EQ(utf16Offset(text, 99), 6U);
    const Utf16Offsets offsets(text);
    EXPECT_EQ(offsets[3], 2U);
    EXPECT_EQ(offsets[text.size()], 6U);
    EXPECT_EQ(offsets[99], 6U);
}

TEST(TextTest, FoldsCaseWithoutMovingOffsets) {
    EXPECT_EQ(caseFolded("ABÄÖ×ΑЖЁ"), "abäö×αжё");
}
