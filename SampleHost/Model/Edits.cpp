#include "Edits.h"

#include <algorithm>
#include <array>
#include <functional>

namespace samplehost {

namespace {

constexpr std::array<std::string_view, 22> actionNames{
    "addSlide",       "media",        "headlineLevel1", "headlineLevel2", "headlineLevel3", "quote",
    "numberedList",   "bulletedList", "code",           "footnote",       "table",          "website",
    "comment",        "inspector",    "report",         "document",       "arrange",        "play",
    "duplicateSlide", "deleteSlide",  "insert",         "themes"};

TextRange clamped(std::string_view text, TextRange range) {
    const auto start = std::min(range.start, text.size());
    return {start, std::min(range.length, text.size() - start)};
}

/// The whole lines that a selection touches, without the last line's break.
TextRange wholeLines(std::string_view text, TextRange selection) {
    std::size_t start = 0;
    if (selection.start > 0) {
        const auto before = text.rfind('\n', selection.start - 1);
        start = before == std::string_view::npos ? 0 : before + 1;
    }
    auto last = selection.end();
    if (selection.length > 0 && last > start && text[last - 1] == '\n') {
        --last;
    }
    const auto after = text.find('\n', last);
    return {start, (after == std::string_view::npos ? text.size() : after) - start};
}

/// A line without the marks that make it a heading, a quote or a list entry.
std::string_view unmarked(std::string_view line) {
    const auto first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    line = line.substr(first);
    const auto mark = line.find_first_not_of("#>");
    if (mark > 0 && mark != std::string_view::npos && line[mark] == ' ') {
        return line.substr(mark + 1);
    }
    if (line.starts_with("- ") || line.starts_with("* ") || line.starts_with("+ ")) {
        return line.substr(2);
    }
    const auto digits = line.find_first_not_of("0123456789");
    if (digits > 0 && digits != std::string_view::npos && line.substr(digits).starts_with(". ")) {
        return line.substr(digits + 2);
    }
    return line;
}

/// Gives each line of the selection a mark; an empty line gets `placeholder`, which is then selected.
Edit markLines(std::string_view text, TextRange selection, std::string_view placeholder,
               const std::function<std::string(std::size_t)>& markOf) {
    const auto range = wholeLines(text, selection);
    const auto chosen = text.substr(range.start, range.length);
    Edit edit{.replaced = range, .text = {}, .selection = {}};
    if (trimmed(chosen).empty()) {
        const auto mark = markOf(1);
        edit.text = mark + std::string(placeholder);
        edit.selection = {range.start + mark.size(), placeholder.size()};
        return edit;
    }
    std::size_t number = 0;
    for (const Line& line : linesOf(chosen)) {
        edit.text += line.range.start == 0 ? "" : "\n";
        if (!trimmed(line.text).empty()) {
            edit.text += markOf(++number) + std::string(unmarked(line.text));
        }
    }
    edit.selection =
        selection.length == 0 ? TextRange{range.start + edit.text.size(), 0} : TextRange{range.start, edit.text.size()};
    return edit;
}

/// Puts a block on lines of its own in place of the selection, with an empty line before and after it.
Edit insertBlock(std::string_view text, TextRange selection, std::string_view block, TextRange selectedInBlock) {
    const auto before = text.substr(0, selection.start);
    const auto after = text.substr(selection.end());
    std::string lead;
    if (!before.empty() && !before.ends_with("\n\n")) {
        lead = before.ends_with('\n') ? "\n" : "\n\n";
    }
    std::string tail;
    if (!after.starts_with("\n\n")) {
        tail = after.starts_with('\n') || after.empty() ? "\n" : "\n\n";
    }
    return {.replaced = selection,
            .text = lead + std::string(block) + tail,
            .selection = {selection.start + lead.size() + selectedInBlock.start, selectedInBlock.length}};
}

Edit addSlide(std::string_view text, TextRange selection) {
    const Deck deck = parseDeck(text);
    const auto& slide = deck.slides[deck.slideAt(selection.end())];
    const auto end = slide.range.end();
    const bool broken = end == 0 || text[end - 1] == '\n';
    const std::string lead = std::string(broken ? "" : "\n") + "\n---\n\n# ";
    constexpr std::string_view placeholder = "New Slide";
    return {.replaced = {end, 0},
            .text = lead + std::string(placeholder) + "\n" + (end < text.size() ? "\n" : ""),
            .selection = {end + lead.size(), placeholder.size()}};
}

Edit code(std::string_view text, TextRange selection) {
    const auto chosen = text.substr(selection.start, selection.length);
    if (!chosen.empty() && chosen.find('\n') == std::string_view::npos) {
        return toggleMark(text, selection, "`");
    }
    const std::string body = chosen.empty() ? "code" : std::string(trimmed(chosen));
    return insertBlock(text, selection, "```\n" + body + "\n```", {4, body.size()});
}

Edit footnote(std::string_view text, TextRange selection) {
    const Deck deck = parseDeck(text);
    const auto at = selection.end();
    const auto& slide = deck.slides[deck.slideAt(at)];
    std::size_t number = 1;
    while (text.find("[^" + std::to_string(number) + "]") != std::string_view::npos) {
        ++number;
    }
    const auto mark = "[^" + std::to_string(number) + "]";
    const auto rest = text.substr(at, slide.range.end() - at);
    const std::string kept(rest.substr(0, rest.find_last_not_of(" \t\r\n") + 1));
    const bool follows =
        kept.rfind("\n[^") != std::string::npos && kept.find('\n', kept.rfind("\n[^") + 1) == std::string::npos;
    const auto lead = mark + kept + (follows ? "\n" : "\n\n") + mark + ": ";
    constexpr std::string_view placeholder = "Footnote text";
    const bool last = slide.range.end() == text.size();
    return {.replaced = {at, rest.size()},
            .text = lead + std::string(placeholder) + (last ? "\n" : "\n\n"),
            .selection = {at + lead.size(), placeholder.size()}};
}

Edit table(std::string_view text, TextRange selection) {
    const auto chosen = trimmed(text.substr(selection.start, selection.length));
    if (chosen.empty()) {
        constexpr std::string_view sample = "| Column | Column |\n| ------ | ------ |\n| Cell   | Cell   |";
        return insertBlock(text, selection, sample, {2, 6});
    }
    std::string block;
    std::size_t columns = 0;
    for (const Line& line : linesOf(chosen)) {
        std::string row = "|";
        std::size_t count = 0;
        std::size_t from = 0;
        while (from <= line.text.size()) {
            const auto to = std::min(line.text.find_first_of("\t;,", from), line.text.size());
            row += " " + std::string(trimmed(line.text.substr(from, to - from))) + " |";
            from = to + 1;
            ++count;
        }
        block += (block.empty() ? "" : "\n") + row;
        if (columns == 0) {
            columns = count;
            block += "\n|";
            for (std::size_t i = 0; i < columns; ++i) {
                block += " --- |";
            }
        }
    }
    return insertBlock(text, selection, block, {0, block.size()});
}

Edit website(std::string_view text, TextRange selection) {
    const std::string chosen(text.substr(selection.start, selection.length));
    if (chosen.starts_with("http://") || chosen.starts_with("https://")) {
        return {.replaced = selection, .text = "[Title](" + chosen + ")", .selection = {selection.start + 1, 5}};
    }
    const auto label = chosen.empty() ? std::string("Title") : chosen;
    constexpr std::string_view address = "https://example.org";
    return {.replaced = selection,
            .text = "[" + label + "](" + std::string(address) + ")",
            .selection = {selection.start + label.size() + 3, address.size()}};
}

Edit comment(std::string_view text, TextRange selection) {
    const std::string chosen(text.substr(selection.start, selection.length));
    const auto body = chosen.empty() ? std::string("Notes for the speaker") : chosen;
    return {.replaced = selection, .text = "<!-- " + body + " -->", .selection = {selection.start + 5, body.size()}};
}

} // namespace

std::optional<Action> actionFromCode(long long code) {
    if (code < 1 || code > 22) {
        return std::nullopt;
    }
    return static_cast<Action>(code);
}

std::string_view nameOf(Action action) {
    return actionNames.at(static_cast<std::size_t>(action) - 1);
}

std::string applied(std::string_view text, const Edit& edit) {
    std::string result(text);
    const auto range = clamped(text, edit.replaced);
    return result.replace(range.start, range.length, edit.text);
}

Edit narrowed(std::string_view text, const Edit& edit) {
    const auto range = clamped(text, edit.replaced);
    const auto old = text.substr(range.start, range.length);
    const auto inside = [](std::string_view t, std::size_t at) {
        return at < t.size() && (static_cast<unsigned char>(t[at]) & 0xC0U) == 0x80U;
    };
    const auto least = std::min(old.size(), edit.text.size());
    std::size_t before = 0;
    while (before < least && old[before] == edit.text[before]) {
        ++before;
    }
    // Never inside a character.
    while (before > 0 && (inside(old, before) || inside(edit.text, before))) {
        --before;
    }
    std::size_t after = 0;
    while (after < least - before && old[old.size() - 1 - after] == edit.text[edit.text.size() - 1 - after]) {
        ++after;
    }
    while (after > 0 && inside(old, old.size() - after)) {
        --after;
    }
    return {.replaced = {range.start + before, old.size() - before - after},
            .text = edit.text.substr(before, edit.text.size() - before - after),
            .selection = edit.selection};
}

std::optional<Edit> editFor(Action action, std::string_view text, TextRange selection) {
    selection = clamped(text, selection);
    const auto heading = [&](std::size_t level) {
        return markLines(text, selection, "Heading", [level](std::size_t) { return std::string(level, '#') + " "; });
    };
    switch (action) {
    case Action::addSlide:
        return addSlide(text, selection);
    case Action::headlineLevel1:
        return heading(1);
    case Action::headlineLevel2:
        return heading(2);
    case Action::headlineLevel3:
        return heading(3);
    case Action::quote:
        return markLines(text, selection, "Quote", [](std::size_t) { return std::string("> "); });
    case Action::numberedList:
        return markLines(text, selection, "First", [](std::size_t n) { return std::to_string(n) + ". "; });
    case Action::bulletedList:
        return markLines(text, selection, "First", [](std::size_t) { return std::string("- "); });
    case Action::code:
        return code(text, selection);
    case Action::footnote:
        return footnote(text, selection);
    case Action::table:
        return table(text, selection);
    case Action::website:
        return website(text, selection);
    case Action::comment:
        return comment(text, selection);
    case Action::duplicateSlide:
        return duplicateSlide(text, parseDeck(text).slideAt(selection.start));
    case Action::deleteSlide:
        return deleteSlide(text, parseDeck(text).slideAt(selection.start));
    default:
        return std::nullopt;
    }
}

Edit insertImage(std::string_view text, TextRange selection, std::string_view path, std::string_view description) {
    std::string address(path);
    if (address.find_first_of(" ()") != std::string::npos) {
        address = "<" + address + ">";
    }
    const auto block = "![" + std::string(description) + "](" + address + ")";
    return insertBlock(text, clamped(text, selection), block, {2, description.size()});
}

Edit toggleMark(std::string_view text, TextRange selection, std::string_view mark) {
    selection = clamped(text, selection);
    const auto size = mark.size();
    const bool outside = selection.start >= size && text.substr(selection.start - size, size) == mark &&
                         text.substr(selection.end()).starts_with(mark);
    const std::string chosen(text.substr(selection.start, selection.length));
    if (outside && !chosen.empty()) {
        return {.replaced = {selection.start - size, selection.length + 2 * size},
                .text = chosen,
                .selection = {selection.start - size, chosen.size()}};
    }
    const auto body = chosen.empty() ? std::string("text") : chosen;
    return {.replaced = selection,
            .text = std::string(mark) + body + std::string(mark),
            .selection = {selection.start + size, body.size()}};
}

} // namespace samplehost
