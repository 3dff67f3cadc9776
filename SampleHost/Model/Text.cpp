#include "Text.h"

#include <algorithm>

namespace samplehost {

std::vector<Line> linesOf(std::string_view text) {
    std::vector<Line> lines;
    std::size_t start = 0;
    while (true) {
        const auto found = text.find('\n', start);
        const auto end = found == std::string_view::npos ? text.size() : found;
        lines.push_back({{start, end - start}, text.substr(start, end - start)});
        if (found == std::string_view::npos) {
            return lines;
        }
        start = end + 1;
    }
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view space = " \t\r\n";
    const auto first = text.find_first_not_of(space);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

namespace {

/// UTF-16 units that the byte at the start of a sequence stands for; continuation bytes stand for none.
std::size_t unitsOfByte(unsigned char byte) {
    if ((byte & 0xC0U) == 0x80U) {
        return 0;
    }
    return byte >= 0xF0U ? 2 : 1;
}

} // namespace

std::size_t utf16Offset(std::string_view text, std::size_t bytes) {
    std::size_t units = 0;
    for (std::size_t i = 0; i < std::min(bytes, text.size()); ++i) {
        units += unitsOfByte(static_cast<unsigned char>(text[i]));
    }
    return units;
}

std::size_t utf8Offset(std::string_view text, std::size_t units) {
    std::size_t passed = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto here = unitsOfByte(static_cast<unsigned char>(text[i]));
        if (here > 0 && passed + here > units) {
            return i;
        }
        passed += here;
    }
    return text.size();
}

Utf16Offsets::Utf16Offsets(std::string_view text) {
    offsets_.reserve(text.size() + 1);
    std::size_t units = 0;
    for (const char c : text) {
        offsets_.push_back(units);
        units += unitsOfByte(static_cast<unsigned char>(c));
    }
    offsets_.push_back(units);
}

std::string caseFolded(std::string_view text) {
    std::string folded(text);
    for (std::size_t i = 0; i < folded.size(); ++i) {
        const auto first = static_cast<unsigned char>(folded[i]);
        if (first >= 'A' && first <= 'Z') {
            folded[i] = static_cast<char>(first + 32);
        } else if ((first & 0xE0U) == 0xC0U && i + 1 < folded.size()) {
            auto point = ((first & 0x1FU) << 6U) | (static_cast<unsigned char>(folded[i + 1]) & 0x3FU);
            const bool latin = point >= 0xC0 && point <= 0xDE && point != 0xD7;
            const bool greek = point >= 0x391 && point <= 0x3A9;
            const bool cyrillic = point >= 0x410 && point <= 0x42F;
            if (latin || greek || cyrillic) {
                point += 32;
            } else if (point >= 0x400 && point <= 0x40F) {
                point += 80;
            }
            folded[i] = static_cast<char>(0xC0U | (point >> 6U));
            folded[i + 1] = static_cast<char>(0x80U | (point & 0x3FU));
            ++i;
        }
    }
    return folded;
}

} // namespace samplehost
