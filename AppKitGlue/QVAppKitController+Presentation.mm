#import "QVAppKitController+Private.h"

#import "MouseMoveManager.h"
#import "PreferencesManager.h"

#include "PresentationRules.h"
#include "StringBridging.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace appkitglue;

namespace {

// Auto-hide the Dock, the menu bar and the toolbar; full screen.
constexpr int presentationOptions = 1 + 4 + 1024 + 2048;

// Entered and exited, moved, active always, in the visible rectangle.
constexpr NSUInteger trackingOptions = 1 + 2 + 128 + 512;

NSString *const missingWindow = @"Missing Presentation Main Window";

NSDictionary *fullScreenOptions() {
    return @{
        NSFullScreenModeAllScreens : [NSNumber numberWithBool:NO],
        NSFullScreenModeApplicationPresentationOptions : [NSNumber numberWithInt:presentationOptions]
    };
}

RoutingSettingsProvider &provider() {
    return *RoutingSettingsProvider::shared();
}

NSString *problem(NSScreen *presenter, NSScreen *slideshow) {
    const auto text = problemWithScreens(presenter != nil, slideshow != nil, [presenter isEqual:slideshow]);
    return text ? toNSString(*text) : nil;
}

NSEvent *mouseDown(NSWindow *window, NSPoint location) {
    return [NSEvent mouseEventWithType:NSLeftMouseDown
                              location:location
                         modifierFlags:0
                             timestamp:0
                          windowNumber:[window windowNumber]
                               context:nil
                           eventNumber:0
                            clickCount:1
                              pressure:1.0];
}

/// Brings the document window to the front and clicks into it, once the transition to full screen is under way. The
/// click is two downs without an up.
void activateLater(NSWindow *window, NSView *content) {
    platform::async([window = retainPtr(window), content = retainPtr(content)] {
        [window.get() makeKeyAndOrderFront:nil];
        const NSPoint location = [content.get() convertPoint:NSMakePoint(1.0, 1.0) toView:nil];
        const std::array events{mouseDown(window.get(), location), mouseDown(window.get(), location)};
        if (events[0] == nil || events[1] == nil) {
            return;
        }
        for (NSEvent *event : events) {
            [NSApp sendEvent:event];
        }
    });
}

void hideCursorOver(NSView *content, MouseMoveManager *manager) {
    const auto area = adoptNS([[NSTrackingArea alloc] initWithRect:[content bounds]
                                                           options:static_cast<NSTrackingAreaOptions>(trackingOptions)
                                                             owner:manager
                                                          userInfo:nil]);
    [NSCursor setHiddenUntilMouseMoves:YES];
    [content addTrackingArea:area.get()];
    [manager setTrackingArea:area.get()];
}

void chooseDefaultScreens(const std::vector<std::string> &screens) {
    NSScreen *main = [NSScreen mainScreen];
    if (main == nil) {
        return;
    }
    if (auto names = defaultScreenNames(screens, ScreenStore::displayName(main))) {
        provider().currentDisplayConfiguration() = {.screens = std::nullopt, .names = std::move(*names)};
    }
}

} // namespace

@implementation QVAppKitController (Presentation)

- (void)beginFullscreen {
    [[self documentWindow].get() toggleFullScreen:nil];
}

- (void)endFullscreen {
    [self beginFullscreen];
}

- (NSString *)beginFullscreenSetupWithExternalSlides:(NSWindow *)slidesWindow {
    const auto window = [self documentWindow];
    NSView *content = [window.get() contentView];
    if (content == nil) {
        return missingWindow;
    }
    // Retained: the platform replaces its screens when the displays change, which may happen while a window is shown.
    const auto slideshow = retainPtr(provider().slideshowScreen());
    if (slidesWindow == nil) {
        return [self beginOnOneScreenWithWindow:window.get()];
    }
    const auto presenter = retainPtr(provider().presenterScreen());
    if (NSString *text = problem(presenter.get(), slideshow.get())) {
        return text;
    }
    [content enterFullScreenMode:presenter.get() withOptions:fullScreenOptions()];
    [[slidesWindow contentView] enterFullScreenMode:slideshow.get() withOptions:fullScreenOptions()];
    activateLater(window.get(), content);
    self.state->currentExternalSlidesWindow = slidesWindow;
    return nil;
}

- (NSString *)beginOnOneScreenWithWindow:(NSWindow *)window {
    NSScreen *screen = [window screen] != nil ? [window screen] : [NSScreen mainScreen];
    if (screen == nil) {
        return [NSString stringWithFormat:@"Could not find screen for window %@ or main screen", window];
    }
    NSView *content = [window contentView];
    [content enterFullScreenMode:screen withOptions:fullScreenOptions()];
    activateLater(window, content);
    hideCursorOver(content, self.state->mouseMoveManager.get());
    return nil;
}

- (void)endFullscreenSetup {
    const auto window = [self documentWindow];
    if (!window) {
        return;
    }
    NSView *content = [window.get() contentView];
    [content exitFullScreenModeWithOptions:nil];
    const auto slidesWindow = self.state->currentExternalSlidesWindow.get();
    [[slidesWindow.get() contentView] exitFullScreenModeWithOptions:nil];
    self.state->currentExternalSlidesWindow = nil;
    MouseMoveManager *manager = self.state->mouseMoveManager.get();
    if ([manager trackingArea] != nil) {
        [content removeTrackingArea:[manager trackingArea]];
        [manager setTrackingArea:nil];
        [NSCursor setHiddenUntilMouseMoves:NO];
    }
}

- (NSDictionary *)multipleWindowConfiguration {
    auto screens = provider().availableScreenNames();
    const auto &names = provider().currentDisplayConfiguration().names;
    if ((names.presenter.empty() || names.slideshow.empty()) && screens.size() >= 2) {
        chooseDefaultScreens(screens);
        screens = provider().availableScreenNames();
    }
    return @{
        @"screens" : toNSArray(screens),
        @"presenter" : toNSString(names.presenter),
        @"slideshow" : toNSString(names.slideshow)
    };
}

- (void)choosePresenterScreen:(NSString *)presenterName slideshowScreen:(NSString *)slideshowName {
    const auto connected = provider().availableScreenNames();
    const std::string presenter = toUTF8(presenterName);
    const std::string slideshow = toUTF8(slideshowName);
    const auto isConnected = [&](const std::string &name) { return std::ranges::count(connected, name) > 0; };
    if (isConnected(presenter) && isConnected(slideshow)) {
        provider().currentDisplayConfiguration().names = {.slideshow = slideshow, .presenter = presenter};
        provider().storeScreenSelection();
    }
}

- (NSValue *)slideshowWindowBounds {
    NSScreen *screen = provider().slideshowScreen();
    return screen != nil ? [NSValue valueWithRect:[screen frame]] : nil;
}

@end
