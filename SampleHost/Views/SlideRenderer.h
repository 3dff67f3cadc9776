// Draws slides: lays a slide's blocks out in the slide's own points and scales them to where they are wanted.
#pragma once

#import "Platform.h"

#include "Catalogue.h"
#include "Deck.h"

#include <cstddef>
#include <string>

namespace samplehost {

/// What a slide looks like beside its own text.
struct SlideStyle {
    SlideTheme theme;
    SlideSize size;
    /// At the foot of each slide; may be empty.
    std::string footer;
    /// Where image paths start; may be empty.
    std::string directory;
    /// The slide's number from 1 and how many there are; 0 shows no number.
    std::size_t number = 0;
    std::size_t count = 0;
};

/// Draws `slide` in `target` of the focused view or image, which must not be flipped. The slide's proportions are the
/// caller's care (see `slideRect`).
void drawSlide(const Slide &slide, const SlideStyle &style, NSRect target);

/// The largest rectangle of the slide's proportions in the middle of `area`.
NSRect slideRect(const SlideSize &size, NSRect area);

/// A small picture of the slide, `width` points wide, smoothly reduced; autoreleased.
NSImage *slideImage(const Slide &slide, const SlideStyle &style, double width);

/// Writes such a picture as PNG, with a thin line around the slide. Returns whether the file was written.
bool writeSlidePicture(const Slide &slide, const SlideStyle &style, double width, NSString *path);

} // namespace samplehost
