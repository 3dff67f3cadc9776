// Long because: it tells the whole life of one session, from the view leaving its window to its return.
// References are counted by hand here: the session outlives its callers and gives itself up.
#import "QVFullScreenSession.h"

#import "NSScreen+LocalizedName.h"
#import "Platform.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include "XDisplays.h"

#include <algorithm>
#include <vector>

namespace {

/// The sessions that run, each retained. A handful at most.
std::vector<QVFullScreenSession *> &sessions() {
    static std::vector<QVFullScreenSession *> all;
    return all;
}

/// The application's presentation options as they were before the first session.
NSApplicationPresentationOptions optionsBefore{};

bool runs(QVFullScreenSession *session) {
    return std::ranges::find(sessions(), session) != sessions().end();
}

unsigned long xWindow(NSWindow *window) {
    return static_cast<unsigned long>(
        reinterpret_cast<uintptr_t>([GSServerForWindow(window) windowDevice:static_cast<int>([window windowNumber])]));
}

void *xDisplay() {
    return [GSCurrentServer() serverDevice];
}

platform::x11::Rectangle flipped(NSRect frame) {
    return {static_cast<int>(NSMinX(frame)), platform::x11::rootHeight(xDisplay()) - static_cast<int>(NSMaxY(frame)),
            static_cast<int>(NSWidth(frame)), static_cast<int>(NSHeight(frame))};
}

/// What is to have the keys again: a field editor is only lent to the control that it edits.
NSResponder *lastingResponder(NSResponder *responder) {
    if ([responder isKindOfClass:[NSText class]] && [static_cast<NSText *>(responder) isFieldEditor]) {
        const id owner = [static_cast<NSText *>(responder) delegate];
        return [owner isKindOfClass:[NSResponder class]] ? owner : nil;
    }
    return responder;
}

bool isWithin(NSResponder *responder, NSView *view) {
    return [responder isKindOfClass:[NSView class]] && [static_cast<NSView *>(responder) isDescendantOf:view];
}

} // namespace

/// Takes the keys though it has no title bar. It is no main window: the home window stays that, and menus with it.
@interface QVFullScreenWindow : NSWindow
@end

@implementation QVFullScreenWindow

- (BOOL)canBecomeKeyWindow {
    return YES;
}

- (BOOL)canBecomeMainWindow {
    return NO;
}

// The frame is the display's, whatever the usual limits say.
- (NSRect)constrainFrameRect:(NSRect)frame toScreen:(NSScreen *)screen {
    return frame;
}

@end

/// A window forgets its content view when that leaves it. To the window's owner it stays the content, in full screen
/// too.
@interface NSWindow (QVContentInFullScreen)
- (void)rememberContentView:(NSView *)view;
@end

@implementation NSWindow (QVContentInFullScreen)

- (void)rememberContentView:(NSView *)view {
    _contentView = view;
}

@end

@interface QVFullScreenSession (Steps)
- (instancetype)initWithView:(NSView *)view screen:(NSScreen *)screen;
- (void)observe;
- (void)moveViewOut;
- (void)moveViewBack;
- (void)cover;
- (bool)coversTarget;
- (void)moveToTarget;
- (void)settle;
- (void)settleOnce;
- (void)aim;
- (void)follow;
- (void)giveFirstTheKeys;
- (NSScreen *)currentScreen;
@end

@implementation QVFullScreenSession

+ (QVFullScreenSession *)sessionOfView:(NSView *)view {
    for (QVFullScreenSession *session : sessions()) {
        if (session->_view == view) {
            return session;
        }
    }
    return nil;
}

+ (void)beginWithView:(NSView *)view screen:(NSScreen *)screen presentationOptions:(NSNumber *)options {
    if (sessions().empty()) {
        optionsBefore = [NSApp presentationOptions];
    }
    if (options != nil) {
        [NSApp setPresentationOptions:static_cast<NSApplicationPresentationOptions>([options unsignedIntegerValue])];
    }
    QVFullScreenSession *session = [[self alloc] initWithView:view screen:screen];
    sessions().push_back(session);
    [session observe];
    // Showing a window reads events: the displays may change meanwhile.
    [session moveViewOut];
    [session cover];
}

