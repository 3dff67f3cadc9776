// What the desktop says about light and dark. Plain C++.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace flattheme {

/// Asks the desktop in the background and calls `answer` on the main thread with whether it wants dark windows: false
/// when it has no preference, cannot be asked or takes longer than a few seconds.
void askDesktopWhetherDark(std::function<void(bool)> answer);

/// Reads the settings portal's answer ("(<<uint32 1>>,)") or that of gsettings ("'prefer-dark'"): dark, light, or
/// nothing when it says neither.
std::optional<bool> parseColorScheme(const std::string& text);

} // namespace flattheme
