#import "PreferencesBaseViewController.h"

#include "StringBridging.h"

@implementation PreferencesBaseViewController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
    return [super initWithNibName:nibName bundle:bundle];
}

- (CGFloat)contentHeightFor:(CGFloat)naturalHeight {
    return naturalHeight;
}

@end

namespace appkitglue {

void fillPopUp(NSPopUpButton *button, const std::vector<std::string> &titles, const std::string &current) {
    [button removeAllItems];
    [button addItemsWithTitles:toNSArray(titles)];
    const NSInteger index = [button indexOfItemWithTitle:toNSString(current)];
    if (index >= 0) {
        [button selectItemAtIndex:index];
    }
}

std::optional<std::string> selectedTitle(NSPopUpButton *button) {
    return [button selectedItem] != nil ? std::optional(toUTF8([button titleOfSelectedItem])) : std::nullopt;
}

bool isOn(NSButton *checkBox) {
    return [checkBox state] == NSOnState;
}

void setOn(NSButton *checkBox, bool on) {
    [checkBox setState:on ? NSOnState : NSOffState];
}

} // namespace appkitglue