- (void)end {
    if (_ended) {
        return;
    }
    _ended = YES;
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    const BOOL hasKeys = [_window isKeyWindow];
    std::erase(sessions(), self);
    if (sessions().empty()) {
        [NSApp setPresentationOptions:optionsBefore];
    }
    [self moveViewBack];
    [_window orderOut:nil];
    [_window close];
    if ([_home isVisible] && _homeWasKey) {
        [_home makeKeyAndOrderFront:nil];
    } else if ([_home isVisible] && hasKeys) {
        [_home makeKeyWindow];
    }
    [self autorelease];
}

- (void)dealloc {
    [_view release];
    [_placeholder release];
    [_home release];
    [_window release];
    [_firstResponder release];
    [super dealloc];
}

- (void)screensChanged:(NSNotification *)notification {
    // Window frames follow the change only after this notification.
    [self retain];
    platform::async([self] {
        if (runs(self)) {
            [self follow];
            [self giveFirstTheKeys];
        }
        [self release];
    });
    // Once more when the window manager has had its say about the windows of the display that is gone.
    [self retain];
    platform::asyncAfter(0.25, [self] {
        if (runs(self)) {
            [self giveFirstTheKeys];
        }
        [self release];
    });
}

- (void)windowBecameKey:(NSNotification *)notification {
    NSWindow *window = [notification object];
    if (window == _home) {
        [self takeKeysFromHome];
    } else if ([window isKindOfClass:[QVFullScreenWindow class]]) {
        platform::x11::setAbove(xDisplay(), xWindow(_window), true);
    } else if (NSIntersectsRect([window frame], _target)) {
        // An alert or another panel of the application: it must not come up behind the view.
        platform::x11::setAbove(xDisplay(), xWindow(_window), false);
        platform::x11::activate(xDisplay(), xWindow(window));
    }
}

- (void)takeKeysFromHome {
    // What the home window shows is in front of it now: the keys belong there.
    [self retain];
    platform::async([self] {
        if (runs(self) && [_home isKeyWindow]) {
            [_window makeKeyAndOrderFront:nil];
        }
        [self release];
    });
}

- (void)viewFrameDidChange:(NSNotification *)notification {
    // The home window goes on to lay its content view out, wherever that is.
    const NSRect bounds = [[_window contentView] bounds];
    if ([_view superview] == [_window contentView] && !NSEqualRects([_view frame], bounds)) {
        [_view setFrame:bounds];
    }
}

- (void)homeWillClose:(NSNotification *)notification {
    _homeWasKey = NO;
    [self end];
}

@end

@implementation QVFullScreenSession (Steps)

- (instancetype)initWithView:(NSView *)view screen:(NSScreen *)screen {
    if ((self = [super init]) == nil) {
        return nil;
    }
    _view = [view retain];
    _home = [[view window] retain];
    _homeWasKey = [_home isKeyWindow];
    _autoresizingMask = [view autoresizingMask];
    _firstResponder = [lastingResponder([_home firstResponder]) retain];
    _displayName = [[screen localizedName] UTF8String];
    _target = [screen frame];
    NSScreen *connected = [self currentScreen];
    _displayName = [[connected localizedName] UTF8String];
    _target = [connected frame];
    _placeholder = [[NSView alloc] initWithFrame:[view frame]];
    [_placeholder setAutoresizingMask:_autoresizingMask];
    [_placeholder setHidden:YES];
    _window = [[QVFullScreenWindow alloc] initWithContentRect:_target
                                                    styleMask:NSBorderlessWindowMask
                                                      backing:NSBackingStoreBuffered
                                                        defer:NO];
    [_window setReleasedWhenClosed:NO];
    [_window setBackgroundColor:[NSColor blackColor]];
    [_window setTitle:[_home title]];
    [_window setAcceptsMouseMovedEvents:YES];
    // Keys that the view leaves alone reach its window and controllers as ever.
    [_window setNextResponder:_home];
    return self;
}

/// The display that the session belongs to, wherever it lies now; while it is gone one that no other session covers, if
/// there is one.
- (NSScreen *)currentScreen {
    NSScreen *sameName = nil;
    NSScreen *uncovered = nil;
    NSArray *all = [NSScreen screens];
    for (NSScreen *screen in all) {
        const bool isNamed = _displayName == [[screen localizedName] UTF8String];
        if (isNamed && NSEqualRects([screen frame], _target)) {
            return screen;
        }
        if (isNamed && sameName == nil) {
            sameName = screen;
        }
        if (uncovered == nil && std::ranges::none_of(sessions(), [&](QVFullScreenSession *other) {
                return other != self && NSEqualRects(other->_target, [screen frame]);
            })) {
            uncovered = screen;
        }
    }
    if (sameName != nil) {
        return sameName;
    }
    return uncovered != nil ? uncovered : [all count] > 0 ? [all objectAtIndex:0] : nil;
}

