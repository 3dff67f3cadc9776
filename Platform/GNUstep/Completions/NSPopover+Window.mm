// GNUstep 0.29's NSPopover does not convert its rectangle, swaps its edges, takes no keys, does not close on a click
// outside and never says that it is shown: its showing and closing are replaced.
#import "PopoverWindow.h"

using platform::popover::Edge;
using platform::popover::Placement;

namespace {

void tell(NSPopover *popover, SEL selector, NSString *name) {
    NSNotification *notification = [NSNotification notificationWithName:name object:popover];
    id delegate = [popover delegate];
    if ([delegate respondsToSelector:selector]) {
        [delegate performSelector:selector withObject:notification];
    }
    [[NSNotificationCenter defaultCenter] postNotification:notification];
}

platform::popover::Rect rectOf(NSRect rect) {
    return {.x = NSMinX(rect), .y = NSMinY(rect), .width = NSWidth(rect), .height = NSHeight(rect)};
}

// An edge of a view as it lies on the screen: a flipped view's lowest y is its top.
Edge screenEdge(NSRectEdge edge, NSView *view) {
    switch (edge) {
    case NSMinXEdge:
        return Edge::left;
    case NSMaxXEdge:
        return Edge::right;
    case NSMinYEdge:
        return [view isFlipped] ? Edge::top : Edge::bottom;
    default:
        return [view isFlipped] ? Edge::bottom : Edge::top;
    }
}

NSArray *allModes() {
    return @[ NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode ];
}

} // namespace

@interface NSPopover (Window)
- (Placement)placementAtRect:(NSRect)rect ofView:(NSView *)view edge:(Edge)edge;
- (void)watch:(NSWindow *)anchorWindow;
- (void)anchorWindowWillClose:(NSNotification *)notification;
- (void)keysWentElsewhere:(NSNotification *)notification;
- (void)closeUnlessNeeded;
@end

// A category's method takes the place of the class's own on this runtime, which is what is wanted here.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSPopover (Window)

- (BOOL)isShown {
    return _shown;
}

- (void)showRelativeToRect:(NSRect)rect ofView:(NSView *)view preferredEdge:(NSRectEdge)preferred {
    if (_shown) {
        [self close];
    }
    NSView *content = [_contentViewController view];
    if ([view window] == nil || content == nil) {
        return;
    }
    _positioningRect = NSIsEmptyRect(rect) ? [view bounds] : rect;
    const Placement placement = [self placementAtRect:_positioningRect ofView:view edge:screenEdge(preferred, view)];
    QVPopoverWindow *window = [[QVPopoverWindow alloc] initWithPopover:self
                                                               content:content
                                                                anchor:view
                                                             placement:placement];
    _realWindow = window;
    tell(self, @selector(popoverWillShow:), NSPopoverWillShowNotification);
    _shown = YES;
    [window makeKeyAndOrderFront:nil];
    [self watch:[view window]];
    tell(self, @selector(popoverDidShow:), NSPopoverDidShowNotification);
}

- (Placement)placementAtRect:(NSRect)rect ofView:(NSView *)view edge:(Edge)edge {
    constexpr CGFloat border = 1;
    const NSSize size =
        NSEqualSizes(_contentSize, NSZeroSize) ? [[_contentViewController view] frame].size : _contentSize;
    const NSRect anchor = [[view window] convertRectToScreen:[view convertRect:rect toView:nil]];
    NSScreen *screen = [[view window] screen] != nil ? [[view window] screen] : [NSScreen mainScreen];
    return platform::popover::place(rectOf(anchor), size.width + 2 * border, size.height + 2 * border, edge,
                                    rectOf([screen visibleFrame]));
}

- (void)watch:(NSWindow *)anchorWindow {
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center addObserver:self
               selector:@selector(anchorWindowWillClose:)
                   name:NSWindowWillCloseNotification
                 object:anchorWindow];
    if (_behavior == NSPopoverBehaviorApplicationDefined) {
        return;
    }
    // Any window's: after a menu or a panel was used inside, the keys may come to another one later.
    [center addObserver:self selector:@selector(keysWentElsewhere:) name:NSWindowDidBecomeKeyNotification object:nil];
    [center addObserver:self
               selector:@selector(keysWentElsewhere:)
                   name:NSApplicationDidResignActiveNotification
                 object:NSApp];
}

- (void)anchorWindowWillClose:(NSNotification *)notification {
    [self close];
}

// A turn later, when it is known who has the keys now.
- (void)keysWentElsewhere:(NSNotification *)notification {
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(closeUnlessNeeded) object:nil];
    [self performSelector:@selector(closeUnlessNeeded) withObject:nil afterDelay:0 inModes:allModes()];
}

- (void)closeUnlessNeeded {
    if (!_shown) {
        return;
    }
    QVPopoverWindow *window = (QVPopoverWindow *)_realWindow;
    NSWindow *key = [NSApp keyWindow];
    if (_behavior == NSPopoverBehaviorSemitransient) {
        if (key == [[window anchor] window]) {
            [self performClose:nil];
        }
        return;
    }
    // A question that is asked from inside belongs to the popover.
    const bool isModal = key != nil && key == [NSApp modalWindow];
    const bool isElsewhere = key == nil ? ![NSApp isActive] : !isModal && ![window holds:key];
    if (isElsewhere) {
        [self performClose:nil];
    }
}

- (void)performClose:(id)sender {
    if (!_shown ||
        ([_delegate respondsToSelector:@selector(popoverShouldClose:)] && ![_delegate popoverShouldClose:self])) {
        return;
    }
    [self close];
}

- (void)close {
    QVPopoverWindow *window = (QVPopoverWindow *)_realWindow;
    if (!_shown || [window beginClosing]) {
        return;
    }
    // The window's reference may be the last one.
    [[self retain] autorelease];
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center removeObserver:self name:NSWindowWillCloseNotification object:nil];
    [center removeObserver:self name:NSWindowDidBecomeKeyNotification object:nil];
    [center removeObserver:self name:NSApplicationDidResignActiveNotification object:nil];
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(closeUnlessNeeded) object:nil];
    tell(self, @selector(popoverWillClose:), NSPopoverWillCloseNotification);
    const bool hadKeys = [window isKeyWindow];
    NSWindow *anchorWindow = [[window anchor] window];
    _shown = NO;
    _realWindow = nil;
    [window orderOut:nil];
    [[_contentViewController view] removeFromSuperview];
    if (hadKeys && [anchorWindow isVisible]) {
        [anchorWindow makeKeyWindow];
    }
    [window autorelease];
    tell(self, @selector(popoverDidClose:), NSPopoverDidCloseNotification);
}

- (void)setContentSize:(NSSize)size {
    _contentSize = size;
    if (_shown) {
        QVPopoverWindow *window = (QVPopoverWindow *)_realWindow;
        [window setPlacement:[self placementAtRect:_positioningRect ofView:[window anchor] edge:[window edge]]];
    }
}

@end
