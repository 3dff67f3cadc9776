// The command that opens the startup tutorial.
#import "DocumentWindow.h"
#import "StartupTutorialWindowController.h"
#import "TestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using namespace appkitglue;

namespace {

std::vector<NSWindow *> visibleTutorials() {
    std::vector<NSWindow *> result;
    for (NSWindow *window in [NSApp windows]) {
        if ([window isVisible] && [[window windowController] isKindOfClass:[StartupTutorialWindowController class]]) {
            result.push_back(window);
        }
    }
    return result;
}

} // namespace

class TutorialCommands : public test::DocumentWindow {
protected:
    ~TutorialCommands() override {
        for (NSWindow *window : visibleTutorials()) {
            [window close];
        }
        [controller.get() clearWindowToolbar];
    }
};

namespace {

/// The windows that are on screen now.
std::vector<RetainPtr<NSWindow>> windowsOnScreen() {
    std::vector<RetainPtr<NSWindow>> result;
    for (NSWindow *window in [NSApp windows]) {
        if ([window isVisible]) {
            result.emplace_back(window);
        }
    }
    return result;
}

} // namespace

TEST_F(TutorialCommands, OpenAWindowEachTime) {
    const std::size_t before = windowsOnScreen().size();
    @autoreleasepool {
        [QVAppKitController showTutorialWindow];
    }
    EXPECT_EQ(windowsOnScreen().size(), before + 1);
    @autoreleasepool {
        [QVAppKitController showTutorialWindow];
    }
    EXPECT_EQ(windowsOnScreen().size(), before + 2);
    @autoreleasepool {
        [controller.get() clearWindowToolbar];
    }
    EXPECT_EQ(windowsOnScreen().size(), before + 2);
    for (const auto &shown : windowsOnScreen()) {
        if (shown != window.get()) {
            [shown.get() close];
        }
    }
}

TEST_F(TutorialCommands, KeepTheLastControllerUntilTheWindowIsCleared) {
    WeakObjCPtr<NSWindowController> first;
    WeakObjCPtr<NSWindowController> last;
    @autoreleasepool {
        [QVAppKitController showTutorialWindow];
        first = [visibleTutorials().at(0) windowController];
        [QVAppKitController showTutorialWindow];
        for (NSWindow *shown : visibleTutorials()) {
            if ([shown windowController] != first.get().get()) {
                last = [shown windowController];
            }
        }
    }
    EXPECT_TRUE(test::runUntil([&first] { return !first; }));
    EXPECT_TRUE(last);
    @autoreleasepool {
        [controller.get() clearWindowToolbar];
    }
    EXPECT_TRUE(test::runUntil([&last] { return !last; }));
}
