// GNUstep 0.29's scroll view with scrollers that hide themselves lays itself out for ever when its content fits only
// without them: each scroller that comes makes it too large, each that goes makes it fit.
#import "Hooks.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <vector>

namespace {

platform::Hook<void> tileHook;

// The scroll views that are being laid out, once for each level.
std::vector<id> &beingTiled() {
    static std::vector<id> views;
    return views;
}

void tile(id self, SEL command) {
    constexpr std::ptrdiff_t enough = 4;
    auto &views = beingTiled();
    if (std::count(views.begin(), views.end(), self) >= enough) {
        return;
    }
    views.push_back(self);
    tileHook.original(self, command);
    views.pop_back();
}

} // namespace

namespace platform {

void installScrollViewTiling() {
    tileHook.install([NSScrollView class], @selector(tile), tile);
}

} // namespace platform
