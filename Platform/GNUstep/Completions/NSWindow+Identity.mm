// GNUstep 0.29 tells the desktop that every program's windows belong to "GNUstep": docks and task bars find neither the
// program's name nor its entry.
#import "Hooks.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <unistd.h>

#include <string>

namespace platform {

namespace {

std::string text(NSString *string) {
    const char *const bytes = [string UTF8String];
    return bytes != nullptr ? bytes : "";
}

// What the user calls the program.
NSString *applicationName() {
    NSString *name = [[NSBundle mainBundle] objectForInfoDictionaryKey:@"CFBundleName"];
    return [name length] > 0 ? name : [[NSProcessInfo processInfo] processName];
}

// The window exists on the server and is not shown yet: its class must be there before.
void identify(NSWindow *window) {
    GSDisplayServer *server = GSServerForWindow(window);
    auto *display = static_cast<Display *>([server serverDevice]);
    const auto xWindow =
        static_cast<Window>(reinterpret_cast<uintptr_t>([server windowDevice:static_cast<int>([window windowNumber])]));
    if (display == nullptr || xWindow == 0) {
        return;
    }
    std::string name = text([[NSProcessInfo processInfo] processName]);
    std::string className = text(applicationName());
    XClassHint hint = {name.data(), className.data()};
    XSetClassHint(display, xWindow, &hint);
    const long process = getpid();
    XChangeProperty(display, xWindow, XInternAtom(display, "_NET_WM_PID", False), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&process), 1);
}

Hook<void> initBackendWindow;

void initIdentifiedBackendWindow(id self, SEL selector) {
    initBackendWindow.original(self, selector);
    identify(self);
}

} // namespace

void installWindowIdentity() {
    initBackendWindow.install([NSWindow class], NSSelectorFromString(@"_initBackendWindow"),
                              initIdentifiedBackendWindow);
}

} // namespace platform
