#import "SHAppDelegate.h"

#import "Clock.h"
#import "WindowDescription.h"

#include "FlatTheme.h"
#include "Options.h"

#include <cstdio>
#include <span>

int main(int argc, const char **argv) {
    const auto arguments = std::span(argv, static_cast<std::size_t>(argc));
    const auto options = samplehost::parseOptions(arguments.subspan(arguments.empty() ? 0 : 1));
    if (options.help || !options.error.empty()) {
        std::fputs((options.error.empty() ? "" : "SampleHost: " + options.error + "\n").c_str(), stderr);
        std::fputs(samplehost::usage().c_str(), options.help ? stdout : stderr);
        return options.help ? 0 : 2;
    }
    @autoreleasepool {
        flattheme::registerDefaults();
        NSApplication *application = [NSApplication sharedApplication];
        const auto delegate = samplehost::own([[SHAppDelegate alloc] initWithOptions:options]);
        [application setDelegate:static_cast<id>(delegate.get())];
        if (!options.clock.empty()) {
            samplehost::stopClocks(options.clock);
        }
        if (!options.describe.empty()) {
            samplehost::answerDescriptionRequests(options.describe);
        }
        [application run];
    }
    return 0;
}
