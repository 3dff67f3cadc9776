// A running slideshow: on the document window's display, or with the presenter view there and the slides on another
// one.
#pragma once

#import "Bridge.h"
#import "SHSlideView.h"

#include "EventLog.h"
#include "SlideshowState.h"

@class SHDocument;
@class SHPresenterView;

@interface SHSlideshow : NSObject {
    SHDocument *_document; // owns the slideshow
    samplehost::LogFile *_log;
    samplehost::SlideshowState _state;
    samplehost::Owned<NSView> _contentBefore;
    samplehost::Owned<SHSlideView> _slideView;
    samplehost::Owned<SHPresenterView> _presenterView;
    samplehost::Owned<NSWindow> _slidesWindow;
    bool _running;
    bool _muted;
}

- (instancetype)initWithDocument:(SHDocument *)document
                             log:(samplehost::LogFile *)log
                            from:(std::size_t)slide
                   exitAfterLast:(bool)exitAfterLast
                           muted:(bool)muted;

/// Starts it, with a presenter view when `withPresenter`. Returns why it could not start, or nil.
- (NSString *)begin:(bool)withPresenter;
- (void)end;
- (bool)isRunning;
- (void)documentDidChange;
/// Returns whether the key was meant for the show.
- (bool)takeKey:(NSEvent *)event;

@end
