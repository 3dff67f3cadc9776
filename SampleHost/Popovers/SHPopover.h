// The popovers of the toolbar: one small form for each action that opens one.
#pragma once

#import "Bridge.h"

#include "Edits.h"

@class SHAppDelegate;
@class SHDocument;
@class SHPopoverForm;

@interface SHPopover : NSObject {
    samplehost::Action _action;
    samplehost::Owned<NSPopover> _popover;
    samplehost::Owned<SHPopoverForm> _form;
}

- (instancetype)initWithAction:(samplehost::Action)action
                      document:(SHDocument *)document
                   application:(SHAppDelegate *)application;

- (samplehost::Action)action;
- (bool)isShown;
/// Opens below the rectangle of the view.
- (void)showRelativeToRect:(NSRect)rect ofView:(NSView *)view;
- (void)close;

@end
