// Installs the hooks of the completions, once.
#import "Platform.h"

#include "HardwareModel.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace platform {

// NOLINTBEGIN(bugprone-macro-parentheses): they would make a declaration of the call.
// Declares and calls what the list of installers names. A completion that this GNUstep does not need is left out of the
// build.
#define QV_INSTALL(function) [[gnu::weak]] void function();
#include "Installers.h"
#undef QV_INSTALL

void prepareAppKit() {
    static bool prepared = false;
    // Some of AppKit's classes want the window server as soon as they are looked at. Without an application object
    // there is none, and a later call does the work.
    if (NSApp == nil || std::exchange(prepared, true)) {
        return;
    }
#define QV_INSTALL(function)                                                                                           \
    if (function != nullptr) {                                                                                         \
        function();                                                                                                    \
    }
#include "Installers.h"
#undef QV_INSTALL
}

// NOLINTEND(bugprone-macro-parentheses)

std::optional<std::string> hardwareModel() {
    // The firmware's product name; a device tree's model where there is no such firmware.
    return firstModelName({"/sys/devices/virtual/dmi/id/product_name", "/proc/device-tree/model"});
}

std::optional<std::string> firstModelName(std::initializer_list<std::string> paths) {
    for (const std::string &path : paths) {
        std::ifstream file(path, std::ios::binary);
        std::string name{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        name.erase(std::find_if(name.begin(), name.end(), [](char c) { return c == '\0' || c == '\n'; }), name.end());
        if (name.empty()) {
            continue;
        }
        NSString *text = [[NSString alloc] initWithBytes:name.data() length:name.size() encoding:NSUTF8StringEncoding];
        [text release];
        return text != nil ? std::optional(std::move(name)) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace platform
