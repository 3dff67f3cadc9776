// The settings record that the host owns and the bundle shows and changes.
#pragma once

#include "DecodingError.h"
#include "SettingsKeys.h"

#include <expected>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace appkitglue {

/// The host's settings. Strings are UTF-8. The members stand in the order in which they are written.
struct SettingsPayload {
    /// Raw value of the key that changed; absent in a record that reports no change.
    std::optional<std::string> affectedKey;
    /// Whether the sample presentation is opened.
    bool generalSamplePresentation = true;
    std::string generalTheme;
    std::string generalSlideSize;
    std::string generalAppearance;
    /// Name of the Markdown editor's font as the font itself reports it.
    std::string editorFontName;
    /// In points.
    double editorFontSize = 14.0;
    std::string editorTheme;
    bool presenterActive = true;
    bool presenterExitLastSlide = true;
    bool presenterMuteVideos = false;
    /// For each general theme's name the file paths of its preview images.
    std::map<std::string, std::vector<std::string>> allPreviewPaths;
    std::vector<std::string> allGeneralThemes;
    std::vector<std::string> allGeneralSizes;
    std::vector<std::string> allAppearances;
    std::vector<std::string> allEditorThemes;

    /// The record of a host that has not said anything yet.
    static SettingsPayload defaultSettings() { return {}; }

    /// Reads a JSON record. Every member but `affectedKey` is required; unknown members are ignored.
    static std::expected<SettingsPayload, DecodingError> decode(std::string_view json);
    /// Writes the record as JSON in UTF-8; `affectedKey` only when it is present.
    std::expected<std::string, EncodingError> encode() const;

    friend bool operator==(const SettingsPayload&, const SettingsPayload&) = default;
};

/// The message that tells the host of one change: the whole record in JSON with `affectedKey` naming `changed`.
/// `record` itself stays as it is.
std::expected<std::string, EncodingError> changeMessage(const SettingsPayload& record, SettingsKeys changed);

} // namespace appkitglue
