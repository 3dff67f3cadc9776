// The displays chosen for the slides and the presenter view, remembered for each set of connected displays.
#pragma once

#import "Platform.h"

#include "RetainPtr.h"
#include "Screen.h"

#include <optional>
#include <string>
#include <vector>

namespace appkitglue {

/// The choice in force.
struct CurrentDisplayConfiguration {
    /// The resolved displays; the objects are those that the platform listed when the choice was stored.
    struct Screens {
        RetainPtr<NSScreen> slideshow;
        RetainPtr<NSScreen> presenter;
        /// Their localized names, UTF-8: the platform may list other objects for the same displays later.
        std::string slideshowName;
        std::string presenterName;
    };

    /// Absent until a choice has been stored in this process.
    std::optional<Screens> screens;
    /// Display names of the chosen displays (UTF-8, as `Screen::displayName` makes them); empty when unknown.
    ScreenNames names;
};

/// Remembers the user's pairs of displays in the standard user defaults (key "SCREEN_CONFIGURATIONS2", JSON data) and
/// answers which display shows what. Owned by the settings provider. Main thread only. Nothing here fails: unreadable
/// data counts as an empty list, names that match no connected display are ignored, an unencodable list is not saved.
/// A display whose size is not finite stops the process.
class ScreenStore {
public:
    /// The remembered pairs, in the order in which they were first stored. Read from the user defaults on the first
    /// call and kept from then on.
    [[nodiscard]] const ScreenHandling& screenHandler();

    /// The choice in force, to read and to write. Valid as long as the store.
    [[nodiscard]] CurrentDisplayConfiguration& currentDisplayConfiguration() { return currentDisplayConfiguration_; }
    [[nodiscard]] const CurrentDisplayConfiguration& currentDisplayConfiguration() const {
        return currentDisplayConfiguration_;
    }

    /// The display names of all connected displays, in the platform's order.
    [[nodiscard]] std::vector<std::string> availableScreenNames();

    /// Remembers and persists the pair named in `currentDisplayConfiguration().names` and resolves it to displays.
    void storeScreenSelection();

    /// Fills the chosen names with the pair remembered for the first two connected displays, if there is one. Changes
    /// nothing else and writes nothing.
    void restoreScreenNames();

    /// The display for the slides: the stored choice while both of its displays are connected, else the second
    /// connected display. Not owned; nil without one.
    [[nodiscard]] NSScreen* slideshowScreen() const;

    /// The display for the presenter view: the stored choice while both of its displays are connected, else the first
    /// connected display. Not owned; nil without one.
    [[nodiscard]] NSScreen* presenterScreen() const;

    /// The display name of one display, UTF-8. `screen` must not be nil.
    [[nodiscard]] static std::string displayName(NSScreen* screen);

private:
    ScreenHandling& loadedScreenHandler();

    std::optional<ScreenHandling> screenHandler_;
    CurrentDisplayConfiguration currentDisplayConfiguration_;
};

} // namespace appkitglue
