#import "PreferencesBaseViewController.h"

#include "StringBridging.h"

#include <algorithm>

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
    // Into the menu itself: the button's own way of adding looks for each title in all the others first.
    NSMenu *menu = [button menu];
    for (const std::string &title : titles) {
        [menu addItemWithTitle:toNSString(title) action:nullptr keyEquivalent:@""];
    }
    if (!titles.empty()) {
        [button selectItemAtIndex:0];
    }
    if (const auto found = std::ranges::find(titles, current); found != titles.end()) {
        [button selectItemAtIndex:found - titles.begin()];
    }
    [button synchronizeTitleAndSelectedItem];
}

bool isOn(NSButton *checkBox) {
    return [checkBox state] == NSOnState;
}

void setOn(NSButton *checkBox, bool on) {
    [checkBox setState:on ? NSOnState : NSOffState];
}

} // namespace appkitglue
