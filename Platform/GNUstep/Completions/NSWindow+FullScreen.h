// GNUstep 0.29 has no full screen state of windows.
#pragma once

#import <AppKit/AppKit.h>

extern NSString *const NSWindowWillEnterFullScreenNotification;
extern NSString *const NSWindowDidEnterFullScreenNotification;
extern NSString *const NSWindowWillExitFullScreenNotification;
extern NSString *const NSWindowDidExitFullScreenNotification;

@interface NSWindow (QVFullScreen)

/// Makes the window cover its display, without frame, or puts it back to where it was. The window keeps its identity;
/// its style mask tells the state (`NSFullScreenWindowMask`).
- (void)toggleFullScreen:(id)sender;

@end
