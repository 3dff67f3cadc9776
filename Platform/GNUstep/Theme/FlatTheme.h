// The flat light and dark look: a theme of its own that a host chooses; nothing here is installed by linking it.
//
// A host calls `registerDefaults()` before it creates its application object and `install()` when the application has
// finished launching (or at any time before its first window is shown). All functions belong to the main thread.
#pragma once

#import <AppKit/AppKit.h>

namespace flattheme {

/// How the application looks. `automatic` follows the desktop's own preference where it tells one, and is light where
/// it does not.
enum class Look { light, dark, automatic };

/// Registers the defaults that go with the look: the menu bar in the window, scrollers on the right, no application
/// icon window, Control for the menu shortcuts and Alt for alternate characters. They are registered, not written: what
/// the user sets wins. Call it before the application object exists. Idempotent.
void registerDefaults();

/// Makes the flat theme the application's theme, in the look that was set last (automatic at first), and lets it follow
/// the windows' `setAppearance:`: an aqua appearance makes the application light, a dark one dark, nil automatic.
/// Prepares AppKit's completions too (keys for every control and menu among them). Idempotent.
void install();

/// Changes the look of everything that is on screen, at once. With `automatic` the desktop is asked in the background:
/// what it says is applied when it has answered, and asked again whenever the application becomes active.
void setLook(Look look);

/// The look that was set last, which may be `automatic`.
Look currentLook();

/// Posted (without an object) after the colours in use have changed between light and dark, for what has colours of its
/// own to choose.
extern NSString *const lookDidChangeNotification;

/// Whether the colours in use are the dark ones.
bool isDark();

/// Whether `window` shows the menu bar. By default windows that can be resized do; panels, borderless windows and
/// windows of a fixed size (preferences, an About window) do not: a strip of menus in each of them is noise. `window`
/// must not be nil.
void setShowsMenuBar(NSWindow *window, bool shows);

} // namespace flattheme
