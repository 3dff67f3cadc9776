#import "SHSlideshow.h"

#import "PlugIn.h"
#import "SHDocument.h"
#import "SHPresenterView.h"

#include <optional>

using namespace samplehost;

namespace {

std::optional<ShowKey> showKeyOf(unichar key) {
    switch (key) {
    case NSRightArrowFunctionKey:
    case NSDownArrowFunctionKey:
    case NSPageDownFunctionKey:
    case ' ':
        return ShowKey::next;
    case NSLeftArrowFunctionKey:
    case NSUpArrowFunctionKey:
    case NSPageUpFunctionKey:
    case NSBackspaceCharacter:
    case NSDeleteCharacter:
        return ShowKey::previous;
    case NSHomeFunctionKey:
        return ShowKey::first;
    case NSEndFunctionKey:
        return ShowKey::last;
    case NSCarriageReturnCharacter:
    case NSEnterCharacter:
        return ShowKey::enter;
    case 'b':
    case 'B':
    case '.':
        return ShowKey::black;
    case 0x1B:
        return ShowKey::escape;
    default:
        return std::nullopt;
    }
}

} // namespace

@implementation SHSlideshow

- (instancetype)initWithDocument:(SHDocument *)document
                             log:(LogFile *)log
                            from:(std::size_t)slide
                   exitAfterLast:(bool)exitAfterLast
                           muted:(bool)muted {
    self = [super init];
    if (self != nil) {
        _document = document;
        _log = log;
        _state = SlideshowState([document deck].slides.size(), slide, exitAfterLast);
        _muted = muted;
        [[NSNotificationCenter defaultCenter] addObserver:self
                                                 selector:@selector(displaysDidChange:)
                                                     name:NSApplicationDidChangeScreenParametersNotification
                                                   object:nil];
    }
    return self;
}

- (void)dealloc {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [_slideView.get() setKeyHandler:{}];
    [_slideView.get() setClickHandler:{}];
    [_presenterView.get() stop];
    [super dealloc];
}

- (bool)isRunning {
    return _running;
}

#pragma mark Beginning and ending

- (void)makeSlideView {
    _slideView = own([[SHSlideView alloc] initWithFrame:NSMakeRect(0, 0, 800, 450)]);
    [_slideView.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [_slideView.get() setKeyHandler:[self](NSEvent *event) { return [self takeKey:event]; }];
    [_slideView.get() setClickHandler:[self] { [self press:ShowKey::next]; }];
}

- (void)makeSlidesWindowWith:(NSView *)content {
    const NSRect frame = [[[_document controller] slideshowWindowBounds] rectValue];
    const NSRect place = NSIsEmptyRect(frame) ? NSMakeRect(0, 0, 800, 450) : NSInsetRect(frame, 100, 100);
    _slidesWindow = own([[NSWindow alloc] initWithContentRect:place
                                                    styleMask:NSBorderlessWindowMask
                                                      backing:NSBackingStoreBuffered
                                                        defer:NO]);
    [_slidesWindow.get() setTitle:@"Slides"];
    [_slidesWindow.get() setReleasedWhenClosed:NO];
    [_slidesWindow.get() setContentView:content];
    [_slidesWindow.get() orderFront:nil];
}

- (NSString *)begin:(bool)withPresenter {
    SHDocumentWindow *window = [_document window];
    _contentBefore = keep<NSView>([window contentView]);
    [self makeSlideView];
    NSView *content = _slideView.get();
    if (withPresenter) {
        // Asking for the displays also chooses a pair where none is chosen yet.
        [[_document controller] multipleWindowConfiguration];
        _presenterView = own([[SHPresenterView alloc] initWithFrame:[_contentBefore.get() frame]]);
        [_presenterView.get() setMuted:_muted];
        [_presenterView.get() setKeyHandler:[self](NSEvent *event) { return [self takeKey:event]; }];
        // The document window's content goes to the presenter display, the other window's to the slides' one.
        content = _presenterView.get();
        [self makeSlidesWindowWith:_slideView.get()];
    }
    [self showSlide];
    [window setContentView:content];
    NSString *error = [[_document controller] beginFullscreenSetupWithExternalSlides:_slidesWindow.get()];
    if (error != nil) {
        [self restoreWindow];
        return error;
    }
    _running = true;
    [window setKeyFilter:[self](NSEvent *event) { return [self takeKey:event]; }];
    [[content window] makeFirstResponder:content];
    _log->write(eventlog::slideshow("began", _state.current(), withPresenter ? "presenter" : "single"));
    return nil;
}

- (void)restoreWindow {
    [_presenterView.get() stop];
    SHDocumentWindow *window = [_document window];
    [window setKeyFilter:{}];
    [window setContentView:_contentBefore.get()];
    [_slidesWindow.get() setContentView:own([[NSView alloc] initWithFrame:NSZeroRect]).get()];
    [_slidesWindow.get() close];
}

- (void)end {
    if (!_running) {
        return;
    }
    _running = false;
    const auto kept = keep(self);
    [[_document controller] endFullscreenSetup];
    [self restoreWindow];
    _log->write(eventlog::slideshow("ended", _state.current(), ""));
    [_document slideshowDidEndAt:_state.current()];
}

#pragma mark Showing

- (void)showSlide {
    const auto current = _state.current();
    if (_state.isBlack()) {
        [_slideView.get() show:std::nullopt];
    } else {
        [_slideView.get() show:[_document shownSlide:current]];
    }
    [_slideView.get() setCaption:_state.digits().empty() ? nil : toNSString(_state.digits())];
    if (_presenterView) {
        const bool last = current + 1 >= _state.count();
        [_presenterView.get() showSlide:[_document shownSlide:current]
                                   next:last ? std::nullopt : std::optional([_document shownSlide:current + 1])
                                  black:_state.isBlack()
                                 digits:toNSString(_state.digits())];
    }
}

- (void)documentDidChange {
    if (_running) {
        _state.setCount([_document deck].slides.size());
        [self showSlide];
    }
}

- (void)didPress {
    if (_state.hasEnded()) {
        // A later turn: the event is still on its way through the views that go away.
        const auto kept = std::make_shared<Owned<SHSlideshow>>(keep(self));
        platform::async([kept] { [kept->get() end]; });
        return;
    }
    [self showSlide];
    _log->write(eventlog::slideshow(_state.isBlack() ? "black" : "slide", _state.current(), _state.digits()));
}

- (void)press:(ShowKey)key {
    if (_running && _state.press(key)) {
        [self didPress];
    }
}

- (bool)takeKey:(NSEvent *)event {
    NSString *characters = [event charactersIgnoringModifiers];
    if (!_running || [characters length] == 0 || ([event modifierFlags] & NSCommandKeyMask) != 0) {
        return false;
    }
    const unichar key = [characters characterAtIndex:0];
    if (key >= '0' && key <= '9') {
        if (_state.pressDigit(static_cast<char>(key))) {
            [self didPress];
        }
        return true;
    }
    if (const auto known = showKeyOf(key)) {
        [self press:*known];
    }
    return true;
}

#pragma mark Displays

- (void)displaysDidChange:(NSNotification *)notification {
    (void)notification;
    if (!_running || !_slidesWindow) {
        return;
    }
    // The windows' frames follow a turn later.
    const auto kept = std::make_shared<Owned<SHSlideshow>>(keep(self));
    platform::asyncAfter(0.2, [kept] {
        if ([[NSScreen screens] count] < 2) {
            [kept->get() end];
        }
    });
}

@end
