#import "EditorSettingsViewController.h"

#include "FontText.h"
#include "Outlets.h"
#include "StringBridging.h"

using namespace appkitglue;

namespace {

constexpr std::string_view unit = "EditorSettingsViewController";

} // namespace

@implementation EditorSettingsViewController

@synthesize store = _store;

QV_WEAK_OUTLET(NSTextField, fontNameField, setFontNameField)
QV_WEAK_OUTLET(NSPopUpButton, colorTheme, setColorTheme)

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
    if ((self = [super initWithNibName:nibName bundle:bundle]) != nil) {
        _manager = retainPtr([NSFontManager sharedFontManager]);
    }
    return self;
}

- (instancetype)initWithCoder:(NSCoder *)coder {
    if ((self = [super initWithCoder:coder]) != nil) {
        _manager = retainPtr([NSFontManager sharedFontManager]);
    }
    return self;
}

- (NSFontManager *)manager {
    return _manager.get();
}

- (EditorStore &)requiredStore {
    return *requiredValue(_store, unit, "store");
}

- (NSTextField *)requiredField {
    return requiredOutlet([self fontNameField], unit, "fontNameField");
}

- (void)viewWillAppear {
    [super viewWillAppear];
    const EditorStore &store = [self requiredStore];
    [self displayFont:store.font().get()];
    fillPopUp(requiredOutlet([self colorTheme], unit, "colorTheme"), store.allThemes(), store.theme());
}

- (void)displayFont:(NSFont *)font {
    NSString *name = [font displayName];
    [[self requiredField]
        setStringValue:toNSString(fontText(toUTF8(name != nil ? name : [font fontName]), [font pointSize]))];
}

- (void)didTapFontButton:(id)sender {
    [_manager.get() setSelectedFont:[self requiredStore].font().get() isMultiple:NO];
    [[_manager.get() fontPanel:YES] makeKeyAndOrderFront:self];
}

- (void)didTapThemeButton:(id)sender {
    if (auto title = selectedTitle(requiredOutlet([self colorTheme], unit, "colorTheme"))) {
        [self requiredStore].setTheme(*std::move(title));
    }
}

- (void)changedFontWithSender:(id)sender {
    platform::async([controller = retainPtr(self)] { [controller.get() applySelectedFont]; });
}

- (void)applySelectedFont {
    const RetainPtr<NSFont> font = retainPtr([_manager.get() selectedFont]);
    NSString *name = [font.get() displayName];
    [[self requiredField] setStringValue:name != nil ? name : @""];
    if (!font) {
        return;
    }
    [self requiredStore].setFont(font.get());
    [self displayFont:font.get()];
}

@end
