#include "Settings.h"

#include "Catalogue.h"

#include <algorithm>
#include <boost/json.hpp>
#include <stdexcept>

namespace samplehost {

namespace {

namespace json = boost::json;

json::array arrayOf(const std::vector<std::string>& strings) {
    json::array array;
    for (const auto& string : strings) {
        array.emplace_back(string);
    }
    return array;
}

std::vector<std::string> stringsIn(const json::value& value) {
    std::vector<std::string> strings;
    for (const auto& element : value.as_array()) {
        strings.emplace_back(element.as_string());
    }
    return strings;
}

template <typename Entries> std::vector<std::string> namesOf(const Entries& entries) {
    std::vector<std::string> names;
    for (const auto& entry : entries) {
        names.emplace_back(entry.name);
    }
    return names;
}

std::string text(const json::object& record, std::string_view key) {
    return std::string(record.at(key).as_string());
}

/// Throws when a key is missing or of another type.
SettingsChange changeFrom(const json::object& record) {
    SettingsChange change;
    if (const auto* key = record.if_contains("affectedKey"); key != nullptr && !key->is_null()) {
        change.affectedKey = std::string(key->as_string());
    }
    Settings& s = change.settings;
    s.generalSamplePresentation = record.at("generalSamplePresentation").as_bool();
    s.generalTheme = text(record, "generalTheme");
    s.generalSlideSize = text(record, "generalSlideSize");
    s.generalAppearance = text(record, "generalAppearance");
    s.editorFontName = text(record, "editorFontName");
    s.editorFontSize = record.at("editorFontSize").to_number<double>();
    s.editorTheme = text(record, "editorTheme");
    s.presenterActive = record.at("presenterActive").as_bool();
    s.presenterExitLastSlide = record.at("presenterExitLastSlide").as_bool();
    s.presenterMuteVideos = record.at("presenterMuteVideos").as_bool();
    for (const auto& member : record.at("allPreviewPaths").as_object()) {
        s.allPreviewPaths.emplace(member.key(), stringsIn(member.value()));
    }
    s.allGeneralThemes = stringsIn(record.at("allGeneralThemes"));
    s.allGeneralSizes = stringsIn(record.at("allGeneralSizes"));
    s.allAppearances = stringsIn(record.at("allAppearances"));
    s.allEditorThemes = stringsIn(record.at("allEditorThemes"));
    return change;
}

} // namespace

Settings initialSettings() {
    Settings settings;
    settings.allGeneralThemes = namesOf(slideThemes());
    settings.allGeneralSizes = namesOf(slideSizes());
    settings.allAppearances = appearances();
    settings.allEditorThemes = namesOf(editorThemes());
    settings.generalTheme = settings.allGeneralThemes.front();
    settings.generalSlideSize = settings.allGeneralSizes.front();
    settings.generalAppearance = "auto";
    settings.editorFontName = "DejaVuSansMono";
    settings.editorTheme = settings.allEditorThemes.front();
    return settings;
}

Settings refreshed(Settings stored) {
    const Settings initial = initialSettings();
    const auto keep = [](std::string& choice, const std::vector<std::string>& offered, const std::string& otherwise) {
        if (std::ranges::find(offered, choice) == offered.end()) {
            choice = otherwise;
        }
    };
    stored.allGeneralThemes = initial.allGeneralThemes;
    stored.allGeneralSizes = initial.allGeneralSizes;
    stored.allAppearances = initial.allAppearances;
    stored.allEditorThemes = initial.allEditorThemes;
    keep(stored.generalTheme, stored.allGeneralThemes, initial.generalTheme);
    keep(stored.generalSlideSize, stored.allGeneralSizes, initial.generalSlideSize);
    keep(stored.generalAppearance, stored.allAppearances, initial.generalAppearance);
    keep(stored.editorTheme, stored.allEditorThemes, initial.editorTheme);
    if (!(stored.editorFontSize >= 4 && stored.editorFontSize <= 200)) {
        stored.editorFontSize = initial.editorFontSize;
    }
    return stored;
}

std::string settingsToJson(const Settings& s) {
    json::object previews;
    for (const auto& [theme, paths] : s.allPreviewPaths) {
        previews.emplace(theme, arrayOf(paths));
    }
    return json::serialize(json::object{
        {"generalSamplePresentation", s.generalSamplePresentation},
        {"generalTheme", s.generalTheme},
        {"generalSlideSize", s.generalSlideSize},
        {"generalAppearance", s.generalAppearance},
        {"editorFontName", s.editorFontName},
        {"editorFontSize", s.editorFontSize},
        {"editorTheme", s.editorTheme},
        {"presenterActive", s.presenterActive},
        {"presenterExitLastSlide", s.presenterExitLastSlide},
        {"presenterMuteVideos", s.presenterMuteVideos},
        {"allPreviewPaths", previews},
        {"allGeneralThemes", arrayOf(s.allGeneralThemes)},
        {"allGeneralSizes", arrayOf(s.allGeneralSizes)},
        {"allAppearances", arrayOf(s.allAppearances)},
        {"allEditorThemes", arrayOf(s.allEditorThemes)},
    });
}

std::expected<SettingsChange, std::string> settingsFromJson(std::string_view text) {
    try {
        return changeFrom(json::parse(json::string_view(text.data(), text.size())).as_object());
    } catch (const std::exception& error) {
        return std::unexpected(error.what());
    }
}

} // namespace samplehost
