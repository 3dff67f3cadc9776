#import "ScreenStore.h"

#include "StringBridging.h"

#include <algorithm>
#include <utility>

namespace appkitglue {

namespace {

NSString *const screenConfigurationsKey = @"SCREEN_CONFIGURATIONS2";

Screen described(NSScreen *screen) {
    const NSSize size = [screen frame].size;
    return Screen::make(toUTF8([screen localizedName]), [screen isEqual:[NSScreen mainScreen]], size.width,
                        size.height);
}

std::vector<Screen> connectedScreens() {
    std::vector<Screen> result;
    for (NSScreen *screen in [NSScreen screens]) {
        result.push_back(described(screen));
    }
    return result;
}

NSScreen *connectedScreen(NSUInteger index) {
    NSArray *screens = [NSScreen screens];
    return index < [screens count] ? [screens objectAtIndex:index] : nil;
}

/// The object that stands for a chosen display now: displays that change are listed as new objects.
NSScreen *found(const RetainPtr<NSScreen> &chosen, const std::string &name) {
    NSArray *screens = [NSScreen screens];
    if ([screens indexOfObjectIdenticalTo:chosen.get()] != NSNotFound) {
        return chosen.get();
    }
    const auto index = indexOfScreenNamed(name, connectedScreens());
    return index ? connectedScreen(*index) : nil;
}

/// The chosen displays, slideshow then presenter, if both are connected.
std::optional<std::pair<NSScreen *, NSScreen *>> chosenScreens(const CurrentDisplayConfiguration &configuration) {
    if (!configuration.screens) {
        return std::nullopt;
    }
    const auto &screens = *configuration.screens;
    NSScreen *slideshow = found(screens.slideshow, screens.slideshowName);
    NSScreen *presenter = found(screens.presenter, screens.presenterName);
    return slideshow != nil && presenter != nil ? std::optional(std::pair(slideshow, presenter)) : std::nullopt;
}

} // namespace

ScreenHandling &ScreenStore::loadedScreenHandler() {
    if (!screenHandler_) {
        NSData *data = [[NSUserDefaults standardUserDefaults] dataForKey:screenConfigurationsKey];
        screenHandler_ = data != nil ? ScreenHandling::decodeOrEmpty(bytesOf(data)) : ScreenHandling{};
    }
    return *screenHandler_;
}

const ScreenHandling &ScreenStore::screenHandler() {
    return loadedScreenHandler();
}

std::vector<std::string> ScreenStore::availableScreenNames() {
    loadedScreenHandler();
    return displayNames(connectedScreens());
}

void ScreenStore::storeScreenSelection() {
    ScreenHandling &handler = loadedScreenHandler();
    const std::vector<Screen> connected = connectedScreens();
    const auto chosen =
        handler.remember(currentDisplayConfiguration_.names, connected, [NSDate timeIntervalSinceReferenceDate]);
    if (!chosen) {
        return;
    }
    const auto json = handler.encode();
    if (!json) {
        return;
    }
    NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
    [defaults setObject:toNSData(*json) forKey:screenConfigurationsKey];
    // At once: a choice survives whatever happens to the process next.
    [defaults synchronize];
    const auto presenter = indexOfScreenNamed(chosen->presenter.name, connected);
    const auto slideshow = indexOfScreenNamed(chosen->slideshow.name, connected);
    if (!presenter || !slideshow) {
        return;
    }
    currentDisplayConfiguration_ = {
        .screens = {{retainPtr(connectedScreen(*slideshow)), retainPtr(connectedScreen(*presenter)),
                     chosen->slideshow.name, chosen->presenter.name}},
        .names = {.slideshow = chosen->slideshow.displayName(), .presenter = chosen->presenter.displayName()}};
}

void ScreenStore::restoreScreenNames() {
    if (const auto names = loadedScreenHandler().restoredNames(connectedScreens())) {
        currentDisplayConfiguration_.names = *names;
    }
}

NSScreen *ScreenStore::slideshowScreen() const {
    const auto chosen = chosenScreens(currentDisplayConfiguration_);
    return chosen ? chosen->first : connectedScreen(1);
}

NSScreen *ScreenStore::presenterScreen() const {
    const auto chosen = chosenScreens(currentDisplayConfiguration_);
    return chosen ? chosen->second : connectedScreen(0);
}

std::string ScreenStore::displayName(NSScreen *screen) {
    return described(screen).displayName();
}

} // namespace appkitglue
