#pragma once

#import <AppKit/AppKit.h>

@interface NSWindow (TabOverview)
/// Shows or hides the overview of the window's tabs.
- (void)toggleTabOverview:(id)sender;
@end
