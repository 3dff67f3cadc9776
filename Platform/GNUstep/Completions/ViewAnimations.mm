#import "ViewAnimations.h"

#import "AlphaDrawing.h"
#import "AnimationDriver.h"
#import "Hooks.h"

namespace platform::animation {

namespace {

struct Hooks {
    Hook<void, CGFloat> setAlpha;
    Hook<void, NSRect> setFrame;
    Hook<void, NSPoint> setFrameOrigin;
    Hook<void, NSSize> setFrameSize;
    Hook<void, BOOL> setHidden;
    Hook<void> dealloc;
};

Hooks hooks;

// Fades belong to the property that they are about, though they move a number of their own.
Track fadeTrack(NSView *view) {
    Track track {
        view, @selector(isHidden), 1, nullptr, nullptr
    };
    track.read = [view] {
        const alpha::Transition *transition = alpha::transitionOf(view);
        return Values{transition != nullptr ? transition->opacity : 1};
    };
    track.write = [view](const Values &values) {
        alpha::beginTransition(view).opacity = values[0];
        alpha::redraw(view);
    };
    return track;
}

Track crossFadeTrack(NSView *view) {
    Track track{view, sel_registerName("crossFade"), 1, nullptr, nullptr};
    track.read = [view] {
        const alpha::Transition *transition = alpha::transitionOf(view);
        return Values{transition != nullptr ? transition->crossFade.progress : 1};
    };
    track.write = [view](const Values &values) {
        alpha::beginTransition(view).crossFade.progress = values[0];
        alpha::redraw(view);
    };
    return track;
}

// AppKit itself sets frames to what they are; that is no animation.
bool changesAnything(const Change &change) {
    const Values now = change.track.read();
    for (std::size_t part = 0; part < change.count; ++part) {
        if (now.at(change.first + part) != change.values.at(part)) {
            return true;
        }
    }
    return AnimationDriver::shared().isAnimating(change.track, change.first);
}

bool animateImplicitly(NSView *view, SEL setter, const double *values) {
    if (AnimationDriver::shared().isMoving() || !AnimationGroup::currentAnimatesImplicitly()) {
        return false;
    }
    auto change = changeBySetter(view, setter, values);
    if (!change || !changesAnything(*change)) {
        return false;
    }
    AnimationDriver::shared().start(std::move(*change));
    return true;
}

void setAlphaValue(id self, SEL command, CGFloat alpha) {
    const double value = alpha;
    if (!animateImplicitly(self, command, &value)) {
        hooks.setAlpha.original(self, command, alpha);
    }
}

void setFrame(id self, SEL command, NSRect frame) {
    const double values[] = {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height};
    if ([self window] == nil || !animateImplicitly(self, command, values)) {
        hooks.setFrame.original(self, command, frame);
    }
}

void setFrameOrigin(id self, SEL command, NSPoint origin) {
    const double values[] = {origin.x, origin.y};
    if ([self window] == nil || !animateImplicitly(self, command, values)) {
        hooks.setFrameOrigin.original(self, command, origin);
    }
}

void setFrameSize(id self, SEL command, NSSize size) {
    const double values[] = {size.width, size.height};
    if ([self window] == nil || !animateImplicitly(self, command, values)) {
        hooks.setFrameSize.original(self, command, size);
    }
}

// Hiding or showing a view directly overrules a fade that is under way.
void setHidden(id self, SEL command, BOOL hidden) {
    if (alpha::transitionOf(self) != nullptr && !AnimationDriver::shared().isMoving()) {
        AnimationDriver::shared().stop(self, @selector(isHidden));
        alpha::endFade(self);
    }
    hooks.setHidden.original(self, command, hidden);
}

void dealloc(id self, SEL command) {
    AnimationDriver::shared().forget(self);
    alpha::forgetTransition(self);
    hooks.dealloc.original(self, command);
}

} // namespace

void animateHidden(NSView *view, bool hidden) {
    alpha::Transition &transition = alpha::beginTransition(view);
    if (!hidden && [view isHidden]) {
        hooks.setHidden.original(view, @selector(setHidden:), NO);
        transition.opacity = 0;
    }
    Change change{fadeTrack(view), 0, 1, {hidden ? 0.0 : 1.0}};
    AnimationDriver::shared().start(std::move(change), [view, hidden] {
        if (hidden) {
            hooks.setHidden.original(view, @selector(setHidden:), YES);
        }
        alpha::endFade(view);
    });
}

void crossFade(NSView *parent, NSView *oldView, NSView *newView) {
    if (newView == nil || newView == oldView || [oldView window] == nil || [oldView isHidden]) {
        [parent replaceSubview:oldView with:newView];
        return;
    }
    alpha::CrossFade fade{alpha::pictureOf(oldView), [oldView frame], 0};
    [parent replaceSubview:oldView with:newView];
    alpha::beginTransition(newView).crossFade = std::move(fade);
    Change change{crossFadeTrack(newView), 0, 1, {1.0}};
    AnimationDriver::shared().start(std::move(change), [newView] { alpha::endCrossFade(newView); });
}

} // namespace platform::animation

namespace platform {

void installImplicitAnimation();

void installImplicitAnimation() {
    using namespace animation;
    Class view = [NSView class];
    hooks.setAlpha.install(view, @selector(setAlphaValue:), &setAlphaValue);
    hooks.setFrame.install(view, @selector(setFrame:), &setFrame);
    hooks.setFrameOrigin.install(view, @selector(setFrameOrigin:), &setFrameOrigin);
    hooks.setFrameSize.install(view, @selector(setFrameSize:), &setFrameSize);
    hooks.setHidden.install(view, @selector(setHidden:), &setHidden);
    hooks.dealloc.install(view, @selector(dealloc), &dealloc);
}

} // namespace platform
