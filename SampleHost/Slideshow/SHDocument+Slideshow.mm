#import "SHDocument.h"

#import "DocumentLayout.h"
#import "SHAppDelegate.h"
#import "SHSlideshow.h"

using namespace samplehost;

@implementation SHDocument (Slideshow)

- (void)playFrom:(std::size_t)slide {
    if ([_slideshow.get() isRunning]) {
        return;
    }
    [self closePopover];
    if ([self isArranging]) {
        [self toggleArranging];
    }
    const Settings &settings = [[_application settings] settings];
    const bool withPresenter = settings.presenterActive && [[NSScreen screens] count] > 1;
    _slideshow = own([[SHSlideshow alloc] initWithDocument:self
                                                       log:&[_application log]
                                                      from:slide
                                             exitAfterLast:settings.presenterExitLastSlide
                                                     muted:settings.presenterMuteVideos]);
    if (NSString *error = [_slideshow.get() begin:withPresenter]; error != nil) {
        [_application log].write(eventlog::slideshow("error", slide, toUTF8(error)));
        showAlert(@"The slideshow could not start.", error);
    }
}

- (void)slideshowDidEndAt:(std::size_t)slide {
    if (_closed) {
        return;
    }
    [_window.get() makeKeyAndOrderFront:nil];
    [_window.get() makeFirstResponder:_editor];
    [self goToSlide:slide];
}

- (void)playFromStart:(id)sender {
    (void)sender;
    [self playFrom:0];
}

- (void)playFromCurrent:(id)sender {
    (void)sender;
    [self playFrom:_current];
}

- (void)swapDisplays:(id)sender {
    (void)sender;
    const bool running = [_slideshow.get() isRunning];
    if (running) {
        [_slideshow.get() end];
    }
    NSDictionary<NSString *, id> *displays = [_controller.get() multipleWindowConfiguration];
    [_controller.get() choosePresenterScreen:[displays objectForKey:@"slideshow"]
                             slideshowScreen:[displays objectForKey:@"presenter"]];
    if (running) {
        [self playFrom:_current];
    }
}

- (void)flipFullScreen:(id)sender {
    (void)sender;
    [_controller.get() beginFullscreen];
}

@end
