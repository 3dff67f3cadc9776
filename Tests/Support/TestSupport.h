// What every test program with windows shares: a real application object, its run loop, waiting for what must happen.
#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <string>

namespace test {

/// Absolute paths, without a slash at the end.
std::string sourceDirectory();
std::string binaryDirectory();
/// The bundle as built; also where a program that links it finds its resources.
std::string bundlePath();

/// Lets the run loop and the event queue work for `seconds`.
void spin(double seconds);

/// Lets the run loop work until `condition` holds, for at most `seconds`. Returns whether it came to hold.
bool runUntil(const std::function<bool()> &condition, double seconds = 10);

/// Lets the run loop work until nothing has happened to `window` (frame, visibility, key state) for a moment: the
/// window manager has placed it and given it the keys.
void runUntilQuiet(NSWindow *window);

/// Writes a picture of the window's content (or of the whole screen for nil) as PNG beside the test's other output.
void savePicture(NSWindow *window, const std::string &name);

/// The colour of the window's pixel at a point of its content, in window coordinates, as 0xRRGGBB; it is read from the
/// X server, so it is what a user sees.
unsigned pixel(NSWindow *window, NSPoint point);

} // namespace test
