// GNUstep 0.29 moves the keyboard only along the loop that a nib or code has set up, and leaves it nowhere in windows
// without one: Tab visits every control, in reading order, unless a loop is set up that visits them all.
#import "Hooks.h"
#import "Platform.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace {

std::vector<NSView *> keyViewsIn(NSView *view);

// The higher end of a view in its superview.
CGFloat topOf(NSView *view) {
    return [[view superview] isFlipped] ? NSMinY([view frame]) : -NSMaxY([view frame]);
}

// Rows from the top, each from the left. A row goes on as long as the next view begins above the middle of the row's
// shortest one.
std::vector<NSView *> inReadingOrder(NSArray *views) {
    std::vector<NSView *> sorted;
    for (NSView *view in views) {
        sorted.push_back(view);
    }
    std::sort(sorted.begin(), sorted.end(), [](NSView *a, NSView *b) { return topOf(a) < topOf(b); });
    for (auto row = sorted.begin(); row != sorted.end();) {
        CGFloat limit = std::numeric_limits<CGFloat>::max();
        auto end = row;
        while (end != sorted.end() && topOf(*end) < limit) {
            limit = std::min(limit, topOf(*end) + NSHeight([*end frame]) / 2);
            ++end;
        }
        end = std::max(end, row + 1);
        std::sort(row, end, [](NSView *a, NSView *b) { return NSMinX([a frame]) < NSMinX([b frame]); });
        row = end;
    }
    return sorted;
}

// What cannot do anything with keys is passed over: the inside of scroll views, texts that are only to be read.
bool isStop(NSView *view) {
    for (Class passed : {[NSScroller class], [NSClipView class], [NSScrollView class]}) {
        if ([view isKindOfClass:passed]) {
            return false;
        }
    }
    if (![view canBecomeKeyView]) {
        return false;
    }
    if ([view isKindOfClass:[NSTextField class]] && ![(NSTextField *)view isEditable]) {
        return false;
    }
    return ![view isKindOfClass:[NSControl class]] || [(NSControl *)view isEnabled];
}

void append(std::vector<NSView *> &stops, const std::vector<NSView *> &more) {
    stops.insert(stops.end(), more.begin(), more.end());
}

std::vector<NSView *> keyViewsIn(NSView *view) {
    if ([view isHidden] || [view isKindOfClass:[NSMenuView class]]) {
        return {};
    }
    std::vector<NSView *> stops;
    if (isStop(view)) {
        stops.push_back(view);
    }
    // The parts of a control (a cell's editor, a table's header) belong to it.
    if (![view isKindOfClass:[NSControl class]] && ![view isKindOfClass:[NSText class]]) {
        for (NSView *subview : inReadingOrder([view subviews])) {
            append(stops, keyViewsIn(subview));
        }
    }
    return stops;
}

// The loop that starts at a view as it was set up, without the stops that are none at the moment.
std::vector<NSView *> loopFrom(NSView *view, const std::vector<NSView *> &stops) {
    std::vector<NSView *> loop;
    NSView *next = view;
    // A loop may be tied into a knot: it is followed for as long as it can be one.
    for (std::size_t i = 0; next != nil && i < 4 * stops.size() + 4; i++) {
        if (std::find(stops.begin(), stops.end(), next) != stops.end()) {
            loop.push_back(next);
        }
        next = [next nextKeyView];
        if (next == view) {
            break;
        }
    }
    return loop;
}

// The next stop after a view, or the one before it.
NSView *neighbour(NSWindow *window, NSView *view, bool forwards) {
    std::vector<NSView *> stops = keyViewsIn([[window contentView] superview]);
    if (stops.empty()) {
        return nil;
    }
    std::vector<NSView *> loop = loopFrom(view, stops);
    if (loop.size() == stops.size()) {
        stops = std::move(loop);
    }
    if (!forwards) {
        std::reverse(stops.begin(), stops.end());
    }
    const auto place = std::find(stops.begin(), stops.end(), view);
    if (place == stops.end() || place + 1 == stops.end()) {
        return stops.front();
    }
    return *(place + 1);
}

bool moveKeys(NSWindow *window, NSView *view, bool forwards) {
    NSView *next = neighbour(window, view, forwards);
    if (next == nil || ![window makeFirstResponder:next]) {
        return false;
    }
    if ([next isKindOfClass:[NSTextField class]]) {
        [(NSTextField *)next selectText:nil];
    }
    [next scrollRectToVisible:[next bounds]];
    return true;
}

platform::Hook<void, NSView *> followingHook;
platform::Hook<void, NSView *> precedingHook;
platform::Hook<void, id> nextHook;
platform::Hook<void, id> previousHook;

void selectFollowing(id self, SEL command, NSView *view) {
    if (!moveKeys(self, view, true)) {
        followingHook.original(self, command, view);
    }
}

void selectPreceding(id self, SEL command, NSView *view) {
    if (!moveKeys(self, view, false)) {
        precedingHook.original(self, command, view);
    }
}

// The view that has the keys: an editor belongs to its field.
NSView *keyView(NSWindow *window) {
    NSResponder *responder = [window firstResponder];
    if ([responder isKindOfClass:[NSText class]] && [(NSText *)responder isFieldEditor]) {
        responder = [(NSText *)responder delegate];
    }
    return [responder isKindOfClass:[NSView class]] ? (NSView *)responder : nil;
}

void selectNext(id self, SEL command, id sender) {
    if (!moveKeys(self, keyView(self), true)) {
        nextHook.original(self, command, sender);
    }
}

void selectPrevious(id self, SEL command, id sender) {
    if (!moveKeys(self, keyView(self), false)) {
        previousHook.original(self, command, sender);
    }
}

} // namespace

namespace platform {

void installKeyViews() {
    followingHook.install([NSWindow class], @selector(selectKeyViewFollowingView:), selectFollowing);
    precedingHook.install([NSWindow class], @selector(selectKeyViewPrecedingView:), selectPreceding);
    nextHook.install([NSWindow class], @selector(selectNextKeyView:), selectNext);
    previousHook.install([NSWindow class], @selector(selectPreviousKeyView:), selectPrevious);
}

} // namespace platform
