// How a font is described in the Editor tab.
#pragma once

#include <string>
#include <string_view>

namespace appkitglue {

/// The shortest decimal that reads back as `size` (in points, finite), always with a fraction: "14.0", "13.5".
std::string fontSizeText(double size);

/// The font's name, a comma, a blank and its size: "Menlo Regular, 14.0".
std::string fontText(std::string_view fontName, double size);

} // namespace appkitglue
