// What presenting decides without a display: which pairs of displays it refuses, and which it takes by default.
#pragma once

#include "Screen.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace appkitglue {

/// What is wrong with the displays for a presentation on two of them, as the host is told; none if nothing is.
/// `areEqual` counts only when both are there. When one is missing the text names the other one: hosts know it so.
std::optional<std::string_view> problemWithScreens(bool hasPresenter, bool hasSlideshow, bool areEqual);

/// The choice while nothing is chosen: the presenter view on the main display and the slides on the first display of
/// another name, in the order of `screens` (display names). None without such a display.
std::optional<ScreenNames> defaultScreenNames(std::span<const std::string> screens, const std::string& mainScreen);

} // namespace appkitglue
