// What must hold for any text and any selection.
#include "Deck.h"
#include "Edits.h"
#include "MarkdownColouring.h"
#include "Search.h"
#include "SlideContent.h"
#include "TextHistory.h"

#include <rapidcheck/gtest.h>

using namespace samplehost;

namespace {

/// Texts made of what means something in a talk.
std::string anyTalk() {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
        "# Head", "\n",        "\n\n",      "---", "\n---\n", "```",  "<!--",     "-->",        "- ",     "1. ",
        "> ",     "| a | b |", "| - | - |", "*",   "**",      "`",    "[^1]",     "[^1]: note", "[x](y)", "![x](y)",
        "word",   " ",         "ä",         "€",   "😀",      "\xff", "title: x", "\r\n"}));
    std::string text;
    for (const auto& piece : pieces) {
        text += piece;
    }
    return text;
}

TextRange anyRange(const std::string& text) {
    const auto start = *rc::gen::inRange<std::size_t>(0, text.size() + 1);
    return {start, *rc::gen::inRange<std::size_t>(0, text.size() - start + 1)};
}

} // namespace

RC_GTEST_PROP(AnyTextTest, SlidesLieInOrderInsideTheText, ()) {
    const auto text = anyTalk();
    const auto deck = parseDeck(text);
    RC_ASSERT(!deck.slides.empty());
    std::size_t end = 0;
    for (std::size_t i = 0; i < deck.slides.size(); ++i) {
        const auto& range = deck.slides[i].range;
        RC_ASSERT(range.start >= end && range.end() <= text.size());
        RC_ASSERT(deck.slideAt(range.start) == i || range.length == 0);
        end = range.end();
        blocksOf(deck.slides[i].markdown);
    }
    for (const auto& part : colouring(text)) {
        RC_ASSERT(part.range.end() <= text.size());
    }
}

RC_GTEST_PROP(AnyTextTest, EveryActionCanBeUndone, ()) {
    const auto text = anyTalk();
    const auto selection = anyRange(text);
    TextHistory history;
    for (int code = 1; code <= 22; ++code) {
        const auto edit = editFor(actionFromCode(code).value(), text, selection);
        if (!edit) {
            continue;
        }
        const auto after = applied(text, *edit);
        RC_ASSERT(edit->selection.end() <= after.size());
        RC_ASSERT(applied(text, narrowed(text, *edit)) == after);
        history.record(text, after, selection, "Change");
        if (after != text) {
            const auto back = history.undo();
            RC_ASSERT(back.has_value());
            RC_ASSERT(applied(after, *back) == text);
        }
    }
}

RC_GTEST_PROP(AnyTextTest, MovingASlideAndBackChangesNothing, ()) {
    const auto count = *rc::gen::inRange<std::size_t>(2, 12);
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : "\n\n---\n\n") + std::string("# Slide ") + std::to_string(i);
    }
    text += "\n";
    const auto from = *rc::gen::inRange<std::size_t>(0, count);
    const auto to = (from + *rc::gen::inRange<std::size_t>(1, count)) % count;
    const auto moved = applied(text, moveSlide(text, from, to).value());
    RC_ASSERT(parseDeck(moved).slides[to].title == "Slide " + std::to_string(from));
    RC_ASSERT(applied(moved, moveSlide(moved, to, from).value()) == text);
}
