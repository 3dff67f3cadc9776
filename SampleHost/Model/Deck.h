// A talk as a text: slides between lines of three dashes, notes in comments, settings in a comment at the very top.
#pragma once

#include "Text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace samplehost {

/// What a document says about itself in a comment of `key: value` lines at its top; absent values follow the
/// preferences.
struct DocumentSettings {
    std::optional<std::string> title;
    std::optional<std::string> footer;
    std::optional<std::string> theme;
    std::optional<std::string> size;

    bool operator==(const DocumentSettings&) const = default;
};

/// One slide of a document.
struct Slide {
    /// The slide's own bytes in the document, without the separator lines around it.
    TextRange range;
    /// The text to show: without comments and without the document's settings.
    std::string markdown;
    /// The slide's comments, one paragraph each: the speaker's notes.
    std::string notes;
    /// The first heading, else the first line of text, else empty. Plain text.
    std::string title;
};

/// A document taken apart. There is always at least one slide.
struct Deck {
    DocumentSettings settings;
    /// The settings comment with the line breaks after it; empty when there is none.
    TextRange settingsRange;
    std::vector<Slide> slides;

    /// The slide that the byte offset lies in; an offset in a separator belongs to the slide before it.
    [[nodiscard]] std::size_t slideAt(std::size_t offset) const;
};

/// Takes a document apart. Any text is a document.
Deck parseDeck(std::string_view text);

/// Whether a line outside of code separates slides: three dashes and nothing else.
bool isSeparator(std::string_view line);

/// The byte range and the inner text of each comment of `text` outside of fenced code; an unfinished comment ends at
/// the end of `text`.
struct Comment {
    TextRange range;
    std::string_view content;
};
std::vector<Comment> commentsOf(std::string_view text);

/// Keeps track of fenced code blocks from line to line.
class FenceTracker {
public:
    /// Whether `line` belongs to a fenced block (its fences included), having seen all lines before it.
    bool isCode(std::string_view line);

private:
    char fence_ = 0;
    std::size_t fenceLength_ = 0;
};

} // namespace samplehost
