// Shows one slide as large as it fits, on a plain ground.
#pragma once

#import "Platform.h"

#include "SlideRenderer.h"

#include <functional>
#include <optional>

namespace samplehost {

/// A slide with everything that drawing it needs.
struct ShownSlide {
    Slide slide;
    SlideStyle style;
};

} // namespace samplehost

/// Keys and clicks go to `keyHandler` and `clickHandler` where they are set: that is how a slideshow is driven.
@interface SHSlideView : NSView {
    std::optional<samplehost::ShownSlide> _shown;
    std::function<bool(NSEvent *)> _keyHandler;
    std::function<void()> _clickHandler;
    unsigned _ground;
    bool _framed;
    NSString *_caption;
}

/// Nothing shown leaves the ground alone: a black slide.
- (void)show:(std::optional<samplehost::ShownSlide>)slide;
/// The colour around the slide, 0xRRGGBB.
- (void)setGround:(unsigned)color;
/// Leaves a margin around the slide and draws a line around it; the ground is then the window's.
- (void)setFramed:(bool)framed;
/// Small text in the lower right corner, such as the digits typed so far; nil for none.
- (void)setCaption:(NSString *)caption;
/// Returns whether the key was meant for it.
- (void)setKeyHandler:(std::function<bool(NSEvent *)>)handler;
- (void)setClickHandler:(std::function<void()>)handler;

@end
