#include "XDisplays.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace platform::x11 {

namespace {

struct Freed {
    void operator()(unsigned char* data) const { XFree(data); }
    void operator()(XRRScreenResources* resources) const { XRRFreeScreenResources(resources); }
    void operator()(XRROutputInfo* info) const { XRRFreeOutputInfo(info); }
    void operator()(XRRCrtcInfo* info) const { XRRFreeCrtcInfo(info); }
};
template <class T> using Owned = std::unique_ptr<T, Freed>;

Display* asDisplay(void* display) {
    return static_cast<Display*>(display);
}

/// A window may be gone by the time the server hears of it: that is no reason to end the process.
class IgnoreErrors {
public:
    explicit IgnoreErrors(Display* display) : display_(display) {
        XSync(display_, False);
        previous_ = XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    }
    ~IgnoreErrors() {
        XSync(display_, False);
        XSetErrorHandler(previous_);
    }
    IgnoreErrors(const IgnoreErrors&) = delete;
    IgnoreErrors& operator=(const IgnoreErrors&) = delete;

private:
    Display* display_;
    XErrorHandler previous_;
};

struct Property {
    Owned<unsigned char> data;
    unsigned long count = 0;

    // Xlib hands 32-bit items out as longs.
    [[nodiscard]] std::span<const long> longs() const {
        return {static_cast<const long*>(static_cast<const void*>(data.get())), data ? count : 0};
    }
};

Property windowProperty(Display* display, Window window, const char* name, Atom type, long items) {
    Atom actual = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, items, False, type, &actual, &format,
                           &count, &rest, &data) != Success) {
        return {};
    }
    return {Owned<unsigned char>(data), format == 32 ? count : 0};
}

bool isUTF8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80             ? 1
                                   : (lead & 0xE0) == 0xC0 ? 2
                                   : (lead & 0xF0) == 0xE0 ? 3
                                   : (lead & 0xF8) == 0xF0 ? 4
                                                           : 0;
        if (length == 0 || i + length > text.size()) {
            return false;
        }
        for (std::size_t k = 1; k < length; ++k) {
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) {
                return false;
            }
        }
        i += length;
    }
    return true;
}

std::string fromLatin1(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0 | (byte >> 6));
            result += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return result;
}

/// The display product name descriptor (0xFC) of an EDID block: 13 bytes, ended by a line feed, padded with spaces.
std::string edidName(std::span<const unsigned char> edid) {
    constexpr std::size_t blockSize = 128;
    if (edid.size() < blockSize) {
        return {};
    }
    for (std::size_t start = 54; start <= 108; start += 18) {
        if (edid[start] != 0 || edid[start + 1] != 0 || edid[start + 3] != 0xFC) {
            continue;
        }
        std::string name;
        for (std::size_t i = start + 5; i < start + 18 && edid[i] != '\n' && edid[i] != 0; ++i) {
            name += static_cast<char>(edid[i]);
        }
        name.erase(name.find_last_not_of(' ') + 1);
        return isUTF8(name) ? name : fromLatin1(name);
    }
    return {};
}

std::string outputName(Display* display, RROutput output, const XRROutputInfo& info) {
    Atom actual = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XRRGetOutputProperty(display, output, XInternAtom(display, "EDID", False), 0, 32, False, False, AnyPropertyType,
                         &actual, &format, &count, &rest, &data);
    const Owned<unsigned char> owned(data);
    std::string name = data != nullptr && format == 8 ? edidName({data, count}) : std::string();
    return name.empty() ? std::string(info.name, static_cast<std::size_t>(info.nameLen)) : name;
}

void changeState(Display* display, Window window, bool add, const char* first, const char* second) {
    const IgnoreErrors guard(display);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.format = 32;
    event.xclient.message_type = XInternAtom(display, "_NET_WM_STATE", False);
    event.xclient.data.l[0] = add ? 1 : 0;
    event.xclient.data.l[1] = static_cast<long>(XInternAtom(display, first, False));
    event.xclient.data.l[2] = second != nullptr ? static_cast<long>(XInternAtom(display, second, False)) : 0;
    event.xclient.data.l[3] = 1;
    XSendEvent(display, DefaultRootWindow(display), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(display);
}

} // namespace

