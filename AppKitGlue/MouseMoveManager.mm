#import "MouseMoveManager.h"

#include "WeakObjCPtr.h"

using appkitglue::WeakObjCPtr;

@implementation MouseMoveManager

- (BOOL)cursorHideState {
    return _cursorHideState;
}

- (NSTrackingArea *)trackingArea {
    return _trackingArea.get();
}

- (void)setTrackingArea:(NSTrackingArea *)area {
    _trackingArea = appkitglue::retainPtr(area);
}

// Movements do not postpone a pending hide: the cursor goes at a steady pace.
- (void)mouseMoved:(NSEvent *)event {
    if (_cursorHideState) {
        return;
    }
    constexpr double pause = 2.0;
    _cursorHideState = YES;
    platform::asyncAfter(pause, [weakSelf = WeakObjCPtr<MouseMoveManager>(self)] {
        const auto strongSelf = weakSelf.get();
        [strongSelf.get() hideIsDue];
    });
}

- (void)hideIsDue {
    if (_trackingArea) {
        [NSCursor setHiddenUntilMouseMoves:YES];
        _cursorHideState = NO;
    }
}

@end
