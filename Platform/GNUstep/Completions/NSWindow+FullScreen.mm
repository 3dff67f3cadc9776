// GNUstep 0.29 has no full screen state of windows.
#import "NSWindow+FullScreen.h"

#import "Platform.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include "XDisplays.h"

#include <chrono>
#include <thread>

NSString *const NSWindowWillEnterFullScreenNotification = @"NSWindowWillEnterFullScreenNotification";
NSString *const NSWindowDidEnterFullScreenNotification = @"NSWindowDidEnterFullScreenNotification";
NSString *const NSWindowWillExitFullScreenNotification = @"NSWindowWillExitFullScreenNotification";
NSString *const NSWindowDidExitFullScreenNotification = @"NSWindowDidExitFullScreenNotification";

namespace {

// What makes AppKit reckon with a frame around the content.
constexpr NSUInteger framed =
    NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;

unsigned long xWindow(NSWindow *window) {
    return static_cast<unsigned long>(
        reinterpret_cast<uintptr_t>([GSServerForWindow(window) windowDevice:static_cast<int>([window windowNumber])]));
}

/// AppKit converts every answer of the window manager with the frame's current widths, so the manager must have changed
/// them before the events are read: that takes some milliseconds.
void waitForExtents(void *display, unsigned long window, const platform::x11::Extents &unwanted) {
    constexpr int tries = 150;
    for (int i = 0; i < tries && platform::x11::frameExtents(display, window) == unwanted; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

} // namespace

/// What a window in full screen goes back to. Kept until it does or closes.
@interface QVWindowBeforeFullScreen : NSObject {
@public
    NSWindow *_window; // not retained: the window's closing removes the record
    NSRect _frame;
    NSUInteger _styleMask;
}
+ (NSMutableArray *)all;
+ (QVWindowBeforeFullScreen *)ofWindow:(NSWindow *)window;
@end

@implementation QVWindowBeforeFullScreen

+ (NSMutableArray *)all {
    static NSMutableArray *all = [[NSMutableArray alloc] init];
    return all;
}

+ (QVWindowBeforeFullScreen *)ofWindow:(NSWindow *)window {
    for (QVWindowBeforeFullScreen *record in [self all]) {
        if (record->_window == window) {
            return record;
        }
    }
    return nil;
}

- (void)windowWillClose:(NSNotification *)notification {
    [self forget];
}

- (void)forget {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [[self retain] autorelease];
    [[QVWindowBeforeFullScreen all] removeObjectIdenticalTo:self];
}

@end

@implementation NSWindow (QVFullScreen)

- (void)toggleFullScreen:(id)sender {
    QVWindowBeforeFullScreen *before = [QVWindowBeforeFullScreen ofWindow:self];
    if (before == nil) {
        [self enterFullScreenState];
    } else {
        [self leaveFullScreenState:before];
    }
}

- (void)enterFullScreenState {
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center postNotificationName:NSWindowWillEnterFullScreenNotification object:self];
    QVWindowBeforeFullScreen *before = [[[QVWindowBeforeFullScreen alloc] init] autorelease];
    before->_window = self;
    before->_frame = _frame;
    before->_styleMask = _styleMask;
    [[QVWindowBeforeFullScreen all] addObject:before];
    [center addObserver:before selector:@selector(windowWillClose:) name:NSWindowWillCloseNotification object:self];
    _styleMask = (_styleMask & ~framed) | NSFullScreenWindowMask;
    [self applyFullScreen:platform::x11::FullScreenState::On
                    frame:[[self screen] frame]
                 hasFrame:(before->_styleMask & framed) != 0];
    [center postNotificationName:NSWindowDidEnterFullScreenNotification object:self];
}

- (void)leaveFullScreenState:(QVWindowBeforeFullScreen *)before {
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center postNotificationName:NSWindowWillExitFullScreenNotification object:self];
    _styleMask = before->_styleMask;
    [self applyFullScreen:platform::x11::FullScreenState::Off
                    frame:before->_frame
                 hasFrame:(before->_styleMask & framed) != 0];
    [before forget];
    [center postNotificationName:NSWindowDidExitFullScreenNotification object:self];
}

- (void)applyFullScreen:(platform::x11::FullScreenState)state frame:(NSRect)frame hasFrame:(bool)hasFrame {
    void *display = [GSServerForWindow(self) serverDevice];
    if (platform::x11::managerSupports(display, "_NET_WM_STATE_FULLSCREEN")) {
        const auto extents = platform::x11::frameExtents(display, xWindow(self));
        platform::x11::setFullScreen(display, xWindow(self), state, false);
        if ([self isVisible] && hasFrame) {
            waitForExtents(display, xWindow(self), extents);
        }
    } else {
        [GSServerForWindow(self) stylewindow:static_cast<unsigned>(_styleMask & framed):static_cast<int>(_windowNum)];
        [self setFrame:frame display:YES];
    }
}

@end
