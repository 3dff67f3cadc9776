#import "TabOverviewWindow.h"

#import "TabOverviewView.h"

namespace {

constexpr double secondsBetweenPictures = 0.5;
// A window manager may still be giving the keys to the window that was there before.
constexpr double secondsToSettle = 1.5;

// Not retained: it leaves when it closes.
QVTabOverviewWindow *currentOverview = nil;

NSArray *documentWindows() {
    NSMutableArray *windows = [NSMutableArray array];
    for (NSWindow *window in [NSApp windows]) {
        const bool titled = ([window styleMask] & NSTitledWindowMask) != 0;
        const bool open = [window isVisible] || [window isMiniaturized];
        if (titled && open && [window canBecomeMainWindow] && ![window isKindOfClass:[NSPanel class]]) {
            [windows addObject:window];
        }
    }
    return windows;
}

} // namespace

@implementation QVTabOverviewWindow

+ (QVTabOverviewWindow *)current {
    return currentOverview;
}

+ (void)showOverWindow:(NSWindow *)window {
    currentOverview = [[self alloc] initOverWindow:window]; // released when it closes, as windows are
    [currentOverview makeKeyAndOrderFront:nil];
}

- (instancetype)initOverWindow:(NSWindow *)window {
    self = [super initWithContentRect:[window frame]
                            styleMask:NSBorderlessWindowMask
                              backing:NSBackingStoreBuffered
                                defer:NO];
    if (self != nil) {
        _shownAt = [NSDate timeIntervalSinceReferenceDate];
        [self setLevel:NSPopUpMenuWindowLevel];
        [self setExcludedFromWindowsMenu:YES];
        _overview = [[QVTabOverviewView alloc] initWithFrame:[[self contentView] bounds]];
        [_overview setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
        [[self contentView] addSubview:_overview];
        [self makeFirstResponder:_overview];
        [_overview setWindows:documentWindows()];
        [_overview setSelectedIndex:[[_overview windows] indexOfObjectIdenticalTo:window]];
        _timer = [[NSTimer scheduledTimerWithTimeInterval:secondsBetweenPictures
                                                   target:self
                                                 selector:@selector(refresh:)
                                                 userInfo:nil
                                                  repeats:YES] retain];
    }
    return self;
}

- (void)dealloc {
    [_overview release];
    [_timer release];
    [super dealloc];
}

- (BOOL)canBecomeKeyWindow {
    return YES;
}

- (BOOL)canBecomeMainWindow {
    return NO;
}

- (void)refresh:(NSTimer *)timer {
    NSArray *windows = documentWindows();
    if ([windows isEqualToArray:[_overview windows]]) {
        [_overview refresh];
    } else {
        [_overview setWindows:windows];
    }
}

- (void)close {
    if (currentOverview == self) {
        currentOverview = nil;
    }
    [_timer invalidate]; // it retains its target
    [super close];
}

// Whoever turns to another window has chosen.
- (void)resignKeyWindow {
    [super resignKeyWindow];
    if (currentOverview == self) {
        [self performSelector:@selector(keysWereLost) withObject:nil afterDelay:0];
    }
}

- (void)keysWereLost {
    if (currentOverview != self || [self isKeyWindow]) {
        return;
    }
    if ([NSDate timeIntervalSinceReferenceDate] - _shownAt < secondsToSettle) {
        [self makeKeyAndOrderFront:nil];
    } else {
        [self close];
    }
}

- (void)chooseSelected:(id)sender {
    NSWindow *chosen = nil;
    if ([_overview selectedIndex] < [[_overview windows] count]) {
        chosen = [[[[_overview windows] objectAtIndex:[_overview selectedIndex]] retain] autorelease];
    }
    currentOverview = nil;
    if ([chosen isMiniaturized]) {
        [chosen deminiaturize:nil];
    }
    // Before this window goes: a window manager gives the keys of a window that goes to whom it likes.
    [chosen makeKeyAndOrderFront:nil];
    [self close];
}

- (NSArray *)shownWindows {
    return [[[_overview windows] copy] autorelease];
}

- (NSRect)thumbnailRectAtIndex:(NSUInteger)index {
    return [_overview convertRect:[_overview rectAtIndex:index] toView:nil];
}

- (NSUInteger)selectedIndex {
    return [_overview selectedIndex];
}

@end
