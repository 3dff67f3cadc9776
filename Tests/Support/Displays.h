// Real displays for tests: plugging, arranging and naming the X server's outputs, its pointer and its cursor.
#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

namespace test {

/// One output that is on: "DUMMY0" to "DUMMY2", in one of the modes 1440x900, 1920x1080 and 1280x720, at a place of the
/// root window in X coordinates (y downwards).
struct Display {
    std::string output;
    int width = 0;
    int height = 0;
    int x = 0;
    int y = 0;
    bool primary = false;

    friend bool operator==(const Display &, const Display &) = default;
};

/// The usual ones: DUMMY0 of 1440x900 (primary), DUMMY1 of 1920x1080 and DUMMY2 of 1280x720 beside each other.
std::vector<Display> usualDisplays(std::size_t count);

/// Turns exactly these outputs on, and waits until AppKit lists their screens. At least one display. Returns whether
/// AppKit came to list them.
bool arrange(const std::vector<Display> &displays);

/// The same without waiting.
void arrangeWithoutWaiting(const std::vector<Display> &displays);

/// Whether AppKit lists exactly these displays' frames.
bool screensMatch(const std::vector<Display> &displays);

/// Gives an output the name that a display would report: up to 13 bytes are kept. "" removes it.
void nameDisplay(const std::string &output, const std::string &name);

/// Moves the pointer to a place of the root window (X coordinates), as a mouse would.
void movePointer(int x, int y);

/// Whether the cursor on screen has a pixel that shows.
bool cursorShows();

/// Whether an X window covers exactly the given frame (AppKit's coordinates) on the X server.
bool covers(NSWindow *window, NSRect frame);

/// The colour at a point of the root window, in AppKit's global coordinates, as 0xRRGGBB.
unsigned screenPixel(NSPoint point);

/// A panel as desktops have them: a magenta window of the kind "dock", kept above ordinary windows by the window
/// manager.
class Panel {
public:
    static constexpr unsigned colour = 0xff00ff;

    /// Shows the panel over `frame` (AppKit's coordinates).
    explicit Panel(NSRect frame);
    ~Panel();
    Panel(const Panel &) = delete;
    Panel &operator=(const Panel &) = delete;

private:
    unsigned long window_;
};

} // namespace test
