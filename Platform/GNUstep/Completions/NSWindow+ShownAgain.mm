// GNUstep 0.29 forgets the window manager's frame around a window that is hidden: a window whose frame is set while it
// is hidden (the open and save panels do) comes back too large by that frame, with a strip that nothing draws.
#import "Hooks.h"
#import "Platform.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

namespace {

platform::Hook<void, NSWindowOrderingMode, NSInteger> orderHook;

// The height of the window that the X server has, which lies inside of the window manager's frame; 0 for none.
CGFloat serverHeight(NSWindow *window) {
    GSDisplayServer *server = GSServerForWindow(window);
    auto *display = static_cast<Display *>([server serverDevice]);
    const auto xWindow = reinterpret_cast<uintptr_t>([server windowDevice:static_cast<int>([window windowNumber])]);
    XWindowAttributes attributes{};
    if (display == nullptr || xWindow == 0 || XGetWindowAttributes(display, xWindow, &attributes) == 0) {
        return 0;
    }
    return attributes.height;
}

void repair(NSWindow *window) {
    if (![window isVisible] || ([window styleMask] & NSTitledWindowMask) == 0) {
        return;
    }
    float left = 0;
    float right = 0;
    float top = 0;
    float bottom = 0;
    GSDisplayServer *server = GSServerForWindow(window);
    [server styleoffsets:&left:&right:&top:&bottom:static_cast<unsigned>([window styleMask])];
    const bool tooLarge = top + bottom > 0 && serverHeight(window) == NSHeight([window frame]);
    if (tooLarge) {
        // Another size and back: only a change makes the buffer that is drawn into fit again.
        const NSRect frame = [window frame];
        [window setFrame:NSInsetRect(frame, 0, 1) display:NO];
        [window setFrame:frame display:YES];
    }
}

void orderWindow(id self, SEL command, NSWindowOrderingMode place, NSInteger other) {
    const bool appears = place != NSWindowOut && ![self isVisible];
    orderHook.original(self, command, place, other);
    if (!appears) {
        return;
    }
    // Once the window manager has framed it; a slow one gets a second chance.
    for (const double seconds : {0.05, 0.4}) {
        platform::asyncAfter(
            seconds, [reference = platform::WeakReference(self)] { repair([reference.loadRetained() autorelease]); });
    }
}

} // namespace

namespace platform {

void installShownAgain() {
    orderHook.install([NSWindow class], @selector(orderWindow:relativeTo:), orderWindow);
}

} // namespace platform
