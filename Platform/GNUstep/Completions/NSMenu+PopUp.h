#pragma once

#import <AppKit/AppKit.h>

@interface NSMenu (QVPopUp)
/// Shows the menu so that the upper left corner of `item` (of the menu, if nil) lies at `location`, and lets the user
/// choose. `location` is in the coordinates of `view`, or of the screen if `view` is nil; the menu is moved to lie on
/// the screen. Returns when the menu has closed: whether an entry was chosen.
- (BOOL)popUpMenuPositioningItem:(NSMenuItem *)item atLocation:(NSPoint)location inView:(NSView *)view;

/// Closes the menu, while the user chooses from it, without a choice.
- (void)cancelTracking;
@end
