#include "MarkdownColouring.h"

#include "Deck.h"

#include <algorithm>

namespace samplehost {

namespace {

using Ranges = std::vector<ColouredRange>;

/// Marks `[label](address)` and `![description](path)`.
void addLinks(const Line& line, Ranges& found) {
    auto open = line.text.find('[');
    while (open != std::string_view::npos) {
        const auto middle = line.text.find("](", open);
        const auto close = middle == std::string_view::npos ? middle : line.text.find(')', middle);
        if (close == std::string_view::npos) {
            return;
        }
        const auto start = open > 0 && line.text[open - 1] == '!' ? open - 1 : open;
        found.push_back({{line.range.start + start, close + 1 - start}, TextKind::link});
        open = line.text.find('[', close);
    }
}

/// Marks what stands between two equal delimiters on one line.
void addDelimited(const Line& line, std::string_view delimiter, TextKind kind, Ranges& found) {
    auto open = line.text.find(delimiter);
    while (open != std::string_view::npos) {
        const auto inner = open + delimiter.size();
        const auto close = line.text.find(delimiter, inner);
        if (close == std::string_view::npos) {
            return;
        }
        const bool empty = close == inner || line.text[inner] == ' ';
        if (!empty) {
            found.push_back({{line.range.start + open, close + delimiter.size() - open}, kind});
        }
        open = line.text.find(delimiter, empty ? inner : close + delimiter.size());
    }
}

/// Marks the sign at the start of a list entry or a quote.
void addLineMark(const Line& line, Ranges& found) {
    const auto first = line.text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return;
    }
    const auto rest = line.text.substr(first);
    const auto digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    std::size_t length = 0;
    if (rest.starts_with("- ") || rest.starts_with("* ") || rest.starts_with("+ ") || rest.starts_with('>')) {
        length = 1;
    } else if (digits > 0 && rest.substr(digits).starts_with(". ")) {
        length = digits + 1;
    }
    if (length > 0) {
        found.push_back({{line.range.start + first, length}, TextKind::mark});
    }
}

void addLine(const Line& line, Ranges& found) {
    if (isSeparator(line.text)) {
        found.push_back({line.range, TextKind::separator});
        return;
    }
    const auto hashes = std::min(line.text.find_first_not_of('#'), line.text.size());
    if (hashes > 0 && hashes < 7 && (hashes == line.text.size() || line.text[hashes] == ' ')) {
        found.push_back({line.range, TextKind::heading});
        return;
    }
    addLineMark(line, found);
    addDelimited(line, "*", TextKind::emphasis, found);
    addDelimited(line, "_", TextKind::emphasis, found);
    addDelimited(line, "**", TextKind::strong, found);
    addLinks(line, found);
    addDelimited(line, "`", TextKind::code, found);
}

} // namespace

std::vector<ColouredRange> colouring(std::string_view text) {
    Ranges found;
    FenceTracker fences;
    for (const Line& line : linesOf(text)) {
        if (fences.isCode(line.text)) {
            found.push_back({line.range, TextKind::code});
        } else {
            addLine(line, found);
        }
    }
    for (const Comment& comment : commentsOf(text)) {
        found.push_back({comment.range, TextKind::comment});
    }
    return found;
}

} // namespace samplehost
