// View controllers that are told when their view is there.
#pragma once

#import <AppKit/AppKit.h>

@interface NSViewController (Loading)
/// Called once the nib that holds the controller's view is loaded and all outlets are connected. Does nothing itself.
- (void)viewDidLoad;
/// Whether the controller has a view; asking does not load it.
- (BOOL)isViewLoaded;
@end
