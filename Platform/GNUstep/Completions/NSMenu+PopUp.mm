// GNUstep 0.29 lacks menus that are popped up at a place.
#import "NSMenu+PopUp.h"

#include <algorithm>

// Watches a menu while the user chooses from it.
@interface QVMenuTracking : NSObject {
    NSMenu *_menu; // not retained: the tracking ends before the menu can go
    BOOL _chosen;
}
- (instancetype)initWithMenu:(NSMenu *)menu;
- (BOOL)wasChosen;
- (void)stop;
@end

@implementation QVMenuTracking

- (instancetype)initWithMenu:(NSMenu *)menu {
    if ((self = [super init]) != nil) {
        _menu = menu;
        [[NSNotificationCenter defaultCenter] addObserver:self
                                                 selector:@selector(menuWillSendAction:)
                                                     name:NSMenuWillSendActionNotification
                                                   object:nil];
        [self performSelector:@selector(readKeys)
                   withObject:nil
                   afterDelay:0.05
                      inModes:@[ NSEventTrackingRunLoopMode ]];
    }
    return self;
}

- (void)menuWillSendAction:(NSNotification *)notification {
    for (NSMenu *menu = [notification object]; menu != nil; menu = [menu supermenu]) {
        _chosen = _chosen || menu == _menu;
    }
}

// The menu's own loop takes no keys from the queue: Escape is to close it all the same.
- (void)readKeys {
    NSEvent *event = nil;
    while ((event = [NSApp nextEventMatchingMask:NSKeyDownMask
                                       untilDate:[NSDate distantPast]
                                          inMode:NSEventTrackingRunLoopMode
                                         dequeue:YES]) != nil) {
        if ([[event characters] isEqualToString:@"\033"]) {
            [_menu cancelTracking];
        }
    }
    [self performSelector:@selector(readKeys) withObject:nil afterDelay:0.05 inModes:@[ NSEventTrackingRunLoopMode ]];
}

- (BOOL)wasChosen {
    return _chosen;
}

- (void)stop {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
}

@end

namespace {

NSEvent *mouseEvent(NSEventType type) {
    return [NSEvent mouseEventWithType:type
                              location:NSMakePoint(-1, -1)
                         modifierFlags:0
                             timestamp:0
                          windowNumber:0
                               context:nil
                           eventNumber:0
                            clickCount:1
                              pressure:0];
}

// How far the item's upper edge lies below the window's.
CGFloat depthOfItem(NSMenu *menu, NSMenuItem *item) {
    NSMenuView *view = static_cast<NSMenuView *>([menu menuRepresentation]);
    const NSInteger index = item != nil ? [menu indexOfItem:item] : -1;
    if (index < 0) {
        return 0;
    }
    const NSRect inWindow = [view convertRect:[view rectOfItemAtIndex:index] toView:nil];
    return NSHeight([[view window] frame]) - NSMaxY(inWindow);
}

NSScreen *screenAt(NSPoint point) {
    for (NSScreen *screen in [NSScreen screens]) {
        if (NSPointInRect(point, [screen frame])) {
            return screen;
        }
    }
    return [NSScreen mainScreen];
}

// The window's origin for its upper left corner at `corner`, moved so that it lies on the screen.
NSPoint originOnScreen(NSPoint corner, NSSize size) {
    const NSRect screen = [screenAt(corner) visibleFrame];
    return NSMakePoint(std::max(std::min(corner.x, NSMaxX(screen) - size.width), NSMinX(screen)),
                       std::max(std::min(corner.y, NSMaxY(screen)) - size.height, NSMinY(screen)));
}

} // namespace

@implementation NSMenu (QVPopUp)

- (BOOL)popUpMenuPositioningItem:(NSMenuItem *)item atLocation:(NSPoint)location inView:(NSView *)view {
    if ([self numberOfItems] == 0) {
        return NO;
    }
    NSPoint corner = location;
    if (view != nil) {
        corner = [[view window] convertBaseToScreen:[view convertPoint:location toView:nil]];
    }
    [self update];
    [self displayTransient];
    NSView *representation = static_cast<NSView *>([self menuRepresentation]);
    NSWindow *window = [representation window];
    corner.y += depthOfItem(self, item);
    [window setFrameOrigin:originOnScreen(corner, [window frame].size)];

    QVMenuTracking *tracking = [[QVMenuTracking alloc] initWithMenu:self];
    [representation mouseDown:mouseEvent(NSLeftMouseDown)];
    [tracking stop];
    [self closeTransient];
    const BOOL chosen = [tracking wasChosen];
    [tracking release];
    return chosen;
}

- (void)cancelTracking {
    [static_cast<NSMenuView *>([self menuRepresentation]) setHighlightedItemIndex:-1];
    // The tracking loop lets the first release of the button pass when the pointer has not moved.
    [NSApp postEvent:mouseEvent(NSLeftMouseUp) atStart:YES];
    [NSApp postEvent:mouseEvent(NSLeftMouseUp) atStart:YES];
}

@end
