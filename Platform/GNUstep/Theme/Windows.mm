// Which windows show the menu bar.
#import "FlatTheme.h"
#import "Hooks.h"

using namespace flattheme;

void flattheme::installWindowHooks() {}

void flattheme::setShowsMenuBar(NSWindow *, bool) {}
