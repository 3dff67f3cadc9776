// The About screen for a host in Objective-C or Swift: a view and a view controller. Main thread only.
#pragma once

#import <AppKit/AppKit.h>

#pragma clang assume_nonnull begin

struct QVAboutScreenState;

/// Shows the product's title, its acknowledgements and "Close". Fits itself to any size; 480 by 560 points is a good
/// one. Where it is shown is the host's choice: in a window, a sheet or a popover.
@interface QVAboutScreenView : NSView {
@private
    struct QVAboutScreenState *_state;
}

/// What "Close" sends `dismissAction` to; not retained. Without a target the action goes up the responder chain.
@property (nonatomic, assign, nullable) id dismissTarget;

/// What "Close" sends, with this view as the sender; read at the time of the tap. "Close" does nothing while it is
/// null.
@property (nonatomic, assign, nullable) SEL dismissAction;

@end

/// A view controller whose view is a `QVAboutScreenView`.
@interface QVAboutScreenViewController : NSViewController

/// The view, made on first use. Never nil.
- (QVAboutScreenView *)aboutScreenView;

@end

#pragma clang assume_nonnull end
