// Menus worked with the keyboard. GNUstep 0.29 tracks menus with the mouse only.
#pragma once

#import <AppKit/AppKit.h>

namespace platform {

/// The menu bar that is part of `window`, or nil.
NSMenuView* menuBarOf(NSWindow* window);

/// Opens the first menu of a menu bar and lets the arrow keys, Return, Escape and letters work in it, until an item is
/// chosen (its action is sent) or the menu is left. Returns then; runs the event loop in between.
void trackMenuBarWithKeys(NSMenuView* bar);

/// The same for the menu of a pop-up button.
void trackPopUpWithKeys(NSPopUpButton* popUp);

} // namespace platform
