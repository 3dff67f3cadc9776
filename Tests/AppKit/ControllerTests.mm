#import "DocumentWindow.h"
#import "PreferencesManager.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

using namespace appkitglue;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// What the update framework's controller was asked, in order.
std::vector<std::string> updateLog;
id updateSender = nil;

} // namespace

/// Stands for the update framework, which the controller finds by this name.
@interface SPUStandardUpdaterController : NSObject
@end

@implementation SPUStandardUpdaterController
- (instancetype)initWithUpdaterDelegate:(id)updaterDelegate userDriverDelegate:(id)userDriverDelegate {
    updateLog.push_back(updaterDelegate == nil && userDriverDelegate == nil ? "init" : "init with delegates");
    return [super init];
}
- (void)checkForUpdates:(id)sender {
    updateLog.push_back("check");
    updateSender = sender;
}
- (void)dealloc {
    updateLog.push_back("dealloc");
    [super dealloc];
}
@end

TEST(SoftwareUpdate, IsCheckedOnceInAProcess) {
    @autoreleasepool {
        const auto first = adoptNS([[QVAppKitController alloc] init]);
        const auto second = adoptNS([[QVAppKitController alloc] init]);
        [first.get() checkForUpdates:nil];
        EXPECT_THAT(updateLog, ElementsAre("init", "check"));
        EXPECT_EQ(updateSender, [QVAppKitController class]);
        [first.get() checkForUpdates:nil];
        [second.get() checkForUpdates:nil];
    }
    EXPECT_THAT(updateLog, ElementsAre("init", "check"));
}

class Controller : public test::DocumentWindow {};

TEST_F(Controller, NamesTheNotifications) {
    EXPECT_EQ(toUTF8(OpenSampleDocumentNotification), "OpenSampleDocumentNotification");
    EXPECT_EQ(toUTF8(MetricsFromAppKitNotification), "MetricsFromAppKitNotification");
    EXPECT_EQ(toUTF8(ShowMacOSTutorialScreenNotification), "ShowMacOSTutorialScreenNotification");
}

TEST_F(Controller, KeepsTheDelegateUntilItIsCleared) {
    const NSUInteger bound = [host.get() retainCount];
    @autoreleasepool {
        [controller.get() clearWindowToolbar];
    }
    EXPECT_LT([host.get() retainCount], bound);
    EXPECT_EQ([host.get() retainCount], 1U);
}

TEST_F(Controller, ReleasesTheEarlierDelegateWhenAnotherIsBound) {
    const auto other = test::makeHost();
    @autoreleasepool {
        [controller.get() setupDelegate:other.get()];
    }
    EXPECT_EQ([host.get() retainCount], 1U);
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)]);
    [sender.get() setTag:3];
    [controller.get() toolbarTargetActionWithSender:sender.get()];
    EXPECT_THAT(host.get()->log, IsEmpty());
    EXPECT_THAT(other.get()->log, ElementsAre("action 3"));
}

TEST_F(Controller, SendsNothingBeforeADelegateIsBound) {
    const auto fresh = adoptNS([[QVAppKitController alloc] init]);
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)]);
    [sender.get() setTag:3];
    [fresh.get() setupToolbarInWindow:window.get()];
    [fresh.get() toolbarTargetActionWithSender:sender.get()];
    [fresh.get() toolbarPopoverActionWithSender:sender.get()];
    [fresh.get() searchFieldDidChangeWithSender:[[[NSTextField alloc] init] autorelease]];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

TEST_F(Controller, ClosesTheWindowThatTheHostWillNotKeep) {
    ASSERT_TRUE([window.get() isVisible]);
    [controller.get() setForceClose];
    EXPECT_TRUE([window.get() isVisible]);
    [controller.get() setupToolbarInWindow:nil];
    EXPECT_TRUE([window.get() isVisible]);
    [controller.get() setupToolbarInWindow:window.get()];
    EXPECT_FALSE([window.get() isVisible]);
    // It is remembered all the same.
    [controller.get() setupToolbarURL:[NSURL fileURLWithPath:@"/talks/talk.md"]];
    EXPECT_EQ(toUTF8([window.get() title]), "talk.md");
}

TEST_F(Controller, DoesNotKeepTheWindow) {
    const WeakObjCPtr<NSWindow> weak(window.get());
    dropWindow();
    EXPECT_FALSE(weak);
}

