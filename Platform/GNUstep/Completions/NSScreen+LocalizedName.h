// GNUstep 0.29 has no -[NSScreen localizedName].
#pragma once

#import <AppKit/AppKit.h>

@interface NSScreen (QVLocalizedName)

/// The name that the display gives itself, else the name of the output that it is connected to. Empty when the screen
/// is no longer connected.
- (NSString *)localizedName;

@end
