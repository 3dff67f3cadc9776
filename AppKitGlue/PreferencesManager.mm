#import "PreferencesManager.h"

#include "FatalError.h"
#include "NeverDestroyed.h"
#include "StringBridging.h"

#include <utility>

namespace appkitglue {

namespace {

constexpr const char *unit = "PreferencesManager";

// The provider's fatal stops are known to hosts by these numbers, which therefore stay when the code moves.
constexpr int lineOfRefusedDelegate = 121;
constexpr int lineOfDecodingFailure = 134;
constexpr int lineOfEncodingFailure = 153;

} // namespace

const std::shared_ptr<RoutingSettingsProvider> &RoutingSettingsProvider::shared() {
    static NeverDestroyed<std::shared_ptr<RoutingSettingsProvider>> provider(
        std::make_shared<RoutingSettingsProvider>());
    return provider.get();
}

void RoutingSettingsProvider::setup(id delegate) {
    const SEL get = NSSelectorFromString(toNSString(SettingsKeys::selectorForGetPreferences));
    const SEL set = NSSelectorFromString(toNSString(SettingsKeys::selectorForSetPreferences));
    for (const SEL selector : {get, set}) {
        if (![delegate respondsToSelector:selector]) {
            fatalError(unit, lineOfRefusedDelegate, "The delegate has to conform to these three selectors");
        }
    }
    const RetainPtr<id> target(delegate);
    selectorGetPreferences_ = [target, get] {
        id values = [target.get() performSelector:get];
        return RetainPtr<NSData>([values isKindOfClass:[NSData class]] ? values : [NSData data]);
    };
    selectorSetPreferences_ = [target, set](NSData *values) { [target.get() performSelector:set withObject:values]; };
    const auto values = selectorGetPreferences_();
    auto decoded = SettingsPayload::decode(bytesOf(values.get()));
    if (!decoded) {
        fatalError(unit, lineOfDecodingFailure, decoded.error().description());
    }
    settings_ = std::move(*decoded);
    screens_.restoreScreenNames();
}

void RoutingSettingsProvider::update(bool SettingsPayload::*field, bool value, SettingsKeys affectedKey) {
    settings_.*field = value;
    send(affectedKey);
}

void RoutingSettingsProvider::update(std::string SettingsPayload::*field, std::string value, SettingsKeys affectedKey) {
    settings_.*field = std::move(value);
    send(affectedKey);
}

void RoutingSettingsProvider::update(double SettingsPayload::*field, double value, SettingsKeys affectedKey) {
    settings_.*field = value;
    send(affectedKey);
}

CurrentDisplayConfiguration &RoutingSettingsProvider::currentDisplayConfiguration() {
    return screens_.currentDisplayConfiguration();
}

std::vector<std::string> RoutingSettingsProvider::availableScreenNames() {
    return screens_.availableScreenNames();
}

void RoutingSettingsProvider::storeScreenSelection() {
    screens_.storeScreenSelection();
}

NSScreen *RoutingSettingsProvider::slideshowScreen() {
    return screens_.slideshowScreen();
}

NSScreen *RoutingSettingsProvider::presenterScreen() {
    return screens_.presenterScreen();
}

void RoutingSettingsProvider::send(SettingsKeys affectedKey) const {
    const auto message = changeMessage(settings_, affectedKey);
    if (!message) {
        fatalError(unit, lineOfEncodingFailure, message.error().description());
    }
    if (selectorSetPreferences_) {
        // A copy: the host may bind another delegate in answer.
        const auto set = selectorSetPreferences_;
        set(toNSData(*message));
    }
}

} // namespace appkitglue
