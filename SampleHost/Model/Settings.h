// The application's settings and their JSON record, which it keeps in its user defaults and hands to its plug-in.
#pragma once

#include <expected>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace samplehost {

/// All settings, in the order in which the record writes them.
struct Settings {
    bool generalSamplePresentation = true;
    std::string generalTheme;
    std::string generalSlideSize;
    std::string generalAppearance;
    std::string editorFontName;
    double editorFontSize = 14;
    std::string editorTheme;
    bool presenterActive = true;
    bool presenterExitLastSlide = true;
    bool presenterMuteVideos = false;
    std::map<std::string, std::vector<std::string>> allPreviewPaths;
    std::vector<std::string> allGeneralThemes;
    std::vector<std::string> allGeneralSizes;
    std::vector<std::string> allAppearances;
    std::vector<std::string> allEditorThemes;

    bool operator==(const Settings&) const = default;
};

/// A received record: the settings and the name of the one that changed, if the record names one.
struct SettingsChange {
    std::optional<std::string> affectedKey;
    Settings settings;
};

/// The settings of a first start, with the catalogues filled in (preview paths are added by who renders them).
Settings initialSettings();

/// `stored` with this version's catalogues, and choices that are no longer offered replaced by the initial ones.
Settings refreshed(Settings stored);

/// The record as one JSON object, without white space.
std::string settingsToJson(const Settings& settings);

/// Reads a record. The error says in words what is wrong.
std::expected<SettingsChange, std::string> settingsFromJson(std::string_view json);

} // namespace samplehost
