// The Preferences window: four tabs that its toolbar switches.
#pragma once

#import "Platform.h"

#import "AboutSettingsViewController.h"
#import "EditorSettingsViewController.h"
#import "GeneralSettingsViewController.h"
#import "PresenterSettingsViewController.h"

#include "PreferencesManager.h"
#include "RetainPtr.h"
#include "SettingsStore.h"
#include "WeakObjCPtr.h"

#include <array>
#include <memory>

/// Assembles the window of the interface file "Preferences" over the settings provider. What is missing of the
/// interface when it is needed ends the process. Main thread only.
@interface PreferencesWindowController : NSWindowController {
    appkitglue::RetainPtr<NSView> _generalView;
    appkitglue::RetainPtr<NSView> _editorView;
    appkitglue::RetainPtr<NSView> _presenterView;
    appkitglue::RetainPtr<NSView> _aboutView;
    appkitglue::WeakObjCPtr<NSTabView> _tabView;
    appkitglue::RetainPtr<GeneralSettingsViewController> _generalViewController;
    appkitglue::RetainPtr<EditorSettingsViewController> _editorViewController;
    appkitglue::RetainPtr<PresenterSettingsViewController> _presenterViewController;
    appkitglue::RetainPtr<AboutSettingsViewController> _aboutViewController;
    std::shared_ptr<appkitglue::SettingsProvider> _provider;
    std::shared_ptr<appkitglue::SettingsStore> _store;
    std::array<CGFloat, 4> _naturalHeights;
}

/// The tabs' views.
@property (nonatomic, retain) IBOutlet NSView *generalView;
@property (nonatomic, retain) IBOutlet NSView *editorView;
@property (nonatomic, retain) IBOutlet NSView *presenterView;
@property (nonatomic, retain) IBOutlet NSView *aboutView;
/// Holds the tabs; not kept alive.
@property (nonatomic, assign) IBOutlet NSTabView *tabView;
/// The tabs' controllers.
@property (nonatomic, retain) IBOutlet GeneralSettingsViewController *generalViewController;
@property (nonatomic, retain) IBOutlet EditorSettingsViewController *editorViewController;
@property (nonatomic, retain) IBOutlet PresenterSettingsViewController *presenterViewController;
@property (nonatomic, retain) IBOutlet AboutSettingsViewController *aboutViewController;
/// Where the settings come from; set before the window loads.
@property (nonatomic) std::shared_ptr<appkitglue::SettingsProvider> provider;
/// The settings as the tabs see them; null until the window has loaded.
@property (nonatomic, readonly) std::shared_ptr<appkitglue::SettingsStore> store;

/// Opens a new window on the General tab, in place of the one that is open, over the shared settings provider.
+ (void)openPreferences;
/// The same, and on the next turn of the main queue switches to the About tab.
+ (void)openPreferencesOnAbout;
/// The controller of the window that was opened last, also when the user has closed it since; nil before the first.
+ (PreferencesWindowController *)current;

/// Actions of the toolbar's items.
- (IBAction)didSelectGeneralTabWithSender:(id)sender;
- (IBAction)didSelectEditorTabWithSender:(id)sender;
- (IBAction)didSelectSlideshowTabWithSender:(id)sender;
- (IBAction)didSelectAboutTabWithSender:(id)sender;

/// Selects the About tab and the toolbar's last item.
- (void)selectAboutTab;

/// The font panel's action: the Editor tab takes the font over on a later turn of the main queue.
- (void)changeFont:(id)sender;

/// Has the Editor tab show the editor font anew. Does nothing before the window has loaded.
- (void)refreshEditorFont;

/// Gives the window the height that the selected tab needs; its upper edge and its width stay. With `animated` it is
/// part of the current animation group.
- (void)fitWindowAnimated:(BOOL)animated;

@end
