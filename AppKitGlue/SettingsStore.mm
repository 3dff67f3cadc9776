#import "SettingsStore.h"

#include "StringBridging.h"

#include <utility>

namespace appkitglue {

bool GeneralStore::samplePresentation() const {
    return settings().generalSamplePresentation;
}

void GeneralStore::setSamplePresentation(bool value) {
    provider().update(&SettingsPayload::generalSamplePresentation, value, SettingsKeys::generalSamplePresentation);
}

const std::string &GeneralStore::theme() const {
    return settings().generalTheme;
}

void GeneralStore::setTheme(std::string value) {
    provider().update(&SettingsPayload::generalTheme, std::move(value), SettingsKeys::generalTheme);
}

const std::string &GeneralStore::appearance() const {
    return settings().generalAppearance;
}

void GeneralStore::setAppearance(std::string value) {
    provider().update(&SettingsPayload::generalAppearance, std::move(value), SettingsKeys::generalAppearance);
}

const std::string &GeneralStore::slideSize() const {
    return settings().generalSlideSize;
}

void GeneralStore::setSlideSize(std::string value) {
    provider().update(&SettingsPayload::generalSlideSize, std::move(value), SettingsKeys::generalSlideSize);
}

const std::vector<std::string> &GeneralStore::allThemes() const {
    return settings().allGeneralThemes;
}

const std::vector<std::string> &GeneralStore::allAppearances() const {
    return settings().allAppearances;
}

const std::vector<std::string> &GeneralStore::allSlideSizes() const {
    return settings().allGeneralSizes;
}

std::vector<std::string> GeneralStore::previewPaths() const {
    const auto &paths = settings().allPreviewPaths;
    const auto found = paths.find(settings().generalTheme);
    return found != paths.end() ? found->second : std::vector<std::string>();
}

RetainPtr<NSFont> EditorStore::font() const {
    const auto size = static_cast<CGFloat>(settings().editorFontSize);
    NSFont *font = [NSFont fontWithName:toNSString(settings().editorFontName) size:size];
    return RetainPtr<NSFont>(font != nil ? font : [NSFont systemFontOfSize:[NSFont systemFontSize]]);
}

void EditorStore::setFont(NSFont *font) {
    // Sending may change what the font manager has selected.
    const RetainPtr<NSFont> chosen(font);
    provider().update(&SettingsPayload::editorFontName, toUTF8([chosen.get() fontName]), SettingsKeys::editorFontName);
    provider().update(&SettingsPayload::editorFontSize, static_cast<double>([chosen.get() pointSize]),
                      SettingsKeys::editorFontSize);
}

const std::string &EditorStore::theme() const {
    return settings().editorTheme;
}

void EditorStore::setTheme(std::string value) {
    provider().update(&SettingsPayload::editorTheme, std::move(value), SettingsKeys::editorTheme);
}

const std::vector<std::string> &EditorStore::allThemes() const {
    return settings().allEditorThemes;
}

bool PresenterStore::presenterMode() const {
    return settings().presenterActive;
}

void PresenterStore::setPresenterMode(bool value) {
    provider().update(&SettingsPayload::presenterActive, value, SettingsKeys::presenterActive);
}

bool PresenterStore::exitAfterLastSlide() const {
    return settings().presenterExitLastSlide;
}

void PresenterStore::setExitAfterLastSlide(bool value) {
    provider().update(&SettingsPayload::presenterExitLastSlide, value, SettingsKeys::presenterExitLastSlide);
}

bool PresenterStore::muteVideos() const {
    return settings().presenterMuteVideos;
}

void PresenterStore::setMuteVideos(bool value) {
    provider().update(&SettingsPayload::presenterMuteVideos, value, SettingsKeys::presenterMuteVideos);
}

const std::string &PresenterStore::slideshowScreenName() const {
    return provider().currentDisplayConfiguration().names.slideshow;
}

void PresenterStore::setSlideshowScreenName(std::string value) {
    provider().currentDisplayConfiguration().names.slideshow = std::move(value);
}

const std::string &PresenterStore::presenterScreenName() const {
    return provider().currentDisplayConfiguration().names.presenter;
}

void PresenterStore::setPresenterScreenName(std::string value) {
    provider().currentDisplayConfiguration().names.presenter = std::move(value);
}

std::vector<std::string> PresenterStore::allScreens() const {
    return provider().availableScreenNames();
}

void PresenterStore::applyScreens() {
    provider().storeScreenSelection();
}

} // namespace appkitglue
