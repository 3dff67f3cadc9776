// The edits of whole slides and of what belongs to them: order, settings, notes.
#include "Edits.h"

#include <algorithm>

namespace samplehost {

namespace {

/// The slides' own texts, the settings comment taken out of the first.
std::vector<std::string> piecesOf(std::string_view text, const Deck& deck) {
    std::vector<std::string> pieces;
    for (const Slide& slide : deck.slides) {
        const auto start = std::max(slide.range.start, pieces.empty() ? deck.settingsRange.end() : 0);
        pieces.emplace_back(trimmed(text.substr(start, slide.range.end() - start)));
    }
    return pieces;
}

/// The whole document from its pieces, slide `selected` selected at its start.
Edit rebuilt(std::string_view text, const Deck& deck, const std::vector<std::string>& pieces, std::size_t selected) {
    Edit edit{.replaced = {0, text.size()}, .text = {}, .selection = {}};
    edit.text = text.substr(0, deck.settingsRange.end());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        edit.text += i == 0 ? "" : "---\n\n";
        if (i == selected) {
            edit.selection = {edit.text.size(), 0};
        }
        edit.text += pieces[i] + (i + 1 < pieces.size() ? "\n\n" : "\n");
    }
    return edit;
}

} // namespace

std::optional<Edit> moveSlide(std::string_view text, std::size_t from, std::size_t to) {
    const Deck deck = parseDeck(text);
    auto pieces = piecesOf(text, deck);
    if (from == to || from >= pieces.size() || to >= pieces.size()) {
        return std::nullopt;
    }
    auto moved = std::move(pieces[from]);
    pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(from));
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    return rebuilt(text, deck, pieces, to);
}

std::optional<Edit> deleteSlide(std::string_view text, std::size_t index) {
    const Deck deck = parseDeck(text);
    auto pieces = piecesOf(text, deck);
    if (index >= pieces.size()) {
        return std::nullopt;
    }
    if (pieces.size() == 1) {
        pieces.front().clear();
    } else {
        pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(index));
    }
    return rebuilt(text, deck, pieces, std::min(index, pieces.size() - 1));
}

std::optional<Edit> duplicateSlide(std::string_view text, std::size_t index) {
    const Deck deck = parseDeck(text);
    auto pieces = piecesOf(text, deck);
    if (index >= pieces.size()) {
        return std::nullopt;
    }
    auto copy = pieces[index];
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(copy));
    return rebuilt(text, deck, pieces, index + 1);
}

Edit writeSettings(std::string_view text, const DocumentSettings& settings) {
    const Deck deck = parseDeck(text);
    std::string lines;
    const auto add = [&lines](std::string_view key, const std::optional<std::string>& value) {
        if (!value) {
            return;
        }
        // A value stays on its line and inside the comment whatever was typed.
        std::string safe(trimmed(*value));
        std::ranges::replace(safe, '\n', ' ');
        for (auto at = safe.find("--"); at != std::string::npos; at = safe.find("--", at)) {
            safe.erase(at, 1);
        }
        if (!safe.empty()) {
            lines += std::string(key) + ": " + safe + "\n";
        }
    };
    add("title", settings.title);
    add("footer", settings.footer);
    add("theme", settings.theme);
    add("size", settings.size);
    const auto comment = lines.empty() ? std::string() : "<!--\n" + lines + "-->\n\n";
    return {.replaced = {0, deck.settingsRange.end()}, .text = comment, .selection = {comment.size(), 0}};
}

std::optional<Edit> writeNotes(std::string_view text, std::size_t index, std::string_view notes) {
    const Deck deck = parseDeck(text);
    if (index >= deck.slides.size()) {
        return std::nullopt;
    }
    const auto& range = deck.slides[index].range;
    const auto start = std::max(range.start, index == 0 ? deck.settingsRange.end() : 0);
    std::string replacement = deck.slides[index].markdown;
    if (start == range.start && index > 0) {
        replacement.insert(0, "\n");
    }
    std::string safe(trimmed(notes));
    for (auto at = safe.find("-->"); at != std::string::npos; at = safe.find("-->", at)) {
        safe.replace(at, 3, "->");
    }
    if (!safe.empty()) {
        replacement += "\n\n<!-- " + safe + " -->";
    }
    replacement += range.end() == text.size() ? "\n" : "\n\n";
    return Edit{.replaced = {start, range.end() - start}, .text = replacement, .selection = {start, 0}};
}

} // namespace samplehost
