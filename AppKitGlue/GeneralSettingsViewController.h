// The General tab: sample presentation, slide theme with its previews, appearance and slide size.
#pragma once

#import "PreferencesBaseViewController.h"

#include "SettingsStore.h"
#include "WeakObjCPtr.h"

#include <memory>

/// Shows the general settings when its view appears and writes each change to the store at once. A store or control
/// that is missing when it is needed ends the process; preview views may be missing.
@interface GeneralSettingsViewController : PreferencesBaseViewController {
    std::shared_ptr<appkitglue::GeneralStore> _store;
    appkitglue::WeakObjCPtr<NSButton> _samplePresentationButton;
    appkitglue::WeakObjCPtr<NSPopUpButton> _theme;
    appkitglue::WeakObjCPtr<NSPopUpButton> _appearance;
    appkitglue::WeakObjCPtr<NSPopUpButton> _slideSizesButton;
    appkitglue::WeakObjCPtr<NSImageView> _preview1;
    appkitglue::WeakObjCPtr<NSImageView> _preview2;
    appkitglue::WeakObjCPtr<NSImageView> _preview3;
    appkitglue::WeakObjCPtr<NSImageView> _preview4;
    appkitglue::WeakObjCPtr<NSImageView> _preview5;
}

/// The settings; set before the view is shown.
@property (nonatomic) std::shared_ptr<appkitglue::GeneralStore> store;

/// Controls of the interface file, not kept alive.
@property (nonatomic, assign) IBOutlet NSButton *samplePresentationButton;
@property (nonatomic, assign) IBOutlet NSPopUpButton *theme;
@property (nonatomic, assign) IBOutlet NSPopUpButton *appearance;
@property (nonatomic, assign) IBOutlet NSPopUpButton *slideSizesButton;
@property (nonatomic, assign) IBOutlet NSImageView *preview1;
@property (nonatomic, assign) IBOutlet NSImageView *preview2;
@property (nonatomic, assign) IBOutlet NSImageView *preview3;
@property (nonatomic, assign) IBOutlet NSImageView *preview4;
@property (nonatomic, assign) IBOutlet NSImageView *preview5;

/// Actions of the controls.
- (IBAction)didUpdateSampleValue:(id)sender;
- (IBAction)didUpdateDefaultTheme:(id)sender;
- (IBAction)didUpdateAppAppearance:(id)sender;
- (IBAction)didUpdateSlideSize:(id)sender;

@end
