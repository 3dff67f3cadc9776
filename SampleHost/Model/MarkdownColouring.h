// Which parts of a Markdown text an editor colours, and how.
#pragma once

#include "Text.h"

#include <string_view>
#include <vector>

namespace samplehost {

enum class TextKind { heading, emphasis, strong, code, link, comment, separator, mark };

struct ColouredRange {
    TextRange range;
    TextKind kind;

    bool operator==(const ColouredRange&) const = default;
};

/// The coloured parts of `text` in order of the kinds' precedence: later ones lie over earlier ones.
std::vector<ColouredRange> colouring(std::string_view text);

} // namespace samplehost
