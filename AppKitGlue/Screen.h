// Displays as the user sees them, and the pairs of them that were chosen for presenting.
#pragma once

#include "DecodingError.h"

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace appkitglue {

/// One display.
struct Screen {
    /// The display's localized name.
    std::string name;
    bool isMain = false;
    /// Size in points.
    std::int64_t width = 0;
    std::int64_t height = 0;

    /// A display of this size in points; fractions are cut off. A size that is not finite or does not fit 64 bits ends
    /// the process.
    static Screen make(std::string name, bool isMain, double width, double height);

    /// What the user sees and what displays are found by: "Projector  1920×1080", "Built-in Main 1440×900". The two
    /// blanks of a display that is not the main one are part of it.
    std::string displayName() const;
    friend bool operator==(const Screen&, const Screen&) = default;
};

/// One remembered choice.
struct ScreenCombination {
    Screen presenter;
    Screen slideshow;
    /// Seconds since 2001-01-01 00:00 UTC.
    double lastUse = 0;
    friend bool operator==(const ScreenCombination&, const ScreenCombination&) = default;
};

/// The display names of a choice; empty while unknown.
struct ScreenNames {
    std::string slideshow;
    std::string presenter;
    friend bool operator==(const ScreenNames&, const ScreenNames&) = default;
};

/// A choice among the displays that are connected.
struct ScreenPair {
    Screen presenter;
    Screen slideshow;
    friend bool operator==(const ScreenPair&, const ScreenPair&) = default;
};

/// All remembered choices in the order in which they were first made.
struct ScreenHandling {
    std::vector<ScreenCombination> combinations;

    /// Reads `{"combinations":[…]}`; every member is required, unknown members are ignored.
    static std::expected<ScreenHandling, DecodingError> decode(std::string_view json);
    /// Reads what was stored; anything unreadable counts as no choices.
    static ScreenHandling decodeOrEmpty(std::string_view json);
    /// Writes `{"combinations":[…]}`.
    std::expected<std::string, EncodingError> encode() const;

    /// The names to show for these displays: those of the first choice made for the first two of them, in either order.
    /// None with fewer than two displays or without such a choice.
    std::optional<ScreenNames> restoredNames(std::span<const Screen> connected) const;

    /// Remembers the choice of the first displays with these display names; a choice made before only gets the new time
    /// `now` (seconds since 2001-01-01 00:00 UTC). Returns the chosen displays; none, and nothing changed, if a name
    /// matches no display.
    std::optional<ScreenPair> remember(const ScreenNames& names, std::span<const Screen> connected, double now);

    friend bool operator==(const ScreenHandling&, const ScreenHandling&) = default;
};

/// The display names in the order of `screens`.
std::vector<std::string> displayNames(std::span<const Screen> screens);

/// The position of the first screen whose `name` (not display name) is `name`; of two displays with one name that is
/// always the first.
std::optional<std::size_t> indexOfScreenNamed(std::string_view name, std::span<const Screen> screens);

} // namespace appkitglue
