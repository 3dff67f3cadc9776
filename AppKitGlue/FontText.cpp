#include "FontText.h"

#include <array>
#include <charconv>

namespace appkitglue {

std::string fontSizeText(double size) {
    std::array<char, 400> buffer;
    const auto outcome = std::to_chars(buffer.data(), buffer.data() + buffer.size(), size, std::chars_format::fixed);
    std::string text(buffer.data(), outcome.ptr);
    if (text.find('.') == std::string::npos)
        text += ".0";
    return text;
}

std::string fontText(std::string_view fontName, double size) {
    return std::string(fontName) + ", " + fontSizeText(size);
}

} // namespace appkitglue
