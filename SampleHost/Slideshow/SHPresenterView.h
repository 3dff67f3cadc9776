// What the speaker sees: the current slide, the next one, the notes, the time.
#pragma once

#import "Bridge.h"
#import "SHSlideView.h"

#include <functional>
#include <optional>

@interface SHPresenterView : NSView {
    samplehost::Owned<SHSlideView> _current;
    samplehost::Owned<SHSlideView> _next;
    samplehost::Owned<NSTextView> _notes;
    samplehost::Owned<NSScrollView> _notesScroll;
    samplehost::Owned<NSTimer> _timer;
    samplehost::Owned<NSDate> _started;
    std::function<bool(NSEvent *)> _keyHandler;
    NSString *_position;
    NSString *_digits;
    NSString *_nextTitle;
    bool _black;
    bool _muted;
}

- (void)setKeyHandler:(std::function<bool(NSEvent *)>)handler;
- (void)setMuted:(bool)muted;
- (void)showSlide:(const samplehost::ShownSlide &)current
             next:(const std::optional<samplehost::ShownSlide> &)next
            black:(bool)black
           digits:(NSString *)digits;
/// Stops the clock.
- (void)stop;

@end
