#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <gmock/gmock.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <regex>

using namespace appkitglue;
using testing::HasSubstr;
using testing::KilledBySignal;

namespace {

class PreferencesFault : public test::PreferencesWindowFixture {
protected:
    PreferencesFault() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    // The interface file without the outlet of that name.
    static std::string fileWithout(const std::string &outlet) {
        std::ifstream original(test::bundlePath() + "/Resources/Preferences.xib");
        std::string text{std::istreambuf_iterator<char>(original), std::istreambuf_iterator<char>()};
        const std::regex line("\\n *<outlet property=\"" + outlet + "\"[^\\n]*");
        EXPECT_TRUE(std::regex_search(text, line)) << outlet;
        const std::string path = test::temporaryPath("Preferences.xib");
        std::ofstream(path) << std::regex_replace(text, line, "");
        return path;
    }

    // Shows all tabs of a window from that file.
    static void show(const std::string &path, bool withProvider) {
        auto *controller = [PreferencesWindowController alloc];
        controller = [controller initWithWindowNibPath:toNSString(path) owner:controller];
        if (withProvider) {
            [controller setProvider:RoutingSettingsProvider::shared()];
        }
        [controller showWindow:nil];
        [controller didSelectEditorTabWithSender:nil];
        [controller didSelectSlideshowTabWithSender:nil];
        [controller didSelectAboutTabWithSender:nil];
        std::_Exit(0);
    }
};

TEST_F(PreferencesFault, IsAMissingOutlet) {
    bind(settings());
    for (const char *outlet : {"tabView", "theme", "heightConstraint"}) {
        const std::string path = fileWithout(outlet);
        EXPECT_EXIT(show(path, true), KilledBySignal(SIGABRT),
                    HasSubstr(std::string("Fatal error: The outlet ") + outlet + " is not connected"));
    }
}

TEST_F(PreferencesFault, IsAMissingProvider) {
    EXPECT_EXIT(show(test::bundlePath() + "/Resources/Preferences.xib", false), KilledBySignal(SIGABRT),
                HasSubstr("Fatal error: The field provider is not set"));
}

TEST_F(PreferencesFault, IsNoMissingPreview) {
    bind(settings());
    const std::string path = fileWithout("preview3");
    EXPECT_EXIT(show(path, true), testing::ExitedWithCode(0), "");
}

TEST_F(PreferencesFault, IsAStoreThatIsMissingWhenATabAppears) {
    const auto controller = adoptNS([[EditorSettingsViewController alloc] initWithNibName:nil bundle:nil]);
    EXPECT_EXIT([controller.get() viewWillAppear], KilledBySignal(SIGABRT),
                HasSubstr("Fatal error: The field store is not set"));
}

} // namespace
