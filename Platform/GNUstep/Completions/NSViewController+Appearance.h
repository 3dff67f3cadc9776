// GNUstep's view controllers are not told when their views appear and disappear.
#pragma once

#import <AppKit/AppKit.h>

/// Called when the controller's view comes into a visible window (or its window becomes visible) and when it leaves
/// one. Overrides call super.
@interface NSViewController (Appearance)
- (void)viewWillAppear;
- (void)viewDidAppear;
- (void)viewWillDisappear;
- (void)viewDidDisappear;
@end
