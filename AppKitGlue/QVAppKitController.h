// The bundle's principal class: what a host creates, calls and is called back by.
//
// Everything here belongs to the main thread. Loading the bundle starts nothing; the first use does.
#pragma once

#import "NSToolbarDelegate.h"

#pragma clang assume_nonnull begin

/// Posted without object when the user asks for the sample document in the startup tutorial. No user info.
FOUNDATION_EXPORT NSString *const OpenSampleDocumentNotification;
/// Posted without object when the startup tutorial closes. User info: "metric" and "payload", both strings.
FOUNDATION_EXPORT NSString *const MetricsFromAppKitNotification;
/// A name for the host's own use: the bundle never posts it.
FOUNDATION_EXPORT NSString *const ShowMacOSTutorialScreenNotification;

/// What the object given to `setupDelegate:` must respond to. It need not adopt this protocol: the selectors count.
@protocol QVAppKitControllerDelegate <NSObject>
/// A toolbar item, the insert button or a menu entry was used. `action` holds the integer code, 1 to 22.
- (void)toolbarActionForAction:(NSNumber *)action;
/// The search field changed to `text`; nil means that it is empty.
- (void)toolbarActionForSearch:(nullable NSString *)text;
/// A popover is wanted. `action` holds the integer code; `rect` holds a rectangle: x scaled by 1/0.77, y in points from
/// the top of the window, width 4, height that of the button in points.
- (void)toolbarActionForPopover:(NSNumber *)action CGRect:(NSValue *)rect;
@end

/// What the object given to `+setupPreferencesDelegate:` must respond to; again only the selectors count.
@protocol QVPreferencesDelegate <NSObject>
/// The settings record as JSON data. Asked once for each `+setupPreferencesDelegate:`.
- (nullable NSData *)preferenceValues;
/// The whole record as JSON data, with the changed key named in "affectedKey". Sent at once for every change.
- (void)setPreferencesValues:(NSData *)values;
@end

struct QVAppKitControllerState;

/// One per document window of the host. Serves as the delegate of the window's toolbar, which the host creates.
@interface QVAppKitController : NSObject {
@private
    struct QVAppKitControllerState *_state;
}

/// A controller without window and delegate.
- (instancetype)init;

/// Binds the toolbar callbacks to `delegate`, which is retained until `clearWindowToolbar` or the next binding. A
/// delegate that lacks one of the selectors of `QVAppKitControllerDelegate` ends the process.
- (void)setupDelegate:(id)delegate;

/// Starts the software update check, at most once in a process; later calls do nothing, and so does the first one in a
/// host without the update framework.
- (void)checkForUpdates:(nullable id)sender;

/// Makes the next `setupToolbarInWindow:` close the window that it is given.
- (void)setForceClose;

/// "light", "dark" or "auto", for the document window and an open Preferences window. Another value is printed to
/// standard output and changes nothing.
- (void)forceUserInterfaceStyle:(nullable NSString *)style;

/// Asks the application to terminate.
+ (void)terminateApp;
/// The same as `terminateApp`.
+ (void)terminateApplication;

/// Binds the settings to `delegate`, which is retained from then on, and reads them. A delegate that lacks a selector
/// of `QVPreferencesDelegate`, or that gives a record which cannot be decoded, ends the process.
+ (void)setupPreferencesDelegate:(id)delegate;

/// Opens a fresh Preferences window; an open one is closed first.
+ (void)showPreferences;
/// Opens a fresh Preferences window; a turn of the main queue later its About tab is selected.
+ (void)showAboutScreen;
/// Opens a new startup tutorial window. Only the controller of the last one is kept.
+ (void)showTutorialWindow;

/// Makes the editor font two points larger. No upper limit.
+ (void)increaseFontSize;
/// Makes the editor font two points smaller if it has at least ten.
+ (void)decreaseFontSize;

/// The machine's hardware model (no system version, whatever the name says); "" when the system does not tell.
+ (NSString *)determineMacOSVersion;

@end

/// The toolbar's side of the controller. As the toolbar's delegate it makes the items; an identifier that it does not
/// know ends the process.
@interface QVAppKitController (Toolbar) <NSToolbarDelegate>

/// Remembers `window` weakly as the document window.
- (void)setupToolbarInWindow:(nullable NSWindow *)window;

/// Makes `url` the document window's represented file and its last path component the title.
- (void)setupToolbarURL:(nullable NSURL *)url;

/// Releases the delegate and the startup tutorial. From then on nothing is sent.
- (void)clearWindowToolbar;

/// Flips the toolbar's visibility, whatever it is: call it only when the toolbar is hidden.
- (void)showToolbar;
/// Flips the toolbar's visibility, whatever it is: call it only when the toolbar is shown.
- (void)hideToolbar;

/// Gives the search field of the toolbar the keyboard focus, if the toolbar shows one.
- (void)highlightSearch;

/// Reports the sender's tag as an action code.
- (void)toolbarTargetActionWithSender:(nullable id)sender;
/// Reports code 21, then opens the insert menu under the sender, a view.
- (void)toolbarInsertMenuActionWithSender:(nullable id)sender;
/// Opens the media menu under the sender, a view.
- (void)toolbarMediaMenuActionWithSender:(nullable id)sender;
/// Toggles the document window's tab overview.
- (void)toolbarTabOverviewActionWithSender:(nullable id)sender;
/// Asks for a popover at the sender: a toolbar button, or the menu item that stands for a toolbar item in the overflow.
- (void)toolbarPopoverActionWithSender:(nullable id)sender;
/// Reports the text of the sender, a search field.
- (void)searchFieldDidChangeWithSender:(nullable id)sender;

@end

/// The menus' side of the controller.
@interface QVAppKitController (Menus)

/// Reports the code that the chosen menu item represents.
- (void)didTapMenuItem:(nullable NSMenuItem *)sender;

@end

/// Full screen and the presentation on one or two displays.
@interface QVAppKitController (Presentation)

/// Toggles the document window's full screen state.
- (void)beginFullscreen;
/// The same toggle as `beginFullscreen`.
- (void)endFullscreen;

/// Starts the presentation: with nil the document window's content fills its screen, with a slides window that window's
/// content fills the slideshow screen and the document window's the presenter screen. `slidesWindow` is held weakly.
/// Returns nil, or the reason why nothing was started.
- (nullable NSString *)beginFullscreenSetupWithExternalSlides:(nullable NSWindow *)slidesWindow;
/// Ends the presentation. The slides window stays the host's and is not closed.
- (void)endFullscreenSetup;

/// "screens": display names of the connected displays; "presenter" and "slideshow": the chosen ones, "" when none is.
- (NSDictionary<NSString *, id> *)multipleWindowConfiguration;
/// Chooses the two displays by their display names, as multipleWindowConfiguration lists them, uses them from now on
/// and remembers them for the displays that are connected. Does nothing when a name is none of a connected display.
- (void)choosePresenterScreen:(NSString *)presenterName slideshowScreen:(NSString *)slideshowName;
/// The slideshow screen's frame in global screen coordinates (points), or nil when there is no such screen.
- (nullable NSValue *)slideshowWindowBounds;

@end

#pragma clang assume_nonnull end
