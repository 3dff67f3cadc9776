#include "Catalogue.h"

#include <algorithm>
#include <array>

namespace samplehost {

namespace {

constexpr std::array themes{
    SlideTheme{"Paper", 0xFFFFFF, 0xFFFFFF, 0x2B2D33, 0x16181D, 0x2F6FDE, 0xF2F4F8, false, false, Decoration::none},
    SlideTheme{"Midnight", 0x141A2E, 0x0B0F1D, 0xD9DEEC, 0xFFFFFF, 0x7AA2FF, 0x232B45, false, false,
               Decoration::underline},
    SlideTheme{"Harbour", 0xEAF4F7, 0xD3E8EF, 0x17333D, 0x0B4A5E, 0x0B7285, 0xFFFFFF, false, false,
               Decoration::bandAtTop},
    SlideTheme{"Forest", 0x16342A, 0x0F241D, 0xE3EFE6, 0xF6FFF9, 0x7CD6A4, 0x21473A, true, false,
               Decoration::barAtLeft},
    SlideTheme{"Sunrise", 0xFFF3E4, 0xFFD9C2, 0x4A2A1C, 0x8A2C0D, 0xC2410C, 0xFFFAF5, true, true, Decoration::corner},
    SlideTheme{"Chalk", 0x26302D, 0x26302D, 0xEDEFEA, 0xFFF7C9, 0xF4D35E, 0x34403C, false, false, Decoration::frame},
    SlideTheme{"Journal", 0xFBF7EE, 0xFBF7EE, 0x2F2A24, 0x1E1A15, 0x9B2226, 0xF1EADB, true, true,
               Decoration::underline},
    SlideTheme{"Plum", 0x3A1546, 0x1F0A2B, 0xF1E6F6, 0xFFFFFF, 0xF2A6D8, 0x51255F, false, false, Decoration::corner},
};

constexpr std::array sizes{
    SlideSize{"16:9", 1600, 900},
    SlideSize{"16:10", 1600, 1000},
    SlideSize{"4:3", 1440, 1080},
};

constexpr EditorTheme dusk{"Dusk",   false,    0x1E2027, 0xD7DAE3, 0x8AB4FF,
                           0xF0C987, 0x9CDBA0, 0x7FC8E8, 0x8D93A3, 0xC792EA};

constexpr std::array editors{
    EditorTheme{"Automatic", true, 0xFFFFFF, 0x24262B, 0x1D4FB8, 0x8A4B00, 0x1A6B3C, 0x0B6A86, 0x6B7280, 0x9333B8},
    EditorTheme{"Daylight", false, 0xFFFFFF, 0x24262B, 0x1D4FB8, 0x8A4B00, 0x1A6B3C, 0x0B6A86, 0x6B7280, 0x9333B8},
    dusk,
    EditorTheme{"Sepia", false, 0xF8F0DF, 0x43382A, 0x8C3B1B, 0x6B4E00, 0x3F6212, 0x175E75, 0x7A6C55, 0x8E2F6B},
};

template <typename Entries> const auto& named(const Entries& entries, std::string_view name) {
    const auto found = std::ranges::find_if(entries, [name](const auto& entry) { return entry.name == name; });
    return found == entries.end() ? entries.front() : *found;
}

} // namespace

std::span<const SlideTheme> slideThemes() {
    return themes;
}

std::span<const SlideSize> slideSizes() {
    return sizes;
}

std::span<const EditorTheme> editorThemes() {
    return editors;
}

std::vector<std::string> appearances() {
    return {"light", "dark", "auto"};
}

const SlideTheme& slideThemeNamed(std::string_view name) {
    return named(themes, name);
}

const SlideSize& slideSizeNamed(std::string_view name) {
    return named(sizes, name);
}

const EditorTheme& editorThemeNamed(std::string_view name, bool dark) {
    const auto& theme = named(editors, name);
    return theme.automatic && dark ? dusk : theme;
}

} // namespace samplehost
