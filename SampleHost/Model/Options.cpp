#include "Options.h"

#include <array>
#include <string_view>
#include <utility>

namespace samplehost {

namespace {

/// Reads a flag without a value. Returns whether `argument` is one.
bool readFlag(std::string_view argument, Options& options) {
    const std::array<std::pair<std::string_view, bool*>, 4> flags{{{"--defaults-fresh", &options.freshDefaults},
                                                                   {"--no-tutorial", &options.withoutTutorial},
                                                                   {"--help", &options.help},
                                                                   {"-h", &options.help}}};
    for (const auto& [name, flag] : flags) {
        if (argument == name) {
            *flag = true;
            return true;
        }
    }
    return false;
}

} // namespace

Options parseOptions(std::span<const char* const> arguments) {
    Options options;
    const std::array<std::pair<std::string_view, std::string*>, 5> values{{{"--log", &options.log},
                                                                           {"--bundle", &options.bundle},
                                                                           {"--describe", &options.describe},
                                                                           {"--clock", &options.clock},
                                                                           {"--appearance", &options.appearance}}};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (readFlag(argument, options)) {
            continue;
        }
        bool known = false;
        for (const auto& [name, value] : values) {
            if (argument == name) {
                known = true;
                if (++i < arguments.size()) {
                    *value = arguments[i];
                } else {
                    options.error = std::string(argument) + " needs a value";
                }
            }
        }
        if (known) {
            continue;
        }
        if (argument.starts_with("--")) {
            options.error = "unknown option " + std::string(argument);
        } else if (argument.starts_with('-') && argument.size() > 1) {
            ++i;
        } else if (!argument.empty()) {
            options.files.emplace_back(argument);
        }
    }
    return options;
}

std::string usage() {
    return "Usage: SampleHost [OPTION...] [FILE.md...]\n\n"
           "  --log FILE         append one JSON line for each message from the plug-in to FILE\n"
           "  --bundle PATH      load this plug-in instead of the one beside the program\n"
           "  --describe FILE    tell in FILE where everything is on screen, whenever FILE.request appears\n"
           "  --appearance NAME  start in this appearance: light, dark or auto\n"
           "  --clock HH:MM      stop the clocks at this time\n"
           "  --defaults-fresh   forget the stored settings first\n"
           "  --no-tutorial      do not show the introduction at a first start\n"
           "  --help             print this text\n";
}

} // namespace samplehost
