// Real keys and a real pointer for tests: events made by the X server itself (XTEST), so that focus, grabs and key
// bindings take part.
//
// The functions queue the events with the server and return at once; the server sends them a few milliseconds apart.
// Wait with test::runUntil for what they must bring about. Because nothing waits here, a sequence also works while the
// application sits in a menu's or a modal panel's own loop.
#pragma once

#import <AppKit/AppKit.h>

#include <initializer_list>
#include <string>

namespace test {

/// Sees to it that the window manager has given `window` the keyboard, and waits for it. Returns whether it has it.
bool giveKeyboard(NSWindow *window);

/// Presses and releases one key, named as X names it ("Tab", "Return", "Escape", "F10", "space", "a"), with modifiers
/// before it ("Control+s", "Shift+Tab", "Alt+F10"). The window with the keyboard focus gets it: see giveKeyboard.
void pressKey(const std::string &chord);

/// Presses several keys, one after the other.
void pressKeys(std::initializer_list<std::string> chords);

/// Types characters of the ASCII set.
void typeText(const std::string &text);

/// Moves the pointer to a point of a window, in the window's coordinates.
void movePointer(NSWindow *window, NSPoint point);

/// Moves the pointer there and presses and releases a button (1 left, 3 right).
void click(NSWindow *window, NSPoint point, unsigned button = 1);

/// Clicks the middle of a view.
void click(NSView *view, unsigned button = 1);

/// Presses the left button at one point, moves to the other and releases it.
void drag(NSWindow *window, NSPoint from, NSPoint to);

} // namespace test
