// Hides the cursor while the slides fill the one display.
#pragma once

#import "Platform.h"

#include "RetainPtr.h"

/// The owner of the tracking area over the slides: it hides the cursor two seconds after a movement. A view only
/// because that is what takes mouse events; it is never placed in a window. Main thread only.
@interface MouseMoveManager : NSView {
@private
    BOOL _cursorHideState;
    appkitglue::RetainPtr<NSTrackingArea> _trackingArea;
}

/// Whether a hide is pending. It stays so for good when it falls due after the presentation has ended.
@property (nonatomic, readonly) BOOL cursorHideState;

/// The area over the slides; nil when the cursor is to be left alone.
@property (nonatomic, retain) NSTrackingArea *trackingArea;

@end
