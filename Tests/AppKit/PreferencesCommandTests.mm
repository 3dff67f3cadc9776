// The commands that open the Preferences window and change what it shows.
#import "DocumentWindow.h"
#import "PreferencesWindowController.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

using namespace appkitglue;

namespace {

NSInteger selectedTab() {
    NSTabView *tabView = [[PreferencesWindowController current] tabView];
    return [tabView indexOfTabViewItem:[tabView selectedTabViewItem]];
}

std::vector<NSWindow *> visibleWindows(Class controllerClass) {
    std::vector<NSWindow *> result;
    for (NSWindow *window in [NSApp windows]) {
        if ([window isVisible] && [[window windowController] isKindOfClass:controllerClass]) {
            result.push_back(window);
        }
    }
    return result;
}

} // namespace

class PreferencesCommands : public test::DocumentWindow {
protected:
    PreferencesCommands() {
        SettingsPayload settings = test::distinctSettings();
        settings.editorFontName = toUTF8([[NSFont userFontOfSize:12] fontName]);
        settings.editorFontSize = 12;
        [host.get() answerWith:settings];
        [QVAppKitController setupPreferencesDelegate:host.get()];
    }
    ~PreferencesCommands() override { [[PreferencesWindowController current] close]; }
};

TEST_F(PreferencesCommands, LeaveOneWindowTheNewOne) {
    [QVAppKitController showPreferences];
    const auto first = retainPtr([PreferencesWindowController current]);
    EXPECT_EQ(selectedTab(), 0);
    [QVAppKitController showPreferences];
    const auto second = retainPtr([PreferencesWindowController current]);
    EXPECT_NE(first.get(), second.get());
    EXPECT_FALSE([[first.get() window] isVisible]);
    EXPECT_THAT(visibleWindows([PreferencesWindowController class]), testing::ElementsAre([second.get() window]));
}

TEST_F(PreferencesCommands, ShowATabsSymbolInItsToolbarItem) {
    [QVAppKitController showPreferences];
    for (NSToolbarItem *item in [[[[PreferencesWindowController current] window] toolbar] items]) {
        EXPECT_NE([item image], nil) << toUTF8([item label]);
    }
}

TEST_F(PreferencesCommands, SelectTheAboutTabOneTurnLater) {
    [QVAppKitController showAboutScreen];
    EXPECT_EQ(selectedTab(), 0);
    EXPECT_TRUE(test::runUntil([] { return selectedTab() == 3; }));
}

TEST_F(PreferencesCommands, DressTheOpenWindowToo) {
    [QVAppKitController showPreferences];
    NSWindow *preferences = [[PreferencesWindowController current] window];
    [controller.get() forceUserInterfaceStyle:@"dark"];
    EXPECT_EQ(toUTF8([[preferences appearance] name]), toUTF8(NSAppearanceNameDarkAqua));
    [controller.get() forceUserInterfaceStyle:@"Dark"];
    EXPECT_EQ(toUTF8([[preferences appearance] name]), toUTF8(NSAppearanceNameDarkAqua));
    [controller.get() forceUserInterfaceStyle:@"light"];
    EXPECT_EQ(toUTF8([[preferences appearance] name]), toUTF8(NSAppearanceNameAqua));
    [controller.get() forceUserInterfaceStyle:@"auto"];
    EXPECT_EQ([preferences appearance], nil);
}

TEST_F(PreferencesCommands, DressTheOpenWindowWhenTheDocumentIsGone) {
    dropWindow();
    [QVAppKitController showPreferences];
    [controller.get() forceUserInterfaceStyle:@"dark"];
    EXPECT_EQ(toUTF8([[[[PreferencesWindowController current] window] appearance] name]),
              toUTF8(NSAppearanceNameDarkAqua));
}

TEST_F(PreferencesCommands, ShowANewFontSizeInTheEditorTab) {
    [QVAppKitController showPreferences];
    [[PreferencesWindowController current] didSelectEditorTabWithSender:nil];
    NSTextField *field = [[[PreferencesWindowController current] editorViewController] fontNameField];
    EXPECT_TRUE(test::runUntil([field] { return [[field stringValue] hasSuffix:@", 12.0"]; }));
    [QVAppKitController increaseFontSize];
    EXPECT_TRUE([[field stringValue] hasSuffix:@", 14.0"]) << toUTF8([field stringValue]);
    [QVAppKitController decreaseFontSize];
    EXPECT_TRUE([[field stringValue] hasSuffix:@", 12.0"]) << toUTF8([field stringValue]);
}

TEST_F(PreferencesCommands, StopForAWindowWithoutEditorTab) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    [QVAppKitController showPreferences];
    [[PreferencesWindowController current] setEditorViewController:nil];
    EXPECT_EXIT(
        [QVAppKitController increaseFontSize], testing::KilledBySignal(SIGABRT),
        testing::ContainsRegex("AppKitGlue/PreferencesWindowController:[0-9]+: Fatal error: .*editorViewController"));
}
