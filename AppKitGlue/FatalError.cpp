#include "FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace appkitglue {

void fatalError(std::string_view unit, int line, std::string_view message) noexcept {
    std::string text = "AppKitGlue/";
    text.append(unit).append(":").append(std::to_string(line)).append(": Fatal error: ").append(message).append("\n");
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
    std::abort();
}

} // namespace appkitglue
