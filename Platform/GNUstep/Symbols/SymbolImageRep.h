// Draws a symbol: a mask in the text colour of the moment.
#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>

@interface QVSymbolImageRep : NSImageRep {
    NSArray *_masks;
    NSImage *_tinted[2];
    std::uint32_t _colour[2];
}
/// `masks`: two NSBitmapImageRep, whose alpha counts, for 1 and for 2 pixels a point. `size` in points.
- (instancetype)initWithMasks:(NSArray *)masks size:(NSSize)size;
@end
