#include "SettingsPayload.h"

#include "JSONCoding.h"

namespace appkitglue {

namespace {

// Calls `visit` with the name and the value of each required member, in writing order, until it returns false.
template <class Record, class Visit> bool forEachMember(Record& record, const Visit& visit) {
    return visit("generalSamplePresentation", record.generalSamplePresentation) &&
           visit("generalTheme", record.generalTheme) && visit("generalSlideSize", record.generalSlideSize) &&
           visit("generalAppearance", record.generalAppearance) && visit("editorFontName", record.editorFontName) &&
           visit("editorFontSize", record.editorFontSize) && visit("editorTheme", record.editorTheme) &&
           visit("presenterActive", record.presenterActive) &&
           visit("presenterExitLastSlide", record.presenterExitLastSlide) &&
           visit("presenterMuteVideos", record.presenterMuteVideos) &&
           visit("allPreviewPaths", record.allPreviewPaths) && visit("allGeneralThemes", record.allGeneralThemes) &&
           visit("allGeneralSizes", record.allGeneralSizes) && visit("allAppearances", record.allAppearances) &&
           visit("allEditorThemes", record.allEditorThemes);
}

std::expected<std::string, EncodingError> encodeRecord(const SettingsPayload& record,
                                                       const std::optional<std::string_view>& affectedKey) {
    json::Writer writer;
    writer.beginObject();
    if (affectedKey)
        writer.member("affectedKey", *affectedKey);
    forEachMember(record, [&](std::string_view name, const auto& value) {
        writer.member(name, value);
        return true;
    });
    writer.endObject();
    return writer.finish();
}

} // namespace

// Found by the reader through its argument.
static bool decode(const json::Value& value, SettingsPayload& record) {
    return value.optionalMember("affectedKey", record.affectedKey) &&
           forEachMember(record, [&](std::string_view name, auto& member) { return value.member(name, member); });
}

std::expected<SettingsPayload, DecodingError> SettingsPayload::decode(std::string_view json) {
    return json::decoded<SettingsPayload>(json);
}

std::expected<std::string, EncodingError> SettingsPayload::encode() const {
    return encodeRecord(*this, affectedKey);
}

std::expected<std::string, EncodingError> changeMessage(const SettingsPayload& record, SettingsKeys changed) {
    return encodeRecord(record, changed.rawValue());
}

} // namespace appkitglue
