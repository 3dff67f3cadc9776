// What the application offers: slide themes, slide sizes, appearances, editor themes.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace samplehost {

/// A colour as 0xRRGGBB.
using Color = std::uint32_t;

/// What a slide theme draws beside the text.
enum class Decoration { none, bandAtTop, barAtLeft, frame, corner, underline };

struct SlideTheme {
    std::string_view name;
    Color backgroundTop;
    Color backgroundBottom;
    Color text;
    Color heading;
    Color accent;
    Color codeBackground;
    bool serifHeadings;
    bool serifText;
    Decoration decoration;
};

/// A slide's size in its own points; everything on a slide is laid out in these and scaled to where it is shown.
struct SlideSize {
    std::string_view name;
    double width;
    double height;
};

struct EditorTheme {
    std::string_view name;
    /// Whether the colours follow the window's appearance; then the colours here are those for light.
    bool automatic;
    Color background;
    Color text;
    Color heading;
    Color emphasis;
    Color code;
    Color link;
    Color comment;
    Color separator;
};

std::span<const SlideTheme> slideThemes();
std::span<const SlideSize> slideSizes();
std::span<const EditorTheme> editorThemes();
/// "light", "dark" and "auto".
std::vector<std::string> appearances();

/// The entry of that name, else the first one.
const SlideTheme& slideThemeNamed(std::string_view name);
const SlideSize& slideSizeNamed(std::string_view name);
/// An automatic theme gives its dark colours when `dark`.
const EditorTheme& editorThemeNamed(std::string_view name, bool dark);

} // namespace samplehost