- (void)observe {
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center addObserver:self
               selector:@selector(screensChanged:)
                   name:NSApplicationDidChangeScreenParametersNotification
                 object:nil];
    [center addObserver:self selector:@selector(windowBecameKey:) name:NSWindowDidBecomeKeyNotification object:nil];
    [center addObserver:self
               selector:@selector(viewFrameDidChange:)
                   name:NSViewFrameDidChangeNotification
                 object:_view];
    [center addObserver:self selector:@selector(homeWillClose:) name:NSWindowWillCloseNotification object:_home];
}

- (void)moveViewOut {
    _isContent = [_home contentView] == _view;
    [[_view superview] replaceSubview:_view with:_placeholder];
    if (_isContent) {
        [_home rememberContentView:_view];
    }
    NSView *content = [_window contentView];
    [_view setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [_view setFrame:[content bounds]];
    [_view setPostsFrameChangedNotifications:YES];
    [content addSubview:_view];
    [_window makeFirstResponder:isWithin(_firstResponder, _view) ? _firstResponder : _view];
}

- (void)moveViewBack {
    if ([_view superview] == [_window contentView]) {
        [_view removeFromSuperview];
        if (_isContent && [_home contentView] == _view) {
            // The window may have another size by now: it lays its content out afresh.
            [_placeholder removeFromSuperview];
            [_home rememberContentView:nil];
            [_home setContentView:_view];
        } else if ([_placeholder superview] != nil) {
            [_view setFrame:[_placeholder frame]];
            [[_placeholder superview] replaceSubview:_placeholder with:_view];
        }
        [_view setAutoresizingMask:_autoresizingMask];
        [_view setNeedsDisplay:YES];
    }
    [_placeholder removeFromSuperview];
    if ([_firstResponder isKindOfClass:[NSView class]] && [static_cast<NSView *>(_firstResponder) window] == _home) {
        [_home makeFirstResponder:_firstResponder];
    }
}

- (void)cover {
    [_window setFrame:_target display:YES];
    [_window makeKeyAndOrderFront:nil];
    platform::x11::setFullScreen(xDisplay(), xWindow(_window), platform::x11::FullScreenState::On, true);
    _round = 0;
    [self settle];
}

- (bool)coversTarget {
    return NSEqualRects([_window frame], _target) &&
           platform::x11::windowRectangle(xDisplay(), xWindow(_window)) == flipped(_target);
}

// A window in full screen state does not leave its display.
- (void)moveToTarget {
    platform::x11::setFullScreen(xDisplay(), xWindow(_window), platform::x11::FullScreenState::Off, true);
    [_window setFrame:_target display:YES];
    platform::x11::setFullScreen(xDisplay(), xWindow(_window), platform::x11::FullScreenState::On, true);
}

// The window manager has the last word on where the window is, some milliseconds later.
- (void)settle {
    constexpr double pause = 0.05;
    constexpr NSUInteger lastRound = 60;
    [self retain];
    platform::asyncAfter(pause, [self, round = _round] {
        // Another round number: settling has begun anew meanwhile.
        if (runs(self) && round == _round && round < lastRound) {
            [self settleOnce];
        }
        [self release];
    });
}

- (void)settleOnce {
    constexpr NSUInteger roundsInOrder = 4; // the manager may still be about to move the window
    constexpr NSUInteger roundsPerMove = 4;
    ++_round;
    [self aim];
    const bool covers = [self coversTarget];
    if (!covers && _round % roundsPerMove == 0) {
        [self moveToTarget];
    }
    if (!covers || _round < roundsInOrder) {
        [self settle];
    }
}

- (void)aim {
    if (NSScreen *screen = [self currentScreen]) {
        _target = [screen frame];
    }
}

- (void)follow {
    [self aim];
    if (![self coversTarget]) {
        [self moveToTarget];
    }
    if ([_window isKeyWindow]) {
        [_window orderFront:nil];
    }
    _round = 0;
    [self settle];
}

// Of several views on one display the one that went there first is in front.
- (void)giveFirstTheKeys {
    const auto &all = sessions();
    const auto first = std::ranges::find_if(
        all, [self](QVFullScreenSession *session) { return NSEqualRects(session->_target, _target); });
    if (first != all.end() && *first != self) {
        [(*first)->_window makeKeyAndOrderFront:nil];
    }
}

@end
