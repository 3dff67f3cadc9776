// The settings in the vocabulary of the Preferences tabs. The stores keep nothing: each read asks the provider, each
// write updates it, which sends the whole record to the host at once. All texts are UTF-8. Main thread only.
#pragma once

#import "Platform.h"

#include "PreferencesManager.h"
#include "RetainPtr.h"

#include <memory>
#include <string>
#include <vector>

namespace appkitglue {

/// What all stores share: the provider, which they keep alive.
class BaseStore {
public:
    /// `provider` must not be null.
    explicit BaseStore(std::shared_ptr<SettingsProvider> provider) : provider_(std::move(provider)) {}

protected:
    [[nodiscard]] SettingsProvider& provider() const { return *provider_; }
    [[nodiscard]] const SettingsPayload& settings() const { return provider_->settings(); }

private:
    std::shared_ptr<SettingsProvider> provider_;
};

/// The General tab's settings. References stay valid until the next change of the settings.
class GeneralStore : public BaseStore {
public:
    using BaseStore::BaseStore;

    /// Whether the sample presentation opens at start.
    [[nodiscard]] bool samplePresentation() const;
    void setSamplePresentation(bool value);
    /// Names of the selected slide theme, appearance and slide size.
    [[nodiscard]] const std::string& theme() const;
    void setTheme(std::string value);
    [[nodiscard]] const std::string& appearance() const;
    void setAppearance(std::string value);
    [[nodiscard]] const std::string& slideSize() const;
    void setSlideSize(std::string value);
    /// What the host offers, in its order.
    [[nodiscard]] const std::vector<std::string>& allThemes() const;
    [[nodiscard]] const std::vector<std::string>& allAppearances() const;
    [[nodiscard]] const std::vector<std::string>& allSlideSizes() const;
    /// File paths of the selected theme's preview images; empty when the host has none for it.
    [[nodiscard]] std::vector<std::string> previewPaths() const;
};

/// The Editor tab's settings.
class EditorStore : public BaseStore {
public:
    using BaseStore::BaseStore;

    /// The editor font; the system font at the system font size if the platform does not know the font's name.
    [[nodiscard]] RetainPtr<NSFont> font() const;
    /// Sends two changes: first the font's own (PostScript) name, then its size in points. `font` must not be nil.
    void setFont(NSFont* font);
    /// The name of the selected colour theme, and what the host offers.
    [[nodiscard]] const std::string& theme() const;
    void setTheme(std::string value);
    [[nodiscard]] const std::vector<std::string>& allThemes() const;
};

/// The Slideshow tab's settings.
class PresenterStore : public BaseStore {
public:
    using BaseStore::BaseStore;

    [[nodiscard]] bool presenterMode() const;
    void setPresenterMode(bool value);
    [[nodiscard]] bool exitAfterLastSlide() const;
    void setExitAfterLastSlide(bool value);
    [[nodiscard]] bool muteVideos() const;
    void setMuteVideos(bool value);
    /// The display names chosen so far ("" for none). Setting one sends nothing and stores nothing: see `applyScreens`.
    [[nodiscard]] const std::string& slideshowScreenName() const;
    void setSlideshowScreenName(std::string value);
    [[nodiscard]] const std::string& presenterScreenName() const;
    void setPresenterScreenName(std::string value);
    /// The display names of all connected displays, in the platform's order.
    [[nodiscard]] std::vector<std::string> allScreens() const;
    /// Remembers the chosen pair of displays and puts it into force.
    void applyScreens();
};

/// The About tab has no settings.
class AboutStore : public BaseStore {
public:
    using BaseStore::BaseStore;
};

/// One store for each tab of the Preferences window, all over the same provider.
class SettingsStore {
public:
    /// `provider` must not be null; it is kept alive.
    explicit SettingsStore(const std::shared_ptr<SettingsProvider>& provider)
        : general(provider), editor(provider), presenter(provider), about(provider) {}

    GeneralStore general;
    EditorStore editor;
    PresenterStore presenter;
    AboutStore about;
};

} // namespace appkitglue
