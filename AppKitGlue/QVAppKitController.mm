#import "QVAppKitController+Private.h"

#import "MouseMoveManager.h"
#import "PreferencesManager.h"
#import "PreferencesWindowController.h"
#import "StartupTutorialWindowController.h"

#include "FatalError.h"
#include "NeverDestroyed.h"
#include "StringBridging.h"

#include <cstdio>
#include <memory>

using namespace appkitglue;

NSString *const OpenSampleDocumentNotification = @"OpenSampleDocumentNotification";
NSString *const MetricsFromAppKitNotification = @"MetricsFromAppKitNotification";
NSString *const ShowMacOSTutorialScreenNotification = @"ShowMacOSTutorialScreenNotification";

/// The part of the update framework's controller that is used. It is found at run time, because a host may lack it.
@protocol SoftwareUpdaterController
- (instancetype)initWithUpdaterDelegate:(id)updaterDelegate userDriverDelegate:(id)userDriverDelegate;
- (void)checkForUpdates:(id)sender;
@end

namespace {

constexpr double fontSizeStep = 2.0;
constexpr double smallestFontSizeToDecrease = 10.0;

/// Adds `change` points to the editor font size, tells the host and refreshes an open Editor tab.
void changeFontSize(double change) {
    RoutingSettingsProvider &provider = *RoutingSettingsProvider::shared();
    provider.update(&SettingsPayload::editorFontSize, provider.settings().editorFontSize + change,
                    SettingsKeys::editorFontSize);
    [[PreferencesWindowController current] refreshEditorFont];
}

/// Whether the update check was started; once true it stays so.
bool updateStarted = false;

/// The update controller, kept for the life of the process.
RetainPtr<id> &updateController() {
    static NeverDestroyed<RetainPtr<id>> controller;
    return controller.get();
}

} // namespace

namespace appkitglue {

RetainPtr<NSWindowController> &currentTutorialWindowController() {
    static NeverDestroyed<RetainPtr<NSWindowController>> controller;
    return controller.get();
}

} // namespace appkitglue

@implementation QVAppKitController

- (instancetype)init {
    platform::prepareAppKit();
    self = [super init];
    if (self != nil) {
        auto state = std::make_unique<QVAppKitControllerState>();
        state->mouseMoveManager = adoptNS([[MouseMoveManager alloc] init]);
        _state = state.release(); // taken back in dealloc
    }
    return self;
}

- (void)dealloc {
    std::unique_ptr<QVAppKitControllerState>(_state).reset();
    [super dealloc];
}

- (void)setupDelegate:(id)delegate {
    const SEL forAction = NSSelectorFromString(toNSString(ToolbarAction::selectorForAction));
    const SEL forSearch = NSSelectorFromString(toNSString(ToolbarAction::selectorForSearch));
    const SEL forPopover = NSSelectorFromString(toNSString(ToolbarAction::selectorForPopover));
    for (const SEL selector : {forAction, forSearch, forPopover}) {
        if (![delegate respondsToSelector:selector]) {
            fatalError("ToolbarManager", __LINE__, "The delegate has to conform to these three selectors");
        }
    }
    const RetainPtr<id> target(delegate);
    _state->selectorAction = [target, forAction](ToolbarAction action) {
        [target.get() performSelector:forAction withObject:@(action.rawValue())];
    };
    _state->selectorSearch = [target, forSearch](NSString *text) {
        [target.get() performSelector:forSearch withObject:text];
    };
    _state->selectorPopover = [target, forPopover](ToolbarAction action, NSRect rect) {
        [target.get() performSelector:forPopover
                           withObject:@(action.rawValue())
                           withObject:[NSValue valueWithRect:rect]];
    };
}

- (void)checkForUpdates:(id)sender {
    if (updateStarted) {
        return;
    }
    updateStarted = true;
    const Class updater = NSClassFromString(@"SPUStandardUpdaterController");
    updateController() =
        RetainPtr<id>::adopt([static_cast<id<SoftwareUpdaterController>>([updater alloc]) initWithUpdaterDelegate:nil
                                                                                               userDriverDelegate:nil]);
    [static_cast<id<SoftwareUpdaterController>>(updateController().get()) checkForUpdates:[self class]];
}

- (void)setForceClose {
    _state->shouldCloseOnLoad = true;
}

- (void)forceUserInterfaceStyle:(NSString *)style {
    NSAppearance *appearance = nil;
    if ([style isEqual:@"light"]) {
        appearance = [NSAppearance appearanceNamed:NSAppearanceNameAqua];
    } else if ([style isEqual:@"dark"]) {
        appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    } else if (![style isEqual:@"auto"]) {
        std::printf("Unknown appearance value: %s\n", toUTF8([style description]).c_str());
        std::fflush(stdout);
        return;
    }
    [[self documentWindow].get() setAppearance:appearance];
    [[[PreferencesWindowController current] window] setAppearance:appearance];
}

+ (void)terminateApp {
    platform::prepareAppKit();
    [[NSApplication sharedApplication] terminate:nil];
}

+ (void)terminateApplication {
    [self terminateApp];
}

+ (void)setupPreferencesDelegate:(id)delegate {
    platform::prepareAppKit();
    RoutingSettingsProvider::shared()->setup(delegate);
}

+ (void)showPreferences {
    platform::prepareAppKit();
    [PreferencesWindowController openPreferences];
}

+ (void)showAboutScreen {
    platform::prepareAppKit();
    [PreferencesWindowController openPreferencesOnAbout];
}

+ (void)showTutorialWindow {
    platform::prepareAppKit();
    const auto controller =
        adoptNS([[StartupTutorialWindowController alloc] initWithWindowNibName:@"StartupTutorialMacOS"]);
    [controller.get() showWindow:nil];
    currentTutorialWindowController() = controller;
}

+ (void)increaseFontSize {
    platform::prepareAppKit();
    changeFontSize(fontSizeStep);
}

+ (void)decreaseFontSize {
    platform::prepareAppKit();
    if (RoutingSettingsProvider::shared()->settings().editorFontSize >= smallestFontSizeToDecrease) {
        changeFontSize(-fontSizeStep);
    }
}

+ (NSString *)determineMacOSVersion {
    return toNSString(platform::hardwareModel().value_or(""));
}

@end

@implementation QVAppKitController (Private)

- (QVAppKitControllerState *)state {
    return _state;
}

- (RetainPtr<NSWindow>)documentWindow {
    return _state->window.get();
}

@end
