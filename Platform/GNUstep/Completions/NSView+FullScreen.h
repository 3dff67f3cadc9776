// GNUstep 0.29 has no full screen mode of views.
#pragma once

#import <AppKit/AppKit.h>

/// Whether the other screens are blanked: a boolean number. They never are here, whatever the value.
extern NSString *const NSFullScreenModeAllScreens;
/// The application's presentation options while the view is in full screen: a number.
extern NSString *const NSFullScreenModeApplicationPresentationOptions;

@interface NSView (QVFullScreen)

/// Shows the view in a window of its own that covers `screen` with all that lies on it, panels and menu bar included. A
/// hidden placeholder takes its place meanwhile. A screen that is not connected any more is replaced by one that is;
/// when the displays change, the window follows its display, or moves to another one while that is gone. Full screen
/// ends by itself when the view's window closes. Returns NO, with nothing changed, when the view is in full screen
/// already, has no window or `screen` is nil.
- (BOOL)enterFullScreenMode:(NSScreen *)screen withOptions:(NSDictionary *)options;

/// Puts the view back to where it was: superview, place among its siblings, frame, autoresizing, first responder and
/// key window. Does nothing when the view is not in full screen. `options` is not used.
- (void)exitFullScreenModeWithOptions:(NSDictionary *)options;

- (BOOL)isInFullScreenMode;

@end
