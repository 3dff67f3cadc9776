// A document window with a toolbar, as a host makes it, and the controller that serves it.
#pragma once

#import "RecordingHost.h"

#import "QVAppKitController.h"

#include "RetainPtr.h"
#include "WeakObjCPtr.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

/// A window of 1000 x 800 points with a real toolbar, a controller and a recording host, bound to each other. The
/// toolbar shows the controller's default items.
class DocumentWindow : public testing::Test {
protected:
    DocumentWindow();
    ~DocumentWindow() override;

    /// Puts an item into the toolbar that is not among the default ones. Returns it.
    NSToolbarItem *addItem(NSString *identifier);
    /// The toolbar's item with this identifier, or nil.
    NSToolbarItem *item(NSString *identifier) const;
    /// What a user presses for the item: its own button, or the one that the toolbar made for it.
    NSButton *button(NSToolbarItem *item) const;
    /// The rectangle of a view in its window, as the popover callback reports it.
    std::string popoverEntry(int code, NSView *view) const;
    /// Whether the image is that system symbol.
    static bool shows(NSImage *image, const char *symbol);
    /// Closes and releases the window, so that nobody holds it.
    void dropWindow();

    appkitglue::RetainPtr<NSWindow> window;
    appkitglue::RetainPtr<NSToolbar> toolbar;
    appkitglue::RetainPtr<RecordingHost> host = makeHost();
    appkitglue::RetainPtr<QVAppKitController> controller;
};

} // namespace test
