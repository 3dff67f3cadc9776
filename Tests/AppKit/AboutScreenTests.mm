#import "AboutScreenView.h"
#import "Input.h"
#import "QVAboutScreen.h"
#import "RenderingSupport.h"
#import "ViewFonts.h"
#import "ViewRenderer.h"
#import "WeakObjCPtr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace appkitglue;
using test::buttonTitled;
using test::Shown;
using testing::ElementsAre;

@interface DismissCounter : NSObject {
@public
    int count;
    id sender;
}
- (void)dismissed:(id)from;
@end

@implementation DismissCounter
- (void)dismissed:(id)from {
    count++;
    sender = from;
}
@end

namespace {

// A program of the name xdg-open in front of PATH that notes the addresses it is given.
class RecordingOpener : public testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path() / ("opener-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "xdg-open") << "#!/bin/sh\nprintf '%s\\n' \"$1\" >> " << folder / "opened" << "\n";
        std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
        path = std::getenv("PATH");
        setenv("PATH", (folder.string() + ":" + path).c_str(), 1);
    }
    void TearDown() override {
        setenv("PATH", path.c_str(), 1);
        std::filesystem::remove_all(folder);
    }
    std::vector<std::string> opened() const {
        std::ifstream file(folder / "opened");
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }
    std::filesystem::path folder;
    std::string path;
};

TEST_F(RecordingOpener, OpenOpensTheProjectPage) {
    const auto screen = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
    [buttonTitled(screen.get(), @"Open") performClick:nil];
    EXPECT_TRUE(test::runUntil([&] { return !opened().empty(); }));
    EXPECT_THAT(opened(), ElementsAre("https://github.com/linebender/simplecss"));
}

TEST_F(RecordingOpener, AnAddressThatIsNoneOpensNothing) {
    const auto environment = ui::workspaceEnvironment();
    for (const char *address : {"", "not an address", "nothing", "\xFF"})
        Library{"n", "a", address}.open(environment);
    Library{"n", "a", "https://last.example"}.open(environment);
    EXPECT_TRUE(test::runUntil([&] { return !opened().empty(); }));
    EXPECT_THAT(opened(), ElementsAre("https://last.example"));
}

TEST(AboutScreenForHosts, CloseSendsTheActionOfTheMoment) {
    const auto screen = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
    QVLabelButton *const close = buttonTitled(screen.get(), @"Close");
    const auto counter = adoptNS([[DismissCounter alloc] init]);
    [close performClick:nil];
    [screen.get() setDismissTarget:counter.get()];
    [close performClick:nil];
    EXPECT_EQ(counter.get()->count, 0);
    [screen.get() setDismissAction:@selector(dismissed:)];
    [close performClick:nil];
    EXPECT_EQ(counter.get()->count, 1);
    EXPECT_EQ(counter.get()->sender, screen.get());
    [screen.get() setDismissAction:nullptr];
    [close performClick:nil];
    EXPECT_EQ(counter.get()->count, 1);
}

TEST(AboutScreenForHosts, DoesNotKeepTheTarget) {
    const auto screen = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
    @autoreleasepool {
        const auto counter = adoptNS([[DismissCounter alloc] init]);
        [screen.get() setDismissTarget:counter.get()];
        [screen.get() setDismissAction:@selector(dismissed:)];
        EXPECT_EQ([screen.get() dismissTarget], counter.get());
    }
    EXPECT_EQ([screen.get() dismissTarget], nil);
    [buttonTitled(screen.get(), @"Close") performClick:nil];
}

TEST(AboutScreenForHosts, ClosesItsWindowFromAnAction) {
    const auto controller = adoptNS([[QVAboutScreenViewController alloc] initWithNibName:nil bundle:nil]);
    QVAboutScreenView *const screen = [controller.get() aboutScreenView];
    Shown shown(screen);
    [screen setDismissTarget:shown.window.get()];
    [screen setDismissAction:@selector(close)];
    test::click(buttonTitled(screen, @"Close"));
    EXPECT_TRUE(test::runUntil([&] { return ![shown.window.get() isVisible]; }));
}

TEST(AboutScreenForHosts, IsFreedWithItsOwner) {
    WeakObjCPtr<NSView> screen;
    @autoreleasepool {
        const auto owned = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
        screen = owned.get();
    }
    EXPECT_FALSE(static_cast<bool>(screen));
}

double millisecondsOf(const std::function<void()> &work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

TEST(AboutScreenSize, TenThousandLibrariesAreShown) {
    for (const std::size_t count : {100U, 1'000U, 10'000U}) {
        AboutSection section{"Libraries", {}};
        for (std::size_t i = 0; i < count; i++)
            section.libraries.push_back({"Library " + std::to_string(i), "Author " + std::to_string(i % 100), "u"});
        const AboutScreenView screen{std::make_shared<AboutScreenState>()};
        const auto body = [&] { return screen.body({section}); };
        const auto environment = ui::appKitLayoutEnvironment();
        const double layout = millisecondsOf([&] { (void)ui::layOut(body(), {480, 560}, environment); });
        const auto view = adoptNS([[QVHostingView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
        const double build = millisecondsOf([&] { [view.get() showBody:body observing:screen.state environment:{}]; });
        const double resize = millisecondsOf([&] { [view.get() setFrameSize:NSMakeSize(500, 600)]; });
        EXPECT_EQ(test::all<QVLabelButton>(view.get()).size(), count + 1);
        std::printf("%zu libraries: described and laid out in %.1f ms, shown in %.1f ms, resized in %.1f ms\n", count,
                    layout, build, resize);
    }
}

} // namespace
