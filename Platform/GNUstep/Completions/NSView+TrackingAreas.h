// GNUstep 0.29 has tracking areas as a class, but views do not take them and nothing is delivered to their owners.
#pragma once

#import <AppKit/AppKit.h>

@interface NSView (QVTrackingAreas)

/// Tells the owner of `area` about the mouse over it (mouseEntered:, mouseExited:, mouseMoved:, cursorUpdate:) until
/// the area is removed, the owner or the view is gone. The area is retained, its owner is not. The area's options have
/// Apple's values, not those that GNUstep's header names: 1 entered and exited, 2 moved, 4 cursor update, 0x10 while
/// first responder, 0x20 in key window, 0x40 in active application, 0x80 always, 0x100 assume inside, 0x200 the visible
/// rectangle instead of the area's, 0x400 also while dragging.
- (void)addTrackingArea:(NSTrackingArea *)area;

/// Stops what `addTrackingArea:` started. Does nothing for an area that the view does not have.
- (void)removeTrackingArea:(NSTrackingArea *)area;

/// The areas that were added and not removed, in that order.
- (NSArray *)trackingAreas;

@end
