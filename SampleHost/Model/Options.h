// What the command line asks for.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace samplehost {

struct Options {
    /// Where the event log goes; empty for none.
    std::string log;
    /// The plug-in bundle; empty for the one beside the program.
    std::string bundle;
    /// Where to answer requests for a description of the windows; empty for nowhere. For tests and the tour.
    std::string describe;
    /// The appearance to start in, in place of the stored one; empty for that.
    std::string appearance;
    /// The time that clocks show, "10:05", with no seconds passing; empty for the real one. For pictures that can be
    /// compared.
    std::string clock;
    /// Start as if for the first time: without stored settings.
    bool freshDefaults = false;
    /// Leave the introduction closed even at a first start.
    bool withoutTutorial = false;
    bool help = false;
    /// The documents to open.
    std::vector<std::string> files;
    /// Why the command line cannot be understood; empty when it can.
    std::string error;
};

/// Reads the arguments after the program's name. `-Key value` pairs set defaults for this run and are not ours to read.
Options parseOptions(std::span<const char* const> arguments);

/// What `--help` prints.
std::string usage();

} // namespace samplehost
