#include "Edits.h"

using namespace samplehost;

namespace {

/// The text after an action; `[` and `]` in `marked` stand for the selection's ends, and so they do in the result.
std::string after(Action action, std::string marked) {
    const auto start = marked.find('[');
    marked.erase(start, 1);
    const auto end = marked.find(']', start);
    marked.erase(end, 1);
    const auto edit = editFor(action, marked, {start, end - start});
    if (!edit) {
        return "nothing";
    }
    auto text = applied(marked, *edit);
    text.insert(edit->selection.end(), "]");
    text.insert(edit->selection.start, "[");
    return text;
}

} // namespace

TEST(EditsTest, CodesAreValidFromOneToTwentyTwo) {
    EXPECT_EQ(actionFromCode(0), std::nullopt);
    EXPECT_EQ(actionFromCode(1), Action::addSlide);
    EXPECT_EQ(actionFromCode(7), Action::numberedList);
    EXPECT_EQ(actionFromCode(18), Action::play);
    EXPECT_EQ(actionFromCode(22), Action::themes);
    EXPECT_EQ(actionFromCode(23), std::nullopt);
    EXPECT_EQ(actionFromCode(-1), std::nullopt);
    EXPECT_EQ(nameOf(Action::headlineLevel1), "headlineLevel1");
    EXPECT_EQ(nameOf(Action::themes), "themes");
}

TEST(EditsTest, AddsASlideAfterTheCurrentOne) {
    EXPECT_EQ(after(Action::addSlide, "# One[]\n\n---\n\n# Two\n"),
              "# One\n\n\n---\n\n# [New Slide]\n\n---\n\n# Two\n");
    EXPECT_EQ(after(Action::addSlide, "# One[]"), "# One\n\n---\n\n# [New Slide]\n");
    EXPECT_EQ(after(Action::addSlide, "[]"), "\n---\n\n# [New Slide]\n");
}

TEST(EditsTest, HeadingsMarkTheWholeLine) {
    EXPECT_EQ(after(Action::headlineLevel1, "so[]me\nmore"), "# some[]\nmore");
    EXPECT_EQ(after(Action::headlineLevel3, "# so[]me"), "### some[]");
    EXPECT_EQ(after(Action::headlineLevel2, "a\n[]"), "a\n## [Heading]");
}

TEST(EditsTest, QuotesAndListsMarkEachSelectedLine) {
    EXPECT_EQ(after(Action::quote, "[one\ntwo]"), "[> one\n> two]");
    EXPECT_EQ(after(Action::bulletedList, "[one\n\ntwo]\n"), "[- one\n\n- two]\n");
    EXPECT_EQ(after(Action::numberedList, "x\n[- one\n- two\n]y"), "x\n[1. one\n2. two]\ny");
    EXPECT_EQ(after(Action::numberedList, "[]"), "1. [First]");
}

TEST(EditsTest, CodeWrapsWordsAndFencesLines) {
    EXPECT_EQ(after(Action::code, "a [b] c"), "a `[b]` c");
    EXPECT_EQ(after(Action::code, "a `[b]` c"), "a [b] c");
    EXPECT_EQ(after(Action::code, "[a\nb]"), "```\n[a\nb]\n```\n");
    EXPECT_EQ(after(Action::code, "text[]"), "text\n\n```\n[code]\n```\n");
}

TEST(EditsTest, FootnotesAreNumberedAndStandAtTheSlidesEnd) {
    EXPECT_EQ(after(Action::footnote, "Text[] more\n"), "Text[^1] more\n\n[^1]: [Footnote text]\n");
    const std::string text = "A[^1] b\n\n[^1]: x\n\n---\n\nnext";
    const auto edit = editFor(Action::footnote, text, {7, 0});
    ASSERT_TRUE(edit);
    EXPECT_EQ(applied(text, *edit), "A[^1] b[^2]\n\n[^1]: x\n[^2]: Footnote text\n\n---\n\nnext");
}

TEST(EditsTest, TablesAreInsertedOrMadeFromLines) {
    EXPECT_EQ(after(Action::table, "[]"), "| [Column] | Column |\n| ------ | ------ |\n| Cell   | Cell   |\n");
    EXPECT_EQ(after(Action::table, "[a, b\nc, d]"), "[| a | b |\n| --- | --- |\n| c | d |]\n");
}

TEST(EditsTest, WebsitesWrapTheSelection) {
    EXPECT_EQ(after(Action::website, "see [here]"), "see [here]([https://example.org])");
    EXPECT_EQ(after(Action::website, "[https://a.b]"), "[[Title]](https://a.b)");
}

TEST(EditsTest, CommentsWrapTheSelection) {
    EXPECT_EQ(after(Action::comment, "a [b]"), "a <!-- [b] -->");
    EXPECT_EQ(after(Action::comment, "[]"), "<!-- [Notes for the speaker] -->");
}

