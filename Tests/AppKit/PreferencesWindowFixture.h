// The Preferences window as a host opens it, and what a user does in it.
#pragma once

#import "PreferencesWindowController.h"
#import "RecordingHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

class PreferencesWindowFixture : public testing::Test {
protected:
    PreferencesWindowFixture();
    ~PreferencesWindowFixture() override;

    /// Has the host answer with `settings` and binds it.
    void bind(const appkitglue::SettingsPayload &settings);
    /// Binds and opens the window; waits until it is on the screen.
    void open(const appkitglue::SettingsPayload &settings);
    void open() { open(settings()); }
    /// Settings with all lists filled and no two members alike.
    static appkitglue::SettingsPayload settings();

    static PreferencesWindowController *controller() { return [PreferencesWindowController current]; }
    static NSWindow *window() { return [controller() window]; }
    static std::string selectedTab();
    /// The index of the item that the toolbar shows as selected; -1 for none.
    static int selectedItem();
    /// Presses a toolbar item by its label.
    static void press(const std::string &label);
    static GeneralSettingsViewController *general() { return [controller() generalViewController]; }
    static EditorSettingsViewController *editor() { return [controller() editorViewController]; }
    static PresenterSettingsViewController *slideshow() { return [controller() presenterViewController]; }
    static AboutSettingsViewController *about() { return [controller() aboutViewController]; }

    /// What the host must have received after `change` was made to what it answered with.
    appkitglue::SettingsPayload changed(const std::string &key,
                                        const std::function<void(appkitglue::SettingsPayload &)> &change) const;

    appkitglue::RetainPtr<RecordingHost> host = makeHost();

private:
    appkitglue::SettingsPayload bound_;
};

/// The titles of a pop-up button and the one that is selected ("" for none).
std::vector<std::string> titlesOf(NSPopUpButton *button);
std::string selectedTitleOf(NSPopUpButton *button);
/// Chooses an entry as a user does: the selection moves, then the action is sent.
void choose(NSPopUpButton *button, const std::string &title);
/// The windows on screen with that title.
std::vector<NSWindow *> visibleWindows(const std::string &title);
/// Writes a plain PNG image of that size and returns its path. The folder is the test program's own.
std::string writePicture(const std::string &name, int width, int height);
/// A path in that folder.
std::string temporaryPath(const std::string &name);

} // namespace test
