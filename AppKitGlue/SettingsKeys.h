// The names by which host and bundle say which setting a message is about.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace appkitglue {

/// The name of a setting. `previewPaths` and `allScreens` name no member of the settings record.
class SettingsKeys {
public:
    enum Case : std::uint8_t {
        generalSamplePresentation,
        generalTheme,
        generalAppearance,
        generalSlideSize,
        editorFontName,
        editorFontSize,
        editorTheme,
        presenterActive,
        presenterExitLastSlide,
        presenterMuteVideos,
        previewPaths,
        allGeneralThemes,
        allGeneralSizes,
        allAppearances,
        allEditorThemes,
        allScreens,
    };
    static constexpr std::size_t count = 16;

    /// Names of the selectors that the host's delegate implements for reading and writing the settings record.
    static constexpr const char* selectorForGetPreferences = "preferenceValues";
    static constexpr const char* selectorForSetPreferences = "setPreferencesValues:";

    constexpr SettingsKeys(Case key) : m_case(key) {}
    /// The key with exactly this raw value; none for any other text.
    static std::optional<SettingsKeys> fromRawValue(std::string_view rawValue) noexcept;
    /// All keys in declared order.
    static std::array<SettingsKeys, count> allCases() noexcept;

    /// The key's name as it crosses to the host.
    std::string_view rawValue() const noexcept;
    constexpr operator Case() const { return m_case; }

private:
    Case m_case;
};

} // namespace appkitglue
