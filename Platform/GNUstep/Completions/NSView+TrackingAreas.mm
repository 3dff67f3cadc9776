// GNUstep 0.29 has tracking areas as a class, but views do not take them and nothing is delivered to their owners.
#import "NSView+TrackingAreas.h"

#import <GNUstepGUI/GSDisplayServer.h>

#import "Hooks.h"
#include "WeakReference.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// Apple's values; GNUstep's header numbers the options otherwise.
enum Options : NSUInteger {
    EnteredAndExited = 0x1,
    Moved = 0x2,
    CursorUpdate = 0x4,
    WhenFirstResponder = 0x10,
    InKeyWindow = 0x20,
    InActiveApplication = 0x40,
    Always = 0x80,
    AssumeInside = 0x100,
    InVisibleRect = 0x200,
    DuringDrag = 0x400,
};

struct Release {
    void operator()(NSObject *object) const { [object release]; }
};
using Strong = std::unique_ptr<NSObject, Release>;

/// One area on one view. Neither view nor owner is kept alive by it.
struct Entry {
    platform::WeakReference view;
    platform::WeakReference owner;
    Strong area;
    bool inside = false;

    [[nodiscard]] NSTrackingArea *trackingArea() const { return static_cast<NSTrackingArea *>(area.get()); }
};

// Delivery may add and remove entries: it holds shared pointers of its own.
using Entries = std::vector<std::shared_ptr<Entry>>;

Entries &entries() {
    static Entries all;
    return all;
}

bool isActive(NSUInteger options, NSView *view) {
    NSWindow *window = [view window];
    return (options & Always) != 0 || ((options & InActiveApplication) != 0 && [NSApp isActive]) ||
           ((options & InKeyWindow) != 0 && [window isKeyWindow]) ||
           ((options & WhenFirstResponder) != 0 && [window firstResponder] == view);
}

bool isDrag(NSEvent *event) {
    const NSEventType type = [event type];
    return type == NSLeftMouseDragged || type == NSRightMouseDragged || type == NSOtherMouseDragged;
}

/// Whether the mouse is over the entry's area, as far as the area's options let it count.
bool contains(const Entry &entry, NSView *view, NSEvent *event, bool left) {
    const NSUInteger options = [entry.trackingArea() options];
    if (left || !isActive(options, view) || [view isHiddenOrHasHiddenAncestor]) {
        return false;
    }
    const NSRect visible = [view visibleRect];
    const NSRect rect =
        (options & InVisibleRect) != 0 ? visible : NSIntersectionRect(visible, [entry.trackingArea() rect]);
    const NSPoint point = [view convertPoint:[event locationInWindow] fromView:nil];
    return NSMouseInRect(point, rect, [view isFlipped]);
}

void send(id owner, SEL selector, NSEvent *event) {
    if ([owner respondsToSelector:selector]) {
        [owner performSelector:selector withObject:event];
    }
}

NSEvent *crossing(const Entry &entry, NSEvent *event, bool inside) {
    return [NSEvent enterExitEventWithType:inside ? NSMouseEntered : NSMouseExited
                                  location:[event locationInWindow]
                             modifierFlags:[event modifierFlags]
                                 timestamp:[event timestamp]
                              windowNumber:[event windowNumber]
                                   context:[event context]
                               eventNumber:0
                            trackingNumber:reinterpret_cast<NSInteger>(entry.trackingArea())
                                  userData:[entry.trackingArea() userInfo]];
}

void deliver(Entry &entry, NSView *view, NSEvent *event, bool left) {
    const NSUInteger options = [entry.trackingArea() options];
    if (isDrag(event) && (options & DuringDrag) == 0) {
        return;
    }
    const Strong ownerHolder(entry.owner.loadRetained());
    const id owner = ownerHolder.get();
    const bool inside = contains(entry, view, event, left);
    if (inside != entry.inside) {
        entry.inside = inside;
        if ((options & EnteredAndExited) != 0) {
            send(owner, inside ? @selector(mouseEntered:) : @selector(mouseExited:), crossing(entry, event, inside));
        }
        if (inside && (options & CursorUpdate) != 0) {
            send(owner, @selector(cursorUpdate:), event);
        }
    }
    if (inside && (options & Moved) != 0 && [event type] == NSMouseMoved) {
        send(owner, @selector(mouseMoved:), event);
    }
}

void deliverInWindow(NSWindow *window, NSEvent *event, bool left) {
    std::erase_if(entries(), [](const auto &entry) { return Strong(entry->view.loadRetained()) == nullptr; });
    const Entries now = entries();
    for (const auto &entry : now) {
        const Strong view(entry->view.loadRetained());
        const bool stillThere = std::ranges::find(entries(), entry) != entries().end();
        if (stillThere && view != nullptr && [static_cast<NSView *>(view.get()) window] == window) {
            deliver(*entry, static_cast<NSView *>(view.get()), event, left);
        }
    }
}

platform::Hook<void, NSEvent *> sendEvent;

void sendEventAndTrack(id self, SEL selector, NSEvent *event) {
    if (!entries().empty()) {
        switch ([event type]) {
        case NSMouseMoved:
        case NSLeftMouseDragged:
        case NSRightMouseDragged:
        case NSOtherMouseDragged:
        case NSLeftMouseUp:
            deliverInWindow(self, event, false);
            break;
        case NSAppKitDefined:
            if ([event subtype] == GSAppKitWindowLeave) {
                deliverInWindow(self, event, true);
            }
            break;
        default:
            break;
        }
    }
    sendEvent.original(self, selector, event);
}

} // namespace

@implementation NSView (QVTrackingAreas)

- (void)addTrackingArea:(NSTrackingArea *)area {
    sendEvent.install([NSWindow class], @selector(sendEvent:), sendEventAndTrack);
    const auto entry = std::make_shared<Entry>(platform::WeakReference(self), platform::WeakReference([area owner]),
                                               Strong([area retain]), ([area options] & AssumeInside) != 0);
    entries().push_back(entry);
}

- (void)removeTrackingArea:(NSTrackingArea *)area {
    std::erase_if(entries(), [&](const auto &entry) {
        return entry->trackingArea() == area && Strong(entry->view.loadRetained()).get() == self;
    });
}

- (NSArray *)trackingAreas {
    NSMutableArray *areas = [NSMutableArray array];
    for (const auto &entry : entries()) {
        if (Strong(entry->view.loadRetained()).get() == self) {
            [areas addObject:entry->trackingArea()];
        }
    }
    return areas;
}

@end
