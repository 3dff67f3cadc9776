#import "Displays.h"

#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xfixes.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace test {

namespace {

::Display *server() {
    return static_cast<::Display *>([GSCurrentServer() serverDevice]);
}

int rootHeight() {
    ::Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(server(), DefaultRootWindow(server()), &root, &x, &y, &width, &height, &border, &depth);
    return static_cast<int>(height);
}

void run(const std::string &command) {
    [[maybe_unused]] const int result = std::system(("{ " + command + "; } >/dev/null 2>&1").c_str());
}

/// Every output takes every mode, once it is told.
void addAllModes() {
    static const bool added = [] {
        for (const char *output : {"DUMMY0", "DUMMY1", "DUMMY2"}) {
            for (const char *mode : {"1440x900", "1920x1080", "1280x720"}) {
                run(std::string("xrandr --addmode ") + output + " " + mode);
            }
        }
        return true;
    }();
    static_cast<void>(added);
}

} // namespace

std::vector<Display> usualDisplays(std::size_t count) {
    std::vector<Display> all{{"DUMMY0", 1440, 900, 0, 0, true},
                             {"DUMMY1", 1920, 1080, 1440, 0, false},
                             {"DUMMY2", 1280, 720, 3360, 0, false}};
    all.resize(count);
    return all;
}

void arrangeWithoutWaiting(const std::vector<Display> &displays) {
    std::string arguments = "xrandr";
    for (const char *output : {"DUMMY0", "DUMMY1", "DUMMY2"}) {
        const auto display =
            std::ranges::find_if(displays, [&](const Display &candidate) { return candidate.output == output; });
        arguments += std::string(" --output ") + output;
        if (display == displays.end()) {
            arguments += " --off";
            continue;
        }
        const std::string mode = std::to_string(display->width) + "x" + std::to_string(display->height);
        arguments += " --mode " + mode + " --pos " + std::to_string(display->x) + "x" + std::to_string(display->y);
        arguments += display->primary ? " --primary" : "";
    }
    addAllModes();
    run(arguments);
}

bool screensMatch(const std::vector<Display> &displays) {
    NSArray *screens = [NSScreen screens];
    int height = 0;
    for (const Display &display : displays) {
        height = std::max(height, display.y + display.height);
    }
    if ([screens count] != displays.size() || rootHeight() != height) {
        return false;
    }
    std::vector<NSScreen *> rest;
    for (NSScreen *screen in screens) {
        rest.push_back(screen);
    }
    return std::ranges::all_of(displays, [&](const Display &display) {
        const NSRect frame = NSMakeRect(display.x, height - display.y - display.height, display.width, display.height);
        const auto found =
            std::ranges::find_if(rest, [&](NSScreen *screen) { return NSEqualRects([screen frame], frame); });
        // The primary display comes first.
        if (found == rest.end() || (display.primary && !NSEqualRects([[screens objectAtIndex:0] frame], frame))) {
            return false;
        }
        rest.erase(found);
        return true;
    });
}

bool arrange(const std::vector<Display> &displays) {
    arrangeWithoutWaiting(displays);
    return runUntil([&] { return screensMatch(displays); });
}

void nameDisplay(const std::string &output, const std::string &name) {
    constexpr std::size_t nameStart = 54 + 5;
    constexpr std::size_t nameSize = 13;
    std::array<unsigned char, 128> edid{0, 255, 255, 255, 255, 255, 255, 0, 0x1e, 0x6d};
    edid[57] = 0xFC;
    std::fill_n(edid.begin() + nameStart, nameSize, static_cast<unsigned char>(' '));
    std::copy_n(name.begin(), std::min(name.size(), nameSize), edid.begin() + nameStart);
    if (name.size() < nameSize) {
        edid[nameStart + name.size()] = '\n';
    }
    XRRScreenResources *resources = XRRGetScreenResourcesCurrent(server(), DefaultRootWindow(server()));
    const Atom property = XInternAtom(server(), "EDID", False);
    for (int i = 0; i < resources->noutput; ++i) {
        XRROutputInfo *info = XRRGetOutputInfo(server(), resources, resources->outputs[i]);
        if (output == info->name) {
            int count = 0;
            Atom *all = XRRListOutputProperties(server(), resources->outputs[i], &count);
            const bool hasName = std::find(all, all + count, property) != all + count;
            XFree(all);
            if (name.empty() && !hasName) {
                // There is nothing to remove.
            } else if (name.empty()) {
                XRRDeleteOutputProperty(server(), resources->outputs[i], property);
            } else {
                XRRChangeOutputProperty(server(), resources->outputs[i], property, XA_INTEGER, 8, PropModeReplace,
                                        edid.data(), static_cast<int>(edid.size()));
            }
        }
        XRRFreeOutputInfo(info);
    }
    XRRFreeScreenResources(resources);
    XSync(server(), False);
}

void movePointer(int x, int y) {
    XTestFakeMotionEvent(server(), -1, x, y, 0);
    XSync(server(), False);
}

bool cursorShows() {
    XSync(server(), False);
    XFixesCursorImage *image = XFixesGetCursorImage(server());
    if (image == nullptr) {
        return false;
    }
    const auto pixels = static_cast<std::size_t>(image->width) * image->height;
    const bool shows = std::any_of(image->pixels, image->pixels + pixels,
                                   [](unsigned long pixel) { return (pixel & 0xff000000UL) != 0; });
    XFree(image);
    return shows;
}

bool covers(NSWindow *window, NSRect frame) {
    const auto id = static_cast<::Window>(
        reinterpret_cast<uintptr_t>([GSServerForWindow(window) windowDevice:static_cast<int>([window windowNumber])]));
    XWindowAttributes attributes{};
    ::Window child = 0;
    int x = 0;
    int y = 0;
    return XGetWindowAttributes(server(), id, &attributes) != 0 && attributes.map_state == IsViewable &&
           XTranslateCoordinates(server(), id, DefaultRootWindow(server()), 0, 0, &x, &y, &child) != 0 &&
           NSEqualRects(frame,
                        NSMakeRect(x, rootHeight() - y - attributes.height, attributes.width, attributes.height));
}

unsigned screenPixel(NSPoint point) {
    XSync(server(), False);
    XImage *image = XGetImage(server(), DefaultRootWindow(server()), static_cast<int>(point.x),
                              rootHeight() - 1 - static_cast<int>(point.y), 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) {
        return 0;
    }
    const unsigned long value = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return static_cast<unsigned>(value & 0xffffffUL);
}

Panel::Panel(NSRect frame)
    : window_(XCreateSimpleWindow(server(), DefaultRootWindow(server()), static_cast<int>(NSMinX(frame)),
                                  rootHeight() - static_cast<int>(NSMaxY(frame)), static_cast<unsigned>(NSWidth(frame)),
                                  static_cast<unsigned>(NSHeight(frame)), 0, 0, colour)) {
    const auto dock = static_cast<long>(XInternAtom(server(), "_NET_WM_WINDOW_TYPE_DOCK", False));
    XChangeProperty(server(), window_, XInternAtom(server(), "_NET_WM_WINDOW_TYPE", False), XA_ATOM, 32,
                    PropModeReplace, static_cast<const unsigned char *>(static_cast<const void *>(&dock)), 1);
    XSizeHints hints{};
    hints.flags = USPosition | USSize;
    XSetWMNormalHints(server(), window_, &hints);
    XMapWindow(server(), window_);
    XSync(server(), False);
}

Panel::~Panel() {
    XDestroyWindow(server(), window_);
    XSync(server(), False);
}

} // namespace test