TEST_F(Controller, GivesTheWindowTheNamedAppearance) {
    [controller.get() forceUserInterfaceStyle:@"dark"];
    EXPECT_EQ(toUTF8([[window.get() appearance] name]), toUTF8(NSAppearanceNameDarkAqua));
    [controller.get() forceUserInterfaceStyle:@"light"];
    EXPECT_EQ(toUTF8([[window.get() appearance] name]), toUTF8(NSAppearanceNameAqua));
    [controller.get() forceUserInterfaceStyle:@"auto"];
    EXPECT_EQ([window.get() appearance], nil);
}

TEST_F(Controller, PrintsAnAppearanceThatItDoesNotKnow) {
    [controller.get() forceUserInterfaceStyle:@"dark"];
    testing::internal::CaptureStdout();
    [controller.get() forceUserInterfaceStyle:@"Dark"];
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Unknown appearance value: Dark\n");
    EXPECT_EQ(toUTF8([[window.get() appearance] name]), toUTF8(NSAppearanceNameDarkAqua));
}

TEST_F(Controller, NamesTheHardwareAndNoSystemVersion) {
    EXPECT_EQ(toUTF8([QVAppKitController determineMacOSVersion]), platform::hardwareModel().value_or(""));
}

/// Notes what it is asked in place of the application.
@interface QuietApplication : NSApplication
@end

namespace {
std::vector<id> terminations;
} // namespace

@implementation QuietApplication
- (void)terminate:(id)sender {
    terminations.push_back(sender);
}
@end

TEST_F(Controller, AsksTheApplicationToTerminate) {
    const Class real = object_setClass([NSApplication sharedApplication], [QuietApplication class]);
    [QVAppKitController terminateApp];
    [QVAppKitController terminateApplication];
    object_setClass(NSApp, real);
    EXPECT_THAT(terminations, ElementsAre(nil, nil));
}

class FontSize : public testing::Test {
protected:
    FontSize() { [QVAppKitController setupPreferencesDelegate:host.get()]; }

    void start(double size) {
        SettingsPayload settings;
        settings.editorFontSize = size;
        [host.get() answerWith:settings];
        [QVAppKitController setupPreferencesDelegate:host.get()];
    }

    std::vector<double> sent() const {
        std::vector<double> sizes;
        for (const SettingsPayload &change : host.get()->changes) {
            EXPECT_EQ(change.affectedKey, "editorFontSize");
            sizes.push_back(change.editorFontSize);
        }
        return sizes;
    }

    RetainPtr<RecordingHost> host = test::makeHost();
};

TEST_F(FontSize, GrowsByTwoPointsWithoutLimit) {
    start(8);
    [QVAppKitController increaseFontSize];
    start(1000);
    [QVAppKitController increaseFontSize];
    EXPECT_THAT(sent(), ElementsAre(10.0, 1002.0));
    EXPECT_EQ(RoutingSettingsProvider::shared()->settings().editorFontSize, 1002.0);
}

TEST_F(FontSize, ShrinksByTwoPointsDownToEight) {
    start(10);
    [QVAppKitController decreaseFontSize];
    [QVAppKitController decreaseFontSize];
    EXPECT_THAT(sent(), ElementsAre(8.0));
}

TEST_F(FontSize, StaysWhenItIsBelowTen) {
    for (const double size : {9.99, 9.0, 8.0}) {
        start(size);
        [QVAppKitController decreaseFontSize];
        EXPECT_EQ(RoutingSettingsProvider::shared()->settings().editorFontSize, size);
    }
    EXPECT_THAT(sent(), IsEmpty());
}

TEST(ControllerStops, ForADelegateWithoutOneOfTheThreeSelectors) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto host = test::makeHost();
    const auto controller = adoptNS([[QVAppKitController alloc] init]);
    for (const SEL missing : {
             @selector(toolbarActionForAction:), @selector(toolbarActionForSearch:),
                 @selector(toolbarActionForPopover:CGRect:)
         }) {
        host.get()->missing = missing;
        EXPECT_EXIT([controller.get() setupDelegate:host.get()], testing::KilledBySignal(SIGABRT),
                    testing::ContainsRegex("AppKitGlue/ToolbarManager:[0-9]+: Fatal error: "
                                           "The delegate has to conform to these three selectors\n"));
    }
}
