#include "SettingsKeys.h"

#include <algorithm>

namespace appkitglue {

namespace {

constexpr std::array<std::string_view, SettingsKeys::count> rawValues{
    "generalSamplePresentation",
    "generalTheme",
    "generalAppearance",
    "generalSlideSize",
    "editorFontName",
    "editorFontSize",
    "editorTheme",
    "presenterActive",
    "presenterExitLastSlide",
    "presenterMuteVideos",
    "previewPaths",
    "allGeneralThemes",
    "allGeneralSizes",
    "allAppearances",
    "allEditorThemes",
    "allScreens",
};

template <std::size_t... I> constexpr std::array<SettingsKeys, sizeof...(I)> casesOf(std::index_sequence<I...>) {
    return {SettingsKeys(static_cast<SettingsKeys::Case>(I))...};
}

} // namespace

std::optional<SettingsKeys> SettingsKeys::fromRawValue(std::string_view rawValue) noexcept {
    const auto found = std::ranges::find(rawValues, rawValue);
    if (found == rawValues.end())
        return std::nullopt;
    return SettingsKeys(static_cast<Case>(found - rawValues.begin()));
}

std::array<SettingsKeys, SettingsKeys::count> SettingsKeys::allCases() noexcept {
    return casesOf(std::make_index_sequence<count>());
}

std::string_view SettingsKeys::rawValue() const noexcept {
    return rawValues[m_case];
}

} // namespace appkitglue
