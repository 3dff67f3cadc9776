// GNUstep 0.29 puts a submenu beside the top of its menu, wherever its item is, and lets the first click in a submenu
// pass when the pointer entered it right at the clicked item.
#import "Hooks.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

#include <algorithm>
#include <cmath>
#include <utility>

@interface NSMenuView (QVPrivateTracking)
- (BOOL)_trackWithEvent:(NSEvent *)event startingMenuView:(NSMenuView *)start;
@end

@interface NSMenu (QVPrivateOwner)
- (BOOL)_ownedByPopUp;
@end

namespace platform {

namespace {

Hook<BOOL, NSEvent *, NSMenuView *> trackWithEvent;
Hook<NSInteger, NSPoint> indexOfItemAtPoint;
Hook<NSPoint, NSMenu *> locationForSubmenu;

int trackedMenus = 0;
bool entering = false;

// How deep the tracking is nested; counts down also when AppKit raises.
class Nesting {
public:
    Nesting() { entering = ++trackedMenus > 1; }
    ~Nesting() {
        --trackedMenus;
        entering = false;
    }
    Nesting(const Nesting &) = delete;
    Nesting &operator=(const Nesting &) = delete;
};

NSEvent *nextPress(NSDate *until) {
    return [NSApp nextEventMatchingMask:NSLeftMouseUpMask | NSLeftMouseDraggedMask
                              untilDate:until
                                 inMode:NSEventTrackingRunLoopMode
                                dequeue:YES];
}

// +[NSEvent pressedMouseButtons] always answers 0 here.
bool leftButtonIsDown() {
    auto *display = static_cast<Display *>([GSCurrentServer() serverDevice]);
    ::Window root = 0;
    ::Window child = 0;
    int rootX = 0;
    int rootY = 0;
    int x = 0;
    int y = 0;
    unsigned mask = 0;
    XQueryPointer(display, DefaultRootWindow(display), &root, &child, &rootX, &rootY, &x, &y, &mask);
    return (mask & Button1Mask) != 0;
}

// A click opens the menu and leaves it open for another click; pressing, dragging and releasing chooses in one go.
// Takes the click's release out of the queue; returns at once when the button is not down.
void letClickPass() {
    constexpr CGFloat dragDistance = 4;
    const NSPoint pressed = [NSEvent mouseLocation];
    NSEvent *event = nextPress([NSDate distantPast]);
    while (event != nil || leftButtonIsDown()) {
        const NSPoint now = [NSEvent mouseLocation];
        const bool dragged = std::hypot(now.x - pressed.x, now.y - pressed.y) > dragDistance;
        if (event != nil && ([event type] == NSLeftMouseUp || dragged)) {
            return;
        }
        event = nextPress([NSDate dateWithTimeIntervalSinceNow:0.05]);
    }
}

BOOL trackNestedMenu(id self, SEL selector, NSEvent *event, NSMenuView *start) {
    const Nesting nesting;
    if (trackedMenus == 1 && [event type] == NSLeftMouseDown && [[self menu] _ownedByPopUp]) {
        letClickPass();
    }
    return trackWithEvent.original(self, selector, event, start);
}

// The loop takes the item that it finds first for the one that the menu opened under, and waits for another one before
// a release of the button counts. In a submenu, which is entered with the pointer, there is no such item.
NSInteger indexAfterEntering(id self, SEL selector, NSPoint point) {
    if (std::exchange(entering, false)) {
        return -1;
    }
    return indexOfItemAtPoint.original(self, selector, point);
}

NSPoint locationBesideItem(id self, SEL selector, NSMenu *submenu) {
    NSMenuView *view = self;
    const NSPoint location = locationForSubmenu.original(self, selector, submenu);
    const NSInteger index = submenu != nil ? [[view menu] indexOfItemWithSubmenu:submenu] : -1;
    if (index < 0 || [view isHorizontal]) {
        return location;
    }
    NSMenuView *inner = static_cast<NSMenuView *>([submenu menuRepresentation]);
    const NSRect item = [view convertRect:[view rectOfItemAtIndex:index] toView:nil];
    const CGFloat top = [[view window] convertBaseToScreen:NSMakePoint(NSMinX(item), NSMaxY(item))].y;
    const CGFloat above = [submenu numberOfItems] > 0 ? NSMinY([inner rectOfItemAtIndex:0]) : 0;
    const CGFloat height = NSHeight([[inner window] frame]);
    const CGFloat border = [inner isFlipped] ? above : 1;
    return NSMakePoint(location.x, std::max(top + border - height, NSMinY([[[view window] screen] visibleFrame])));
}

} // namespace

void installSubmenuHooks() {
    Class menuView = [NSMenuView class];
    trackWithEvent.install(menuView, @selector(_trackWithEvent:startingMenuView:), trackNestedMenu);
    indexOfItemAtPoint.install(menuView, @selector(indexOfItemAtPoint:), indexAfterEntering);
    locationForSubmenu.install(menuView, @selector(locationForSubmenu:), locationBesideItem);
}

} // namespace platform
