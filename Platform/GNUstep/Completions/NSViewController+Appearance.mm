// GNUstep's view controllers are not told when their views appear and disappear.
#import "NSViewController+Appearance.h"

#import "Hooks.h"

#include <unordered_map>
#include <vector>

@implementation NSViewController (Appearance)

- (void)viewWillAppear {
}

- (void)viewDidAppear {
}

- (void)viewWillDisappear {
}

- (void)viewDidDisappear {
}

@end

namespace platform {

namespace {

enum class Phase { gone, appearing, shown, disappearing };

// A controller that has a view. Neither is kept alive: the controller leaves the list when it goes or loses its view.
struct Entry {
    NSViewController *controller;
    Phase phase = Phase::gone;
};

std::unordered_map<NSView *, Entry> &entries() {
    static std::unordered_map<NSView *, Entry> map;
    return map;
}

Hook<void, NSView *> setView;
Hook<void> deallocController;
Hook<void, NSWindow *> viewWillMove;
Hook<void> viewDidMove;
Hook<void, NSWindowOrderingMode, NSInteger> orderWindow;

void forget(NSViewController *controller) {
    std::erase_if(entries(), [&](const auto &entry) { return entry.second.controller == controller; });
}

// Takes the view's controller from one phase to another, if it is in that phase, and tells it so.
void advance(NSView *view, Phase from, Phase to) {
    const auto found = entries().find(view);
    if (found == entries().end() || found->second.phase != from) {
        return;
    }
    found->second.phase = to;
    NSViewController *controller = [[found->second.controller retain] autorelease];
    switch (to) {
    case Phase::appearing:
        return [controller viewWillAppear];
    case Phase::shown:
        return [controller viewDidAppear];
    case Phase::disappearing:
        return [controller viewWillDisappear];
    case Phase::gone:
        return [controller viewDidDisappear];
    }
}

// The same for all controllers with views in `window`.
void advanceAll(NSWindow *window, Phase from, Phase to) {
    std::vector<NSView *> views;
    for (const auto &[view, entry] : entries()) {
        if ([view window] == window && entry.phase == from) {
            views.push_back(view);
        }
    }
    for (NSView *view : views) {
        advance(view, from, to);
    }
}

void newSetView(id self, SEL selector, NSView *view) {
    forget(self);
    setView.original(self, selector, view);
    if (view != nil) {
        entries()[view] = Entry{self};
    }
}

void newDealloc(id self, SEL selector) {
    forget(self);
    deallocController.original(self, selector);
}

void newViewWillMove(id self, SEL selector, NSWindow *window) {
    if (window != [self window]) {
        advance(self, Phase::shown, Phase::disappearing);
        if ([window isVisible]) {
            advance(self, Phase::gone, Phase::appearing);
        }
    }
    viewWillMove.original(self, selector, window);
}

void newViewDidMove(id self, SEL selector) {
    viewDidMove.original(self, selector);
    advance(self, Phase::disappearing, Phase::gone);
    advance(self, Phase::appearing, Phase::shown);
}

void newOrderWindow(id self, SEL selector, NSWindowOrderingMode place, NSInteger other) {
    const bool wasVisible = [self isVisible];
    if (place == NSWindowOut) {
        advanceAll(self, Phase::shown, Phase::disappearing);
    } else if (!wasVisible) {
        advanceAll(self, Phase::gone, Phase::appearing);
    }
    orderWindow.original(self, selector, place, other);
    advanceAll(self, Phase::disappearing, Phase::gone);
    advanceAll(self, Phase::appearing, Phase::shown);
}

} // namespace

void installViewAppearanceHooks() {
    setView.install([NSViewController class], @selector(setView:), newSetView);
    deallocController.install([NSViewController class], @selector(dealloc), newDealloc);
    viewWillMove.install([NSView class], sel_registerName("_viewWillMoveToWindow:"), newViewWillMove);
    viewDidMove.install([NSView class], sel_registerName("_viewDidMoveToWindow"), newViewDidMove);
    orderWindow.install([NSWindow class], @selector(orderWindow:relativeTo:), newOrderWindow);
}

} // namespace platform
