// The Slideshow tab: presenter mode, its displays, the end of the slideshow and the sound of videos.
#pragma once

#import "PreferencesBaseViewController.h"

#include "RetainPtr.h"
#include "SettingsStore.h"
#include "WeakObjCPtr.h"

#include <memory>

/// Shows the slideshow's settings when its view appears and writes each change to the store at once; the pair of
/// displays only when Apply finds it valid. A store or control that is missing when it is needed ends the process.
@interface PresenterSettingsViewController : PreferencesBaseViewController {
    std::shared_ptr<appkitglue::PresenterStore> _store;
    appkitglue::RetainPtr<NSLayoutConstraint> _heightConstraint;
    appkitglue::WeakObjCPtr<NSBox> _presenterBox;
    appkitglue::WeakObjCPtr<NSButton> _presenterModeToggle;
    appkitglue::WeakObjCPtr<NSTextField> _presenterModeLabel;
    appkitglue::WeakObjCPtr<NSPopUpButton> _slideshowButton;
    appkitglue::WeakObjCPtr<NSPopUpButton> _presenterButton;
    appkitglue::WeakObjCPtr<NSButton> _lastSlideExitButton;
    appkitglue::WeakObjCPtr<NSButton> _muteVideosButton;
    appkitglue::WeakObjCPtr<NSTextField> _errorMessageField;
    appkitglue::WeakObjCPtr<NSButton> _presenterApplyButton;
    double _expandedHeight;
    double _unexpandedHeight;
}

/// The settings; set before the view is shown.
@property (nonatomic) std::shared_ptr<appkitglue::PresenterStore> store;

/// The height of the area with the tab's controls. Kept alive: a view need not own its constraints.
@property (nonatomic, retain) IBOutlet NSLayoutConstraint *heightConstraint;
/// Controls of the interface file, not kept alive.
@property (nonatomic, assign) IBOutlet NSBox *presenterBox;
@property (nonatomic, assign) IBOutlet NSButton *presenterModeToggle;
@property (nonatomic, assign) IBOutlet NSTextField *presenterModeLabel;
@property (nonatomic, assign) IBOutlet NSPopUpButton *slideshowButton;
@property (nonatomic, assign) IBOutlet NSPopUpButton *presenterButton;
@property (nonatomic, assign) IBOutlet NSButton *lastSlideExitButton;
@property (nonatomic, assign) IBOutlet NSButton *muteVideosButton;
@property (nonatomic, assign) IBOutlet NSTextField *errorMessageField;
@property (nonatomic, assign) IBOutlet NSButton *presenterApplyButton;

/// The heights of the area with and without the choice of displays, in points; zero before the view first appears.
@property (nonatomic) double expandedHeight;
@property (nonatomic) double unexpandedHeight;

/// Actions of the controls.
- (IBAction)didUpdatePresenterMode:(id)sender;
- (IBAction)didUpdatePresenterModeViaLabel:(id)sender;
- (IBAction)didUpdateScreen1:(id)sender;
- (IBAction)didUpdateScreen2:(id)sender;
- (IBAction)didUpdateExitLastSlide:(id)sender;
- (IBAction)didUpdateMuteVideos:(id)sender;
- (IBAction)applyScreenChanges:(id)sender;

@end
