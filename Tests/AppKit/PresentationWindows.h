// A document window and a slides window of one colour each, the controller between them, and real displays.
#pragma once

#import "Displays.h"
#import "Platform.h"
#import "PreferencesManager.h"
#import "QVAppKitController.h"
#import "StringBridging.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

/// Records what it is sent, and can claim to have no screen or no content.
@interface QVPresentedWindow : NSWindow {
@public
    BOOL _hidesScreen;
    BOOL _hidesContent;
    int _broughtToFront;
    NSMutableArray *_events; // left mouse button, up and down
}
@end

namespace test {

/// Starts each test on two displays with nothing chosen; ends the presentation after each.
class PresentationWindows : public testing::Test {
protected:
    static constexpr unsigned documentColour = 0x204080;
    static constexpr unsigned slidesColour = 0xc06020;

    void SetUp() override;
    void TearDown() override;

    static NSScreen *screen(NSUInteger index);
    /// Waits until the screen shows nothing but the colour, as far as its middle and its corners tell.
    static bool shows(unsigned colour, NSUInteger screenIndex);
    /// Stores a choice by display names.
    static void store(const std::string &presenter, const std::string &slideshow);
    static appkitglue::RoutingSettingsProvider &provider();

    QVPresentedWindow *document_ = nil;
    QVPresentedWindow *slides_ = nil;
    QVAppKitController *controller_ = nil;
};

} // namespace test