TEST(EditsTest, ActionsThatOpenSomethingEditNothing) {
    for (const auto action : {Action::media, Action::inspector, Action::report, Action::document, Action::arrange,
                              Action::play, Action::insert, Action::themes}) {
        EXPECT_EQ(editFor(action, "text", {0, 0}), std::nullopt) << nameOf(action);
    }
}

TEST(EditsTest, SelectionsBeyondTheTextAreCutOff) {
    const auto edit = editFor(Action::comment, "ab", {10, 10});
    ASSERT_TRUE(edit);
    EXPECT_EQ(applied("ab", *edit), "ab<!-- Notes for the speaker -->");
}

TEST(EditsTest, MarksAreToggled) {
    EXPECT_EQ(applied("a b", toggleMark("a b", {2, 1}, "**")), "a **b**");
    EXPECT_EQ(applied("a **b**", toggleMark("a **b**", {4, 1}, "**")), "a b");
}

TEST(EditsTest, ImagesStandOnTheirOwnLine) {
    EXPECT_EQ(applied("text", insertImage("text", {4, 0}, "a.png", "Picture")), "text\n\n![Picture](a.png)\n");
    EXPECT_EQ(applied("", insertImage("", {0, 0}, "a b.png", "P")), "![P](<a b.png>)\n");
}

TEST(SlideOrderTest, MovesSlidesBothWays) {
    const std::string text = "one\n\n---\n\ntwo\n\n---\n\nthree\n";
    EXPECT_EQ(applied(text, moveSlide(text, 0, 2).value()), "two\n\n---\n\nthree\n\n---\n\none\n");
    EXPECT_EQ(applied(text, moveSlide(text, 2, 0).value()), "three\n\n---\n\none\n\n---\n\ntwo\n");
    EXPECT_EQ(moveSlide(text, 1, 1), std::nullopt);
    EXPECT_EQ(moveSlide(text, 1, 3), std::nullopt);
}

TEST(SlideOrderTest, TheSettingsStayAtTheTop) {
    const std::string text = "<!--\ntheme: Plum\n-->\n\none\n\n---\n\ntwo\n";
    const auto moved = applied(text, moveSlide(text, 0, 1).value());
    EXPECT_EQ(moved, "<!--\ntheme: Plum\n-->\n\ntwo\n\n---\n\none\n");
    EXPECT_EQ(parseDeck(moved).settings.theme, "Plum");
}

TEST(SlideOrderTest, DeletesAndDuplicates) {
    const std::string text = "one\n\n---\n\ntwo\n";
    EXPECT_EQ(applied(text, deleteSlide(text, 0).value()), "two\n");
    EXPECT_EQ(applied("one", deleteSlide("one", 0).value()), "\n");
    EXPECT_EQ(applied(text, duplicateSlide(text, 0).value()), "one\n\n---\n\none\n\n---\n\ntwo\n");
    EXPECT_EQ(deleteSlide(text, 2), std::nullopt);
}

TEST(DocumentSettingsTest, AreWrittenReadBackAndTakenAway) {
    DocumentSettings settings{.title = "A", .footer = "two -- dashes --> end", .theme = "Chalk", .size = {}};
    const auto written = applied("# One\n", writeSettings("# One\n", settings));
    const auto deck = parseDeck(written);
    EXPECT_EQ(deck.settings.title, "A");
    EXPECT_EQ(deck.settings.footer, "two - dashes -> end");
    EXPECT_EQ(deck.settings.theme, "Chalk");
    EXPECT_EQ(deck.slides[0].markdown, "# One");
    EXPECT_EQ(applied(written, writeSettings(written, {})), "# One\n");
}

TEST(NotesTest, ReplaceTheCommentsOfOneSlide) {
    const std::string text = "one <!-- a -->\n\n---\n\ntwo\n\n---\n\nthree\n";
    const auto changed = applied(text, writeNotes(text, 1, "Say it").value());
    EXPECT_EQ(parseDeck(changed).slides[1].notes, "Say it");
    EXPECT_EQ(parseDeck(changed).slides[1].markdown, "two");
    EXPECT_EQ(parseDeck(changed).slides.size(), 3U);
    const auto emptied = applied(text, writeNotes(text, 0, "").value());
    EXPECT_EQ(parseDeck(emptied).slides[0].notes, "");
}

TEST(EditsTest, AnEditIsNarrowedToWhatChanges) {
    const std::string text = "one two three";
    const auto edit = narrowed(text, {{0, text.size()}, "one 2 three", {5, 0}});
    EXPECT_EQ(edit, (Edit{{4, 3}, "2", {5, 0}}));
    EXPECT_EQ(narrowed("aa", {{0, 2}, "aaa", {}}), (Edit{{2, 0}, "a", {}}));
    EXPECT_EQ(narrowed("ä", {{0, 2}, "ö", {}}), (Edit{{0, 2}, "ö", {}}));
    EXPECT_EQ(applied(text, narrowed(text, {{4, 4}, "", {}})), "one three");
}
