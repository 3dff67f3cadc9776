// GNUstep keeps a view's alpha value without ever drawing with it.
//
// The picture behind a translucent view is kept, the view and its subviews are drawn as ever, and then the kept picture
// is dissolved back over them with 1 - alpha. That is exactly "the subtree at alpha over its background", for nested
// translucent views too.
#import "AlphaDrawing.h"

#import "Hooks.h"

#import <AppKit/DPSOperators.h>

#include <algorithm>

@interface NSView (DrawingInternals)
- (void)_lockFocusInContext:(NSGraphicsContext *)context inRect:(NSRect)rect;
- (void)unlockFocusNeedsFlush:(BOOL)flush;
@end

namespace platform::alpha {

namespace {

struct Hooks {
    Hook<void, NSRect, NSGraphicsContext *> display;
    Hook<void, NSRect> displayRect;
    Hook<void, NSRect> displayIfNeeded;
    Hook<void, NSRect> displayIfNeededIgnoringOpacity;
    Hook<NSView *> opaqueAncestor;
    Hook<void, BOOL> unlockFocus;
    Hook<void, NSRect, NSSize> scroll;
    Hook<void, CGFloat> setAlpha;
    Hook<CGFloat> alphaValue;
    Hook<NSInteger> graphicsState;
};

constexpr double nothing = 0.0001;

Hooks hooks;
int displaysUnderWay = 0;
// While a picture is taken, drawing in this window goes to another graphics state.
NSWindow *redirectedWindow = nil;
NSInteger redirectedState = 0;

/// Sets a variable until the end of the scope, also when drawing raises.
template <class Value> class Scoped {
public:
    Scoped(Value &variable, Value value) : variable_(variable), before_(variable) { variable_ = value; }
    Scoped(const Scoped &) = delete;
    Scoped &operator=(const Scoped &) = delete;
    ~Scoped() { variable_ = before_; }

private:
    Value &variable_;
    Value before_;
};

/// Shows nothing of the drawing in a window before it is complete.
class HeldFlush {
public:
    explicit HeldFlush(NSWindow *window) : window_(window) { [window_ disableFlushWindow]; }
    HeldFlush(const HeldFlush &) = delete;
    HeldFlush &operator=(const HeldFlush &) = delete;
    ~HeldFlush() {
        [window_ enableFlushWindow];
        [window_ flushWindowIfNeeded];
    }

private:
    NSWindow *window_;
};

double opacityOf(NSView *view) {
    const Transition *transition = transitionOf(view);
    return transition != nullptr ? transition->alpha * transition->opacity : 1;
}

CrossFade *crossFadeOf(NSView *view) {
    Transition *transition = transitionOf(view);
    return transition != nullptr && !transition->crossFade.oldPicture.isEmpty() ? &transition->crossFade : nullptr;
}

bool isTranslucent(NSView *view) {
    return opacityOf(view) < 1 - nothing || crossFadeOf(view) != nullptr;
}

// The outermost view around `view` that cannot be drawn again over itself.
NSView *outermostTranslucent(NSView *view) {
    NSView *outermost = nil;
    if (anyTransition()) {
        for (; view != nil; view = [view superview]) {
            const Transition *transition = transitionOf(view);
            if (transition != nullptr && (isTranslucent(view) || transition->transformed)) {
                outermost = view;
            }
        }
    }
    return outermost;
}

// Inside a translucent view the first view that can be drawn by itself lies outside the outermost translucent one.
NSView *parentToDraw(NSView *view) {
    NSView *parent = [outermostTranslucent(view) superview];
    return parent != nil ? hooks.opaqueAncestor.original(parent, @selector(opaqueAncestor)) : nil;
}

void markDrawn(NSView *view) {
    [view setNeedsDisplay:NO];
    for (NSView *subview in [view subviews]) {
        markDrawn(subview);
    }
}

// Lays `source` over `rect` of the window (in its base coordinates), `fraction` of it.
void dissolve(NSWindow *window, NSRect rect, const OffscreenSurface &source, double fraction) {
    NSView *frameView = [window contentView];
    while ([frameView superview] != nil) {
        frameView = [frameView superview];
    }
    [frameView _lockFocusInContext:nil inRect:rect];
    DPSdissolve(GSCurrentContext(), 0, 0, rect.size.width, rect.size.height, source.graphicsState(), rect.origin.x,
                rect.origin.y, fraction);
    [frameView unlockFocusNeedsFlush:YES];
}

// The old picture goes over the kept background; together they are dissolved over the new view, less and less of them.
void mixCrossFade(NSView *view, const CrossFade &fade, NSRect rect, OffscreenSurface &background) {
    const NSRect old = [[view superview] convertRect:fade.oldFrame toView:nil];
    const NSRect common = NSIntersectionRect(old, rect);
    if (!NSIsEmptyRect(common)) {
        background.composite(fade.oldPicture.graphicsState(), NSOffsetRect(common, -old.origin.x, -old.origin.y),
                             NSMakePoint(common.origin.x - rect.origin.x, common.origin.y - rect.origin.y),
                             NSCompositeSourceOver);
    }
    dissolve([view window], rect, background, 1 - fade.progress);
}

void displayTranslucent(NSView *view, SEL command, NSRect local, NSGraphicsContext *context) {
    const double opacity = opacityOf(view);
    if (opacity <= nothing && crossFadeOf(view) == nullptr) {
        markDrawn(view);
        return;
    }
    NSWindow *window = [view window];
    const NSRect rect = NSIntegralRect([view convertRect:local toView:nil]);
    const HeldFlush held(window);
    const SurfaceLoan background(rect.size);
    background->composite([window gState], rect, NSZeroPoint, NSCompositeCopy);
    hooks.display.original(view, command, local, context);
    // Looked up again: drawing runs the view's own code, which may have ended the transition.
    if (const CrossFade *fade = crossFadeOf(view)) {
        mixCrossFade(view, *fade, rect, *background);
    }
    if (opacity < 1 - nothing) {
        dissolve(window, rect, *background, 1 - opacity);
    }
}

void display(id self, SEL command, NSRect rect, NSGraphicsContext *context) {
    const Scoped underWay(displaysUnderWay, displaysUnderWay + 1);
    NSWindow *window = [self window];
    // Printing and the like draw in a context of their own, where nothing can be read back.
    const bool elsewhere = context != nil && context != [window graphicsContext];
    if (!anyTransition() || window == nil || elsewhere || !isTranslucent(self) || ![self canDraw]) {
        hooks.display.original(self, command, rect, context);
        return;
    }
    const NSRect visible = NSIntersectionRect(rect, [self visibleRect]);
    if (!NSIsEmptyRect(visible)) {
        displayTranslucent(self, command, visible, context);
    }
}

// Drawing with the focus locked outside of display (pressed buttons, carets) knows no alpha: it is drawn again.
void unlockFocus(id self, SEL command, BOOL flush) {
    hooks.unlockFocus.original(self, command, flush);
    if (anyTransition() && flush && displaysUnderWay == 0 && outermostTranslucent(self) != nil) {
        [self setNeedsDisplay:YES];
    }
}

NSView *opaqueAncestor(id self, SEL command) {
    NSView *parent = parentToDraw(self);
    return parent != nil ? parent : hooks.opaqueAncestor.original(self, command);
}

void displayThroughParent(NSView *self, SEL command, NSRect rect, const Hook<void, NSRect> &hook) {
    NSView *parent = parentToDraw(self);
    if (parent == nil) {
        hook.original(self, command, rect);
        return;
    }
    const NSRect visible = NSIntersectionRect(rect, [self visibleRect]);
    if (!NSIsEmptyRect(visible)) {
        hook.original(parent, command, [parent convertRect:visible fromView:self]);
    }
}

void displayRect(id self, SEL command, NSRect rect) {
    displayThroughParent(self, command, rect, hooks.displayRect);
}

void displayIfNeeded(id self, SEL command, NSRect rect) {
    if ([self needsDisplay]) {
        displayThroughParent(self, command, rect, hooks.displayIfNeeded);
    }
}

// Rounding under scaled or rotated parents leaves a subview marked after its parent was drawn; it would then be drawn
// alone, over itself.
void displayIfNeededIgnoringOpacity(id self, SEL command, NSRect rect) {
    NSView *parent = [self needsDisplay] ? parentToDraw(self) : nil;
    if (parent == nil) {
        hooks.displayIfNeededIgnoringOpacity.original(self, command, rect);
        return;
    }
    const NSRect visible = [self visibleRect];
    if (!NSIsEmptyRect(visible)) {
        [parent displayRectIgnoringOpacity:[parent convertRect:visible fromView:self]];
    }
    markDrawn(self);
}

// Copying what is on the screen would copy the background with it.
void scroll(id self, SEL command, NSRect rect, NSSize distance) {
    if (outermostTranslucent(self) != nil) {
        [self setNeedsDisplay:YES];
    } else {
        hooks.scroll.original(self, command, rect, distance);
    }
}

void storeAlpha(id self, SEL command, CGFloat alpha) {
    const double value = std::clamp<double>(alpha, 0, 1);
    if (value != [self alphaValue]) {
        hooks.setAlpha.original(self, command, value);
        setAlpha(self, value);
    }
}

CGFloat alphaValue(id self, SEL /*command*/) {
    const Transition *transition = transitionOf(self);
    return transition != nullptr ? transition->alpha : 1;
}

NSInteger graphicsState(id self, SEL command) {
    return self == redirectedWindow ? redirectedState : hooks.graphicsState.original(self, command);
}

/// A graphics state of a cleared surface whose coordinates are a window's, less `origin`.
class ShiftedState {
public:
    ShiftedState(const OffscreenSurface &surface, NSPoint origin) {
        const LockedFocus focus(surface.canvas());
        context_ = GSCurrentContext();
        DPScompositerect(context_, 0, 0, surface.size().width, surface.size().height, NSCompositeClear);
        DPSgsave(context_);
        DPStranslate(context_, -origin.x, -origin.y);
        state_ = GSDefineGState(context_);
        DPSgrestore(context_);
    }
    ShiftedState(const ShiftedState &) = delete;
    ShiftedState &operator=(const ShiftedState &) = delete;
    ~ShiftedState() { GSUndefineGState(context_, state_); }
    [[nodiscard]] NSInteger number() const { return state_; }

private:
    NSGraphicsContext *context_ = nil;
    NSInteger state_ = 0;
};

} // namespace

void redraw(NSView *view) {
    // A pixel more on each side: moving views leave half covered pixels behind.
    [[view superview] setNeedsDisplayInRect:NSIntegralRect(NSInsetRect([view frame], -1, -1))];
    [view setNeedsDisplay:YES];
}

OffscreenSurface pictureOf(NSView *view) {
    const NSRect rect = NSIntegralRect([view convertRect:[view bounds] toView:nil]);
    OffscreenSurface picture(rect.size);
    const ShiftedState state(picture, rect.origin);
    const Scoped window(redirectedWindow, [view window]);
    const Scoped number(redirectedState, state.number());
    const Scoped underWay(displaysUnderWay, displaysUnderWay + 1);
    hooks.display.original(view, @selector(displayRectIgnoringOpacity:inContext:), [view bounds],
                           [[view window] graphicsContext]);
    return picture;
}

} // namespace platform::alpha

namespace platform {

void installAlphaDrawing();

void installAlphaDrawing() {
    using namespace alpha;
    Class view = [NSView class];
    hooks.opaqueAncestor.install(view, @selector(opaqueAncestor), &opaqueAncestor);
    hooks.alphaValue.install(view, @selector(alphaValue), &alphaValue);
    hooks.setAlpha.install(view, @selector(setAlphaValue:), &storeAlpha);
    hooks.unlockFocus.install(view, @selector(unlockFocusNeedsFlush:), &unlockFocus);
    hooks.displayRect.install(view, @selector(displayRect:), &displayRect);
    hooks.displayIfNeeded.install(view, @selector(displayIfNeededInRect:), &displayIfNeeded);
    hooks.displayIfNeededIgnoringOpacity.install(view, @selector(displayIfNeededInRectIgnoringOpacity:),
                                                 &displayIfNeededIgnoringOpacity);
    hooks.scroll.install(view, @selector(scrollRect:by:), &scroll);
    hooks.graphicsState.install([NSWindow class], @selector(gState), &graphicsState);
    hooks.display.install(view, @selector(displayRectIgnoringOpacity:inContext:), &display);
}

} // namespace platform
