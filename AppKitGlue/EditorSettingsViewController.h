// The Editor tab: the Markdown editor's font and colour theme.
#pragma once

#import "PreferencesBaseViewController.h"

#include "RetainPtr.h"
#include "SettingsStore.h"
#include "WeakObjCPtr.h"

#include <memory>

/// Shows the editor's settings when its view appears and writes each change to the store at once. A store or control
/// that is missing when it is needed ends the process.
@interface EditorSettingsViewController : PreferencesBaseViewController {
    std::shared_ptr<appkitglue::EditorStore> _store;
    appkitglue::WeakObjCPtr<NSTextField> _fontNameField;
    appkitglue::WeakObjCPtr<NSPopUpButton> _colorTheme;
    appkitglue::RetainPtr<NSFontManager> _manager;
}

/// The settings; set before the view is shown.
@property (nonatomic) std::shared_ptr<appkitglue::EditorStore> store;

/// Controls of the interface file, not kept alive.
@property (nonatomic, assign) IBOutlet NSTextField *fontNameField;
@property (nonatomic, assign) IBOutlet NSPopUpButton *colorTheme;

/// The shared font manager, taken when the controller is made.
@property (nonatomic, readonly) NSFontManager *manager;

/// Opens the font panel on the current font.
- (IBAction)didTapFontButton:(id)sender;
- (IBAction)didTapThemeButton:(id)sender;
/// Takes over the font panel's font on a later turn of the main queue.
- (IBAction)changedFontWithSender:(id)sender;

/// Writes the font manager's selected font to the store and shows it.
- (void)applySelectedFont;

/// Shows `font` (not nil) as the current one. Writes nothing.
- (void)displayFont:(NSFont *)font;

@end
