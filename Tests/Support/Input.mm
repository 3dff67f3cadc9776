#import "Input.h"

#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <vector>

namespace test {

namespace {

// Between two events, so that a program sees them as those of a person (and not as a double click).
constexpr unsigned long pauseMilliseconds = 15;

// A connection of its own: the server waits on it between two events without holding up the application's one.
Display *connection() {
    static Display *display = XOpenDisplay(nullptr);
    return display;
}

KeySym keysymOf(const std::string &name) {
    if (name == "Control") {
        return XK_Control_L;
    }
    if (name == "Shift") {
        return XK_Shift_L;
    }
    if (name == "Alt") {
        return XK_Alt_L;
    }
    const KeySym found = XStringToKeysym(name.c_str());
    if (found == NoSymbol && name.size() == 1) {
        return static_cast<KeySym>(static_cast<unsigned char>(name.front()));
    }
    return found;
}

void sendKey(KeyCode code, bool down) {
    XTestFakeKeyEvent(connection(), code, down ? True : False, pauseMilliseconds);
}

void sendMotion(NSWindow *window, NSPoint point, unsigned long pause = pauseMilliseconds) {
    const NSPoint onScreen = [window convertBaseToScreen:point];
    Display *display = connection();
    ::Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(display, DefaultRootWindow(display), &root, &x, &y, &width, &height, &border, &depth);
    XTestFakeMotionEvent(display, -1, static_cast<int>(onScreen.x),
                         static_cast<int>(height) - 1 - static_cast<int>(onScreen.y), pause);
}

void sendButton(unsigned button, bool down, unsigned long pause = pauseMilliseconds) {
    XTestFakeButtonEvent(connection(), button, down ? True : False, pause);
}

std::vector<KeySym> keysymsOf(const std::string &chord) {
    std::vector<KeySym> keysyms;
    std::size_t start = 0;
    for (std::size_t plus = chord.find('+', 1); plus != std::string::npos; plus = chord.find('+', start + 1)) {
        keysyms.push_back(keysymOf(chord.substr(start, plus - start)));
        start = plus + 1;
    }
    keysyms.push_back(keysymOf(chord.substr(start)));
    return keysyms;
}

void send(std::vector<KeySym> keysyms) {
    Display *display = connection();
    // A character on a key's second level needs Shift.
    const KeySym last = keysyms.back();
    const KeyCode code = XKeysymToKeycode(display, last);
    if (XkbKeycodeToKeysym(display, code, 0, 0) != last && XkbKeycodeToKeysym(display, code, 0, 1) == last) {
        keysyms.insert(keysyms.begin(), XK_Shift_L);
    }
    for (const KeySym keysym : keysyms) {
        sendKey(XKeysymToKeycode(display, keysym), true);
    }
    for (auto keysym = keysyms.rbegin(); keysym != keysyms.rend(); ++keysym) {
        sendKey(XKeysymToKeycode(display, *keysym), false);
    }
    XFlush(display);
}

} // namespace

bool giveKeyboard(NSWindow *window) {
    const auto hasIt = [window] {
        ::Window focused = 0;
        int revert = 0;
        XGetInputFocus(connection(), &focused, &revert);
        GSDisplayServer *server = GSServerForWindow(window);
        const int number = static_cast<int>([window windowNumber]);
        return [window isKeyWindow] && focused == reinterpret_cast<uintptr_t>([server windowDevice:number]);
    };
    // A window manager that is busy with another window's end may take the keyboard away again: it is asked for until
    // it stays.
    for (int attempt = 0; attempt < 30; attempt++) {
        if (runUntil(hasIt, 0.3)) {
            return true;
        }
        [window makeKeyAndOrderFront:nil];
        [GSServerForWindow(window) setinputfocus:static_cast<int>([window windowNumber])];
    }
    return false;
}

void pressKey(const std::string &chord) {
    send(keysymsOf(chord));
}

void pressKeys(std::initializer_list<std::string> chords) {
    for (const std::string &chord : chords) {
        pressKey(chord);
    }
}

void typeText(const std::string &text) {
    for (const char character : text) {
        send({static_cast<KeySym>(static_cast<unsigned char>(character))});
    }
}

void movePointer(NSWindow *window, NSPoint point) {
    sendMotion(window, point);
    XFlush(connection());
}

void click(NSWindow *window, NSPoint point, unsigned button) {
    // Held for as long as a finger does: a control that is still getting ready to track the press would miss the
    // release.
    constexpr unsigned long held = 100;
    sendMotion(window, point);
    sendButton(button, true);
    sendButton(button, false, held);
    XFlush(connection());
}

void click(NSView *view, unsigned button) {
    const NSRect bounds = [view bounds];
    click([view window], [view convertPoint:NSMakePoint(NSMidX(bounds), NSMidY(bounds)) toView:nil], button);
}

void drag(NSWindow *window, NSPoint from, NSPoint to) {
    // Slowly: a menu that opens on the press must lie under the pointer before it moves.
    constexpr unsigned long slowly = 120;
    sendMotion(window, from);
    sendButton(1, true);
    sendMotion(window, NSMakePoint((from.x + to.x) / 2, (from.y + to.y) / 2), slowly);
    sendMotion(window, to, slowly);
    sendButton(1, false, slowly);
    XFlush(connection());
}

} // namespace test
