// What the tabs of the Preferences window have in common.
#pragma once

#import "Platform.h"

#include <optional>
#include <string>
#include <vector>

/// The base of the tabs' controllers. It has no state of its own.
@interface PreferencesBaseViewController : NSViewController

/// The height that the tab needs, given the one that its interface file gives it (both in points).
- (CGFloat)contentHeightFor:(CGFloat)naturalHeight;

@end

namespace appkitglue {

/// Replaces the entries of `button` (not nil) by `titles` and selects the first one that equals `current`. Without such
/// a title the selection stays as filling left it. All texts are UTF-8.
void fillPopUp(NSPopUpButton *button, const std::vector<std::string> &titles, const std::string &current);

/// The title of the entry that is selected in `button` (not nil); nothing when none is.
[[nodiscard]] std::optional<std::string> selectedTitle(NSPopUpButton *button);

/// Whether a check box is on; the mixed state counts as off.
[[nodiscard]] bool isOn(NSButton *checkBox);
void setOn(NSButton *checkBox, bool on);

} // namespace appkitglue
