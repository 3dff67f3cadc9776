// Draws a symbol: a mask in the text colour of the moment.
#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>

inline constexpr unsigned symbolMasks = 3;

@interface QVSymbolImageRep : NSImageRep {
    NSArray *_masks;
    NSImage *_tinted[symbolMasks];
    std::uint32_t _colour[symbolMasks];
}
/// `masks`: NSBitmapImageRep, whose alpha counts, from the smallest to the largest; as many as `symbolMasks`. `size` in
/// points. A symbol is always drawn whole and in its own shape, in the middle of where it is drawn.
- (instancetype)initWithMasks:(NSArray *)masks size:(NSSize)size;

/// What symbols are drawn in instead of the text colour, until it is set to nil. Not retained.
+ (void)setColour:(NSColor *)colour;
@end
