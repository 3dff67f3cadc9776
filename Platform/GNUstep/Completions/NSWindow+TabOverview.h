#pragma once

#import <AppKit/AppKit.h>

@interface NSWindow (QVTabOverview)
/// Shows the application's open windows as live thumbnails over this window, or closes the overview that is shown. A
/// click or the arrow keys and Return bring a window to the front; Escape closes the overview. `sender` is ignored and
/// may be nil.
- (IBAction)toggleTabOverview:(id)sender;
@end