std::vector<Output> activeOutputs(void* opaque) {
    Display* display = asDisplay(opaque);
    const IgnoreErrors guard(display);
    const Owned<XRRScreenResources> resources(XRRGetScreenResourcesCurrent(display, DefaultRootWindow(display)));
    std::vector<Output> result;
    if (!resources) {
        return result;
    }
    for (const RROutput output : std::span(resources->outputs, static_cast<std::size_t>(resources->noutput))) {
        const Owned<XRROutputInfo> info(XRRGetOutputInfo(display, resources.get(), output));
        if (!info || info->crtc == None) {
            continue;
        }
        const Owned<XRRCrtcInfo> crtc(XRRGetCrtcInfo(display, resources.get(), info->crtc));
        if (crtc) {
            result.push_back({outputName(display, output, *info),
                              {crtc->x, crtc->y, static_cast<int>(crtc->width), static_cast<int>(crtc->height)}});
        }
    }
    return result;
}

int rootHeight(void* display) {
    return windowRectangle(display, DefaultRootWindow(asDisplay(display))).value_or(Rectangle{}).height;
}

std::optional<Point> pointerLocation(void* opaque) {
    Display* display = asDisplay(opaque);
    Window root = None;
    Window child = None;
    Point result;
    int x = 0;
    int y = 0;
    unsigned buttons = 0;
    if (XQueryPointer(display, DefaultRootWindow(display), &root, &child, &result.x, &result.y, &x, &y, &buttons) ==
        0) {
        return std::nullopt;
    }
    return result;
}

std::optional<Rectangle> windowRectangle(void* opaque, unsigned long window) {
    Display* display = asDisplay(opaque);
    const IgnoreErrors guard(display);
    Window root = None;
    Window child = None;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (XGetGeometry(display, window, &root, &x, &y, &width, &height, &border, &depth) == 0 ||
        XTranslateCoordinates(display, window, root, 0, 0, &x, &y, &child) == 0) {
        return std::nullopt;
    }
    return Rectangle{x, y, static_cast<int>(width), static_cast<int>(height)};
}

Extents frameExtents(void* opaque, unsigned long window) {
    Display* display = asDisplay(opaque);
    const IgnoreErrors guard(display);
    const Property property = windowProperty(display, window, "_NET_FRAME_EXTENTS", XA_CARDINAL, 4);
    const auto values = property.longs();
    return values.size() == 4 ? Extents{values[0], values[1], values[2], values[3]} : Extents{};
}

bool managerSupports(void* opaque, const char* name) {
    Display* display = asDisplay(opaque);
    const Window root = DefaultRootWindow(display);
    if (windowProperty(display, root, "_NET_SUPPORTING_WM_CHECK", XA_WINDOW, 1).longs().empty()) {
        return false;
    }
    const Property supported = windowProperty(display, root, "_NET_SUPPORTED", XA_ATOM, 4096);
    return std::ranges::find(supported.longs(), static_cast<long>(XInternAtom(display, name, False))) !=
           supported.longs().end();
}

void setFullScreen(void* display, unsigned long window, FullScreenState state, bool above) {
    changeState(asDisplay(display), window, state == FullScreenState::On, "_NET_WM_STATE_FULLSCREEN",
                above ? "_NET_WM_STATE_ABOVE" : nullptr);
}

void setAbove(void* display, unsigned long window, bool above) {
    changeState(asDisplay(display), window, above, "_NET_WM_STATE_ABOVE", nullptr);
}

void activate(void* opaque, unsigned long window) {
    Display* display = asDisplay(opaque);
    const IgnoreErrors guard(display);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.format = 32;
    event.xclient.message_type = XInternAtom(display, "_NET_ACTIVE_WINDOW", False);
    event.xclient.data.l[0] = 2;
    XSendEvent(display, DefaultRootWindow(display), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(display);
}

} // namespace platform::x11
