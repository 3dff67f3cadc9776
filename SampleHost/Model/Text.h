// Ranges of UTF-8 text and the way to and from the UTF-16 offsets that text views count in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace samplehost {

/// A range of bytes of a UTF-8 text.
struct TextRange {
    std::size_t start = 0;
    std::size_t length = 0;

    [[nodiscard]] std::size_t end() const { return start + length; }
    bool operator==(const TextRange&) const = default;
};

/// One line of a text; the range leaves out the line break.
struct Line {
    TextRange range;
    std::string_view text;
};

/// The lines of `text`, at least one. The views point into `text`.
std::vector<Line> linesOf(std::string_view text);

/// `text` without white space at either end.
std::string_view trimmed(std::string_view text);

/// How many UTF-16 units the first `bytes` bytes of `text` make; past the end counts as the end.
std::size_t utf16Offset(std::string_view text, std::size_t bytes);

/// How many bytes of `text` make its first `units` UTF-16 units; past the end counts as the end.
std::size_t utf8Offset(std::string_view text, std::size_t units);

/// The UTF-16 offsets of all bytes of a text, for many conversions of one text.
class Utf16Offsets {
public:
    explicit Utf16Offsets(std::string_view text);
    /// Past the end counts as the end.
    std::size_t operator[](std::size_t byte) const {
        return offsets_[byte < offsets_.size() ? byte : offsets_.size() - 1];
    }

private:
    std::vector<std::size_t> offsets_;
};

/// `text` in lower case, code point by code point of equal encoded length (ASCII, Latin-1, Greek, Cyrillic), so that
/// offsets stay the same.
std::string caseFolded(std::string_view text);

} // namespace samplehost
