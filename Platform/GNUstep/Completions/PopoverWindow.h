// The window that a popover is shown in.
#pragma once

#import <AppKit/AppKit.h>

#include "PopoverPlacement.h"

/// A borderless window that takes the keyboard, with round corners and an arrow. It keeps its popover alive while it is
/// shown, as Apple's does.
@interface QVPopoverWindow : NSWindow {
    NSPopover *_popover;
    NSView *_anchor;
    platform::popover::Placement _placement;
    BOOL _closing;
}

/// Takes the popover's view into a new window at its place; does not show it. `anchor` is the view it belongs to.
- (instancetype)initWithPopover:(NSPopover *)popover
                        content:(NSView *)content
                         anchor:(NSView *)anchor
                      placement:(const platform::popover::Placement &)placement;

/// Moves the window and lays its content out anew.
- (void)setPlacement:(const platform::popover::Placement &)placement;

/// The view the popover belongs to, and the edge of it that the popover stands at.
- (NSView *)anchor;
- (platform::popover::Edge)edge;

/// Whether `window` is this one or that of a popover which was opened from within it, however deep.
- (BOOL)holds:(NSWindow *)window;

/// Says that the popover closes; YES when it was said before.
- (BOOL)beginClosing;
@end
