#include "PresentationRules.h"

#include <algorithm>

namespace appkitglue {

std::optional<std::string_view> problemWithScreens(bool hasPresenter, bool hasSlideshow, bool areEqual) {
    constexpr std::string_view equal = "Invalid configuration. Presenter screen is equal to Slideshow screen";
    if (!hasPresenter)
        return hasSlideshow ? "Missing Slideshow Screen. Invalid Configuration." : equal;
    if (!hasSlideshow)
        return "Invalid configuration. Missing external slides screen";
    return areEqual ? std::optional(equal) : std::nullopt;
}

std::optional<ScreenNames> defaultScreenNames(std::span<const std::string> screens, const std::string& mainScreen) {
    const auto other = std::ranges::find_if(screens, [&](const std::string& name) { return name != mainScreen; });
    if (other == screens.end())
        return std::nullopt;
    return ScreenNames{.slideshow = *other, .presenter = mainScreen};
}

} // namespace appkitglue
