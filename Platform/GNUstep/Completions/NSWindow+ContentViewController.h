// Windows that keep the controller of their content view.
#pragma once

#import <AppKit/AppKit.h>

@interface NSWindow (ContentViewController)
/// The controller of the content view; nil at first. The window keeps it and takes its view for the content view.
- (NSViewController *)contentViewController;
- (void)setContentViewController:(NSViewController *)controller;
@end
