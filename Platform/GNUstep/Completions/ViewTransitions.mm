// How translucent views are.
#import "ViewTransitions.h"

#import "AlphaDrawing.h"

#include <memory>
#include <unordered_map>

namespace platform::alpha {

namespace {

using Table = std::unordered_map<NSView *, Transition>;

// Never destroyed: views are deallocated after static objects are.
Table &table() {
    static auto *const shared = std::make_unique<Table>().release();
    return *shared;
}

void dropWithoutEffect(NSView *view) {
    const auto found = table().find(view);
    const Transition &transition = found->second;
    if (transition.alpha >= 1 && transition.opacity >= 1 && transition.crossFade.oldPicture.isEmpty() &&
        !transition.transformed) {
        // The old picture has a window of its own, whose views are looked up here when they go.
        const auto dropped = table().extract(found);
    }
    redraw(view);
}

} // namespace

bool anyTransition() {
    return !table().empty();
}

Transition *transitionOf(NSView *view) {
    if (table().empty()) {
        return nullptr;
    }
    const auto found = table().find(view);
    return found == table().end() ? nullptr : &found->second;
}

Transition &beginTransition(NSView *view) {
    return table()[view];
}

void setAlpha(NSView *view, double alpha) {
    beginTransition(view).alpha = alpha;
    dropWithoutEffect(view);
}

void setTransformed(NSView *view, bool transformed) {
    beginTransition(view).transformed = transformed;
    dropWithoutEffect(view);
}

void endFade(NSView *view) {
    if (Transition *transition = transitionOf(view)) {
        transition->opacity = 1;
        dropWithoutEffect(view);
    }
}

void endCrossFade(NSView *view) {
    if (Transition *transition = transitionOf(view)) {
        transition->crossFade = {};
        dropWithoutEffect(view);
    }
}

void forgetTransition(NSView *view) {
    const auto dropped = table().extract(view);
}

} // namespace platform::alpha
