#include "Screen.h"

#include "FatalError.h"
#include "JSONCoding.h"

#include <algorithm>
#include <cmath>

namespace appkitglue {

namespace {

std::int64_t truncated(double length) {
    if (!(length >= -0x1p63 && length < 0x1p63))
        fatalError("PreferencesManager", __LINE__, "The size of a display does not fit 64 bits");
    return static_cast<std::int64_t>(length);
}

const Screen* findByDisplayName(const std::string& name, std::span<const Screen> screens) {
    const auto found = std::ranges::find(screens, name, &Screen::displayName);
    return found == screens.end() ? nullptr : &*found;
}

template <class Combinations>
auto findPair(Combinations& combinations, const Screen& presenter, const Screen& slideshow) {
    return std::ranges::find_if(combinations, [&](const ScreenCombination& combination) {
        return combination.presenter == presenter && combination.slideshow == slideshow;
    });
}

} // namespace

static bool decode(const json::Value& value, Screen& screen) {
    return value.member("name", screen.name) && value.member("isMain", screen.isMain) &&
           value.member("width", screen.width) && value.member("height", screen.height);
}

static void encode(json::Writer& writer, const Screen& screen) {
    writer.beginObject();
    writer.member("name", screen.name);
    writer.member("isMain", screen.isMain);
    writer.member("width", screen.width);
    writer.member("height", screen.height);
    writer.endObject();
}

static bool decode(const json::Value& value, ScreenCombination& combination) {
    return value.member("presenter", combination.presenter) && value.member("slideshow", combination.slideshow) &&
           value.member("lastUse", combination.lastUse);
}

static void encode(json::Writer& writer, const ScreenCombination& combination) {
    writer.beginObject();
    writer.member("presenter", combination.presenter);
    writer.member("slideshow", combination.slideshow);
    writer.member("lastUse", combination.lastUse);
    writer.endObject();
}

static bool decode(const json::Value& value, ScreenHandling& handling) {
    return value.member("combinations", handling.combinations);
}

static void encode(json::Writer& writer, const ScreenHandling& handling) {
    writer.beginObject();
    writer.member("combinations", handling.combinations);
    writer.endObject();
}

Screen Screen::make(std::string name, bool isMain, double width, double height) {
    return {std::move(name), isMain, truncated(width), truncated(height)};
}

std::string Screen::displayName() const {
    return name + " " + (isMain ? "Main" : "") + " " + std::to_string(width) + "×" + std::to_string(height);
}

std::expected<ScreenHandling, DecodingError> ScreenHandling::decode(std::string_view json) {
    return json::decoded<ScreenHandling>(json);
}

ScreenHandling ScreenHandling::decodeOrEmpty(std::string_view json) {
    return decode(json).value_or(ScreenHandling{});
}

std::expected<std::string, EncodingError> ScreenHandling::encode() const {
    return json::encoded(*this);
}

std::optional<ScreenNames> ScreenHandling::restoredNames(std::span<const Screen> connected) const {
    if (connected.size() < 2)
        return std::nullopt;
    auto found = findPair(combinations, connected[0], connected[1]);
    if (found == combinations.end())
        found = findPair(combinations, connected[1], connected[0]);
    if (found == combinations.end())
        return std::nullopt;
    return ScreenNames{.slideshow = found->slideshow.displayName(), .presenter = found->presenter.displayName()};
}

std::optional<ScreenPair> ScreenHandling::remember(const ScreenNames& names, std::span<const Screen> connected,
                                                   double now) {
    const Screen* presenter = findByDisplayName(names.presenter, connected);
    const Screen* slideshow = findByDisplayName(names.slideshow, connected);
    if (!presenter || !slideshow)
        return std::nullopt;
    const auto found = findPair(combinations, *presenter, *slideshow);
    if (found != combinations.end())
        found->lastUse = now;
    else
        combinations.push_back({*presenter, *slideshow, now});
    return ScreenPair{*presenter, *slideshow};
}

std::vector<std::string> displayNames(std::span<const Screen> screens) {
    std::vector<std::string> names;
    std::ranges::transform(screens, std::back_inserter(names), &Screen::displayName);
    return names;
}

std::optional<std::size_t> indexOfScreenNamed(std::string_view name, std::span<const Screen> screens) {
    const auto found = std::ranges::find(screens, name, &Screen::name);
    if (found == screens.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - screens.begin());
}

} // namespace appkitglue
