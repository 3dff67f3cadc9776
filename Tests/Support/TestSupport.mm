#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cstdlib>

namespace test {

namespace {

void turn(double seconds) {
    @autoreleasepool {
        NSDate *until = [NSDate dateWithTimeIntervalSinceNow:seconds];
        NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:until
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
        if (event != nil) {
            [NSApp sendEvent:event];
        }
        [NSApp updateWindows];
        for (NSWindow *window in [NSApp windows]) {
            if ([window isVisible]) {
                [window displayIfNeeded];
                [window flushWindowIfNeeded];
            }
        }
    }
}

double now() {
    return [NSDate timeIntervalSinceReferenceDate];
}

} // namespace

std::string sourceDirectory() {
    return QV_SOURCE_DIRECTORY;
}

std::string binaryDirectory() {
    return QV_BINARY_DIRECTORY;
}

std::string bundlePath() {
    return QV_BUNDLE_PATH;
}

void spin(double seconds) {
    const double end = now() + seconds;
    do {
        turn(std::min(0.01, seconds));
    } while (now() < end);
}

bool runUntil(const std::function<bool()> &condition, double seconds) {
    const double end = now() + seconds;
    while (!condition()) {
        if (now() > end) {
            return false;
        }
        turn(0.01);
    }
    return true;
}

void runUntilQuiet(NSWindow *window) {
    const double end = now() + 5;
    NSRect frame = [window frame];
    bool key = [window isKeyWindow];
    double since = now();
    while (now() - since < 0.25 && now() < end) {
        turn(0.01);
        if (!NSEqualRects(frame, [window frame]) || key != static_cast<bool>([window isKeyWindow])) {
            frame = [window frame];
            key = [window isKeyWindow];
            since = now();
        }
    }
}

void savePicture(NSWindow *window, const std::string &name) {
    const std::string folder = std::string(QV_BINARY_DIRECTORY) + "/test-output";
    std::string command = "mkdir -p '" + folder + "' && timeout 20 import -window ";
    if (window != nil) {
        command += std::to_string(reinterpret_cast<uintptr_t>(
            [GSServerForWindow(window) windowDevice:static_cast<int>([window windowNumber])]));
    } else {
        command += "root";
    }
    command += " '" + folder + "/" + name + ".png'";
    [[maybe_unused]] const int result = std::system(command.c_str());
}

unsigned pixel(NSWindow *window, NSPoint point) {
    GSDisplayServer *server = GSServerForWindow(window);
    auto *display = static_cast<Display *>([server serverDevice]);
    XSync(display, False);
    const NSPoint onScreen = [window convertBaseToScreen:point];
    const auto root = DefaultRootWindow(display);
    ::Window ignoredRoot = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(display, root, &ignoredRoot, &x, &y, &width, &height, &border, &depth);
    XImage *image = XGetImage(display, root, static_cast<int>(onScreen.x),
                              static_cast<int>(height) - 1 - static_cast<int>(onScreen.y), 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) {
        return 0;
    }
    const unsigned long value = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return static_cast<unsigned>(value & 0xffffffUL);
}

} // namespace test
