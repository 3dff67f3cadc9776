// A page of HTML as a list of styled paragraphs: what is left of it when only its text is shown.
#pragma once

#include "HTMLStyleSheet.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace html {

/// How a run of characters looks.
struct Style {
    /// In points, between 1 and 400.
    double fontSize = 0;
    bool bold = false;
    bool italic = false;
    bool monospaced = false;
    bool underlined = false;
    /// The text's own colour when absent.
    std::optional<Color> color;
    /// The address that the run leads to, as written; null when it is no link.
    std::shared_ptr<const std::string> link;

    bool operator==(const Style&) const = default;
};

/// Characters of one style. The text is valid UTF-8; a line break within the paragraph is "\n".
struct Run {
    std::string text;
    Style style;
};

/// One block of text.
struct Paragraph {
    std::vector<Run> runs;
    /// The empty space above it, in points; neighbouring margins are collapsed. Zero for the first paragraph.
    double spaceBefore = 0;
    /// The distance of its text from the left edge, in points. A marker hangs to the left of it.
    double indent = 0;
    /// The bullet or number of a list item, or empty.
    std::string marker;
    /// How the marker looks, and how high a paragraph without runs is.
    Style style;
    Alignment alignment = Alignment::natural;

    /// All characters without the marker.
    [[nodiscard]] std::string text() const;
};

struct Document {
    std::string title;
    std::vector<Paragraph> paragraphs;
};

/// Reads a page, however broken it is. `utf8` may contain anything: bytes that are no UTF-8 and NULs become U+FFFD.
/// `fontSize` is the size of plain text in points. Nesting is followed to 300,000 levels; what comes after deeper
/// nesting is left out, as is all of a page of a gigabyte or more.
[[nodiscard]] Document parse(std::string_view utf8, double fontSize);

/// `bytes` as valid UTF-8 without NULs and without a byte order mark: what is wrong becomes U+FFFD.
[[nodiscard]] std::string validUtf8(std::string_view bytes);

} // namespace html
