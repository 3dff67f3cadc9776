// Native menus from menus as plain data. For .mm files only.
#pragma once

#import "Platform.h"

#include "MenuItem+Ext.h"

#include <vector>

namespace appkitglue {

/// Appends native entries for `items` to `menu`, in order. Every actionable entry, at every depth, sends `action` to
/// `target` (not retained) and represents its tag as a number. An unknown symbol name gives an entry without image.
void populateMenu(NSMenu* menu, const std::vector<MenuItem>& items, id target, SEL action);

} // namespace appkitglue
