// GNUstep 0.29 shows a cursor hidden "until the mouse moves" at any mouse event, also at those that a window makes by
// appearing under a pointer that rests, and whenever a window becomes key.
#import "Hooks.h"
#include "XDisplays.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <optional>
#include <utility>

@interface NSCursor (QVAskedByTheEventLoop)
+ (BOOL)isHiddenUntilMouseMoves;
@end

namespace platform {

void installHiddenUntilMoved();

namespace {

Hook<void, BOOL> setHidden;
Hook<BOOL> isHidden;
Hook<void> makeKeyWindow;

bool becomingKey = false;

/// Where the pointer was when the cursor was hidden.
std::optional<x11::Point> whenHidden;

std::optional<x11::Point> pointer() {
    return x11::pointerLocation([GSCurrentServer() serverDevice]);
}

void setHiddenAndRemember(id self, SEL selector, BOOL hidden) {
    if (!hidden && becomingKey) {
        return;
    }
    whenHidden = hidden ? pointer() : std::nullopt;
    setHidden.original(self, selector, hidden);
}

// The event loop asks this to know whether an event is to show the cursor.
BOOL isHiddenAndMoved(id self, SEL selector) {
    return isHidden.original(self, selector) && whenHidden != pointer();
}

void makeKeyWithoutCursor(id self, SEL selector) {
    const bool before = std::exchange(becomingKey, true);
    makeKeyWindow.original(self, selector);
    becomingKey = before;
}

} // namespace

void installHiddenUntilMoved() {
    setHidden.installOnClass([NSCursor class], @selector(setHiddenUntilMouseMoves:), setHiddenAndRemember);
    isHidden.installOnClass([NSCursor class], @selector(isHiddenUntilMouseMoves), isHiddenAndMoved);
    makeKeyWindow.install([NSWindow class], @selector(makeKeyWindow), makeKeyWithoutCursor);
}

} // namespace platform
