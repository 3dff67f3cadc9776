// GNUstep 0.29 leaves windows where a removed display was: nobody can reach them there.
#import "Platform.h"

namespace {

double area(NSRect rect) {
    return NSWidth(rect) * NSHeight(rect);
}

/// Whether the user sees what the window is and can take hold of its title bar: half of each is enough.
bool canBeReached(NSRect frame) {
    constexpr double titleHeight = 30;
    const NSRect title = NSMakeRect(NSMinX(frame), NSMaxY(frame) - titleHeight, NSWidth(frame), titleHeight);
    for (NSScreen *screen in [NSScreen screens]) {
        if (2 * area(NSIntersectionRect(title, [screen frame])) >= area(title) &&
            2 * area(NSIntersectionRect(frame, [screen frame])) >= area(frame)) {
            return true;
        }
    }
    return false;
}

double distance(NSRect a, NSRect b) {
    const double dx = NSMidX(a) - NSMidX(b);
    const double dy = NSMidY(a) - NSMidY(b);
    return dx * dx + dy * dy;
}

NSRect movedOnto(NSRect frame, NSRect screen) {
    frame.size.width = MIN(NSWidth(frame), NSWidth(screen));
    frame.size.height = MIN(NSHeight(frame), NSHeight(screen));
    frame.origin.x = MAX(NSMinX(screen), MIN(NSMinX(frame), NSMaxX(screen) - NSWidth(frame)));
    frame.origin.y = MAX(NSMinY(screen), MIN(NSMinY(frame), NSMaxY(screen) - NSHeight(frame)));
    return frame;
}

void bringWindowsBack() {
    for (NSWindow *window in [NSApp windows]) {
        if (![window isVisible] || ([window styleMask] & NSTitledWindowMask) == 0 || canBeReached([window frame])) {
            continue;
        }
        NSScreen *nearest = nil;
        for (NSScreen *screen in [NSScreen screens]) {
            if (nearest == nil ||
                distance([screen frame], [window frame]) < distance([nearest frame], [window frame])) {
                nearest = screen;
            }
        }
        if (nearest != nil) {
            [window setFrame:movedOnto([window frame], [nearest visibleFrame]) display:YES];
        }
    }
}

} // namespace

@interface QVWindowsFollowDisplays : NSObject
+ (void)screensChanged:(NSNotification *)notification;
@end

@implementation QVWindowsFollowDisplays

// Window frames follow the change only after the notification, and the window manager moves windows a little later.
+ (void)screensChanged:(NSNotification *)notification {
    for (const double pause : {0.0, 0.15, 0.5}) {
        platform::asyncAfter(pause, bringWindowsBack);
    }
}

@end

namespace platform {

void installWindowsFollowDisplays();

void installWindowsFollowDisplays() {
    [[NSNotificationCenter defaultCenter] addObserver:[QVWindowsFollowDisplays class]
                                             selector:@selector(screensChanged:)
                                                 name:NSApplicationDidChangeScreenParametersNotification
                                               object:nil];
}

} // namespace platform
