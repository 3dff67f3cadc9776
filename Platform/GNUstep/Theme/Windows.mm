// Which windows show the menu bar.
#import "ElementHooks.h"
#import "FlatTheme.h"

using namespace flattheme;

void flattheme::installWindowHooks() {}

void flattheme::setShowsMenuBar(NSWindow *, bool) {}
