#include "Deck.h"

#include <algorithm>
#include <array>

namespace samplehost {

bool isSeparator(std::string_view line) {
    return line.starts_with("---") && trimmed(line) == "---";
}

bool FenceTracker::isCode(std::string_view line) {
    const auto indent = std::min(line.find_first_not_of(' '), line.size());
    const auto rest = line.substr(indent);
    const char mark = rest.empty() ? '\0' : rest.front();
    const bool marked = indent < 4 && (mark == '`' || mark == '~');
    const auto length = marked ? std::min(rest.find_first_not_of(mark), rest.size()) : 0;
    if (fence_ == 0) {
        const bool opens = length >= 3 && (mark == '~' || rest.substr(length).find('`') == std::string_view::npos);
        if (opens) {
            fence_ = mark;
            fenceLength_ = length;
        }
        return opens;
    }
    if (mark == fence_ && length >= fenceLength_ && trimmed(rest.substr(length)).empty()) {
        fence_ = 0;
    }
    return true;
}

std::vector<Comment> commentsOf(std::string_view text) {
    constexpr std::string_view opening = "<!--";
    constexpr std::string_view closing = "-->";
    std::vector<Comment> comments;
    FenceTracker fences;
    std::size_t passed = 0;
    for (const Line& line : linesOf(text)) {
        if (line.range.end() < passed) {
            continue;
        }
        const auto from = std::max(passed, line.range.start);
        if (from == line.range.start && fences.isCode(line.text)) {
            continue;
        }
        auto start = text.substr(0, line.range.end()).find(opening, from);
        while (start != std::string_view::npos) {
            const auto inner = start + opening.size();
            const auto close = text.find(closing, inner);
            const auto end = close == std::string_view::npos ? text.size() : close;
            passed = std::min(end + closing.size(), text.size());
            comments.push_back({{start, passed - start}, trimmed(text.substr(inner, end - inner))});
            start = passed < line.range.end() ? text.substr(0, line.range.end()).find(opening, passed)
                                              : std::string_view::npos;
        }
    }
    return comments;
}

namespace {

/// The settings of a comment all of whose lines are `key: value` with keys that settings have; else nothing.
std::optional<DocumentSettings> settingsIn(std::string_view comment) {
    DocumentSettings settings;
    bool any = false;
    for (const Line& line : linesOf(comment)) {
        const auto text = trimmed(line.text);
        if (text.empty()) {
            continue;
        }
        const auto colon = text.find(':');
        if (colon == std::string_view::npos) {
            return std::nullopt;
        }
        const auto key = caseFolded(trimmed(text.substr(0, colon)));
        const std::string value(trimmed(text.substr(colon + 1)));
        const std::array<std::pair<std::string_view, std::optional<std::string>*>, 4> fields{
            {{"title", &settings.title},
             {"footer", &settings.footer},
             {"theme", &settings.theme},
             {"size", &settings.size}}};
        const auto* field = std::ranges::find(fields, key, &decltype(fields)::value_type::first);
        if (field == fields.end()) {
            return std::nullopt;
        }
        if (!value.empty()) {
            *field->second = value;
        }
        any = true;
    }
    return any ? std::optional(settings) : std::nullopt;
}

/// A line of Markdown as plain text: without marks of headings, lists, quotes and emphasis.
std::string plainLine(std::string_view line) {
    line = trimmed(line);
    const auto first = line.find_first_not_of("#>*-+ \t");
    line = first == std::string_view::npos ? std::string_view() : line.substr(first);
    std::string plain;
    for (const char c : line) {
        if (c != '*' && c != '`' && c != '_') {
            plain += c;
        }
    }
    return std::string(trimmed(plain));
}

std::string titleOf(std::string_view markdown) {
    FenceTracker fences;
    std::string fallback;
    for (const Line& line : linesOf(markdown)) {
        if (fences.isCode(line.text)) {
            continue;
        }
        const auto text = trimmed(line.text);
        const auto plain = plainLine(text);
        if (text.starts_with('#') && !plain.empty()) {
            return plain;
        }
        if (fallback.empty()) {
            fallback = plain;
        }
    }
    return fallback;
}

Slide slideFrom(std::string_view text, TextRange range, TextRange settingsRange) {
    Slide slide{.range = range, .markdown = {}, .notes = {}, .title = {}};
    auto start = range.start;
    if (settingsRange.length > 0 && settingsRange.start >= range.start && settingsRange.end() <= range.end()) {
        start = settingsRange.end();
    }
    const auto own = text.substr(start, range.end() - start);
    std::size_t copied = 0;
    for (const Comment& comment : commentsOf(own)) {
        slide.markdown += own.substr(copied, comment.range.start - copied);
        copied = comment.range.end();
        if (!comment.content.empty()) {
            slide.notes += (slide.notes.empty() ? "" : "\n\n") + std::string(comment.content);
        }
    }
    slide.markdown += own.substr(copied);
    slide.markdown = std::string(trimmed(slide.markdown));
    slide.title = titleOf(slide.markdown);
    return slide;
}

} // namespace

std::size_t Deck::slideAt(std::size_t offset) const {
    const auto after = std::ranges::upper_bound(slides, offset, {}, [](const Slide& s) { return s.range.start; });
    return after == slides.begin() ? 0 : static_cast<std::size_t>(after - slides.begin() - 1);
}

Deck parseDeck(std::string_view text) {
    Deck deck;
    const auto top = text.substr(0, text.find("\n---"));
    const auto comments = commentsOf(top);
    if (!comments.empty() && trimmed(text.substr(0, comments.front().range.start)).empty()) {
        if (auto settings = settingsIn(comments.front().content)) {
            deck.settings = *settings;
            const auto next = text.find_first_not_of("\r\n", comments.front().range.end());
            deck.settingsRange = {0, next == std::string_view::npos ? text.size() : next};
        }
    }
    FenceTracker fences;
    std::size_t start = 0;
    for (const Line& line : linesOf(text)) {
        if (!fences.isCode(line.text) && isSeparator(line.text)) {
            deck.slides.push_back(slideFrom(text, {start, line.range.start - start}, deck.settingsRange));
            start = std::min(line.range.end() + 1, text.size());
        }
    }
    deck.slides.push_back(slideFrom(text, {start, text.size() - start}, deck.settingsRange));
    return deck;
}

} // namespace samplehost
