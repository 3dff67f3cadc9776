// Installs the hooks of the completions, once.
#import "Platform.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace platform {

// Declares and calls what the list of installers names. A completion that this GNUstep does not need is left out of the
// build.
#define QV_INSTALL(function) [[gnu::weak]] void function();
#include "Installers.h"
#undef QV_INSTALL

void prepareAppKit() {
    static bool prepared = false;
    if (std::exchange(prepared, true)) {
        return;
    }
#define QV_INSTALL(function)                                                                                           \
    if (function != nullptr) {                                                                                         \
        function();                                                                                                    \
    }
#include "Installers.h"
#undef QV_INSTALL
}

std::optional<std::string> hardwareModel() {
    // The firmware's product name; a device tree's model where there is no such firmware.
    for (const char *path : {"/sys/devices/virtual/dmi/id/product_name", "/proc/device-tree/model"}) {
        std::ifstream file(path, std::ios::binary);
        std::string name{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        name.erase(std::find_if(name.begin(), name.end(), [](char c) { return c == '\0' || c == '\n'; }), name.end());
        if (!name.empty() && [NSString stringWithUTF8String:name.c_str()] != nil) {
            return name;
        }
    }
    return std::nullopt;
}

} // namespace platform
