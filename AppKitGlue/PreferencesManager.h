// The one road of settings between host and bundle: read once from the host, sent back whole on every change.
#pragma once

#import "Platform.h"

#include "ScreenStore.h"
#include "SettingsKeys.h"
#include "SettingsPayload.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace appkitglue {

/// What the stores and the Preferences window need of the settings. Main thread only.
class SettingsProvider {
public:
    SettingsProvider() = default;
    SettingsProvider(const SettingsProvider &) = delete;
    SettingsProvider &operator=(const SettingsProvider &) = delete;
    virtual ~SettingsProvider() = default;

    /// The local copy of the host's settings. Valid as long as the provider; changes with every update and binding.
    [[nodiscard]] virtual const SettingsPayload &settings() const = 0;

    /// Writes `value` into `field` of the local copy and sends the whole record to the host at once, with `affectedKey`
    /// as the changed key. Before a host is bound only the local copy changes.
    virtual void update(bool SettingsPayload::*field, bool value, SettingsKeys affectedKey) = 0;
    /// The same for a text, UTF-8. Text that is no UTF-8 cannot be encoded and ends the process.
    virtual void update(std::string SettingsPayload::*field, std::string value, SettingsKeys affectedKey) = 0;
    /// The same for a number. One that is not finite cannot be encoded and ends the process.
    virtual void update(double SettingsPayload::*field, double value, SettingsKeys affectedKey) = 0;

    /// The choice of displays in force, to read and to write; writing its names sends nothing and stores nothing.
    [[nodiscard]] virtual CurrentDisplayConfiguration &currentDisplayConfiguration() = 0;
    /// The display names of all connected displays, in the platform's order.
    [[nodiscard]] virtual std::vector<std::string> availableScreenNames() = 0;
    /// Remembers the pair named in `currentDisplayConfiguration` and resolves it to displays.
    virtual void storeScreenSelection() = 0;
    /// The display for the slides, not owned; nil without one.
    [[nodiscard]] virtual NSScreen *slideshowScreen() = 0;
    /// The display for the presenter view, not owned; nil without one.
    [[nodiscard]] virtual NSScreen *presenterScreen() = 0;
};

/// The provider that routes reads and writes through the host's delegate. Unbound at first, with the default settings.
class RoutingSettingsProvider final : public SettingsProvider {
public:
    /// The process's provider, made on first use and never destroyed.
    static const std::shared_ptr<RoutingSettingsProvider> &shared();

    /// Binds the provider to `delegate`, which it retains until the next binding, reads the host's settings and
    /// restores the display names remembered for the connected displays. Ends the process if `delegate` does not
    /// respond to both selectors of `QVPreferencesDelegate` (nothing was changed then), or if what it gives cannot be
    /// decoded.
    void setup(id delegate);

    [[nodiscard]] const SettingsPayload &settings() const override { return settings_; }
    void update(bool SettingsPayload::*field, bool value, SettingsKeys affectedKey) override;
    void update(std::string SettingsPayload::*field, std::string value, SettingsKeys affectedKey) override;
    void update(double SettingsPayload::*field, double value, SettingsKeys affectedKey) override;

    /// The remembered pairs of displays, read from the user defaults on the first call.
    [[nodiscard]] const ScreenHandling &screenHandler() { return screens_.screenHandler(); }
    [[nodiscard]] CurrentDisplayConfiguration &currentDisplayConfiguration() override;
    [[nodiscard]] std::vector<std::string> availableScreenNames() override;
    void storeScreenSelection() override;
    [[nodiscard]] NSScreen *slideshowScreen() override;
    [[nodiscard]] NSScreen *presenterScreen() override;

private:
    void send(SettingsKeys affectedKey) const;

    std::function<RetainPtr<NSData>()> selectorGetPreferences_;
    std::function<void(NSData *)> selectorSetPreferences_;
    SettingsPayload settings_ = SettingsPayload::defaultSettings();
    ScreenStore screens_;
};

} // namespace appkitglue
