#import "SymbolImageRep.h"

#import "Platform.h"

#include <algorithm>
#include <cmath>

namespace {

struct Colour {
    unsigned red, green, blue;
};

NSColor *otherColour = nil;

Colour inkColour() {
    NSColor *colour = otherColour != nil ? otherColour : [NSColor controlTextColor];
    colour = [colour colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    const auto byte = [](CGFloat component) { return static_cast<unsigned>(std::lround(component * 255)); };
    return {byte([colour redComponent]), byte([colour greenComponent]), byte([colour blueComponent])};
}

// How often the displays have changed: the surfaces of images are lost then.
std::uint32_t displayChanges = 0;

// Never 0, which stands for "not drawn yet".
std::uint32_t key(Colour colour) {
    return (displayChanges & 0x7FU) << 25 | 1U << 24 | colour.red << 16 | colour.green << 8 | colour.blue;
}

void drawSymbolsAnew() {
    ++displayChanges;
    for (NSWindow *window in [NSApp windows]) {
        if ([window isVisible]) {
            [[[window contentView] superview] setNeedsDisplay:YES];
        }
    }
}

// The mask in the colour, premultiplied. Retained for the caller.
NSBitmapImageRep *tintedBitmap(NSBitmapImageRep *mask, Colour colour) {
    const NSInteger width = [mask pixelsWide];
    const NSInteger height = [mask pixelsHigh];
    NSBitmapImageRep *result = [[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                                                       pixelsWide:width
                                                                       pixelsHigh:height
                                                                    bitsPerSample:8
                                                                  samplesPerPixel:4
                                                                         hasAlpha:YES
                                                                         isPlanar:NO
                                                                   colorSpaceName:NSCalibratedRGBColorSpace
                                                                      bytesPerRow:width * 4
                                                                     bitsPerPixel:32];
    const NSInteger samples = [mask samplesPerPixel];
    for (NSInteger y = 0; y < height; y++) {
        const unsigned char *source = [mask bitmapData] + y * [mask bytesPerRow];
        unsigned char *target = [result bitmapData] + y * width * 4;
        for (NSInteger x = 0; x < width; x++, source += samples, target += 4) {
            const unsigned alpha = source[samples - 1];
            target[0] = static_cast<unsigned char>(colour.red * alpha / 255);
            target[1] = static_cast<unsigned char>(colour.green * alpha / 255);
            target[2] = static_cast<unsigned char>(colour.blue * alpha / 255);
            target[3] = static_cast<unsigned char>(alpha);
        }
    }
    return result;
}

} // namespace

@implementation QVSymbolImageRep

+ (void)initialize {
    if (self == [QVSymbolImageRep class]) {
        [[NSNotificationCenter defaultCenter] addObserver:self
                                                 selector:@selector(displaysChanged:)
                                                     name:NSApplicationDidChangeScreenParametersNotification
                                                   object:nil];
    }
}

// The windows that keep the surfaces follow the change some time after the notification.
+ (void)displaysChanged:(NSNotification *)notification {
    for (const double pause : {0.0, 0.3, 0.8}) {
        platform::asyncAfter(pause, drawSymbolsAnew);
    }
}

+ (void)setColour:(NSColor *)colour {
    otherColour = colour;
}

- (instancetype)initWithMasks:(NSArray *)masks size:(NSSize)size {
    if ((self = [super init]) != nil) {
        _masks = [masks copy];
        [self setSize:size];
        [self setAlpha:YES];
        [self setOpaque:NO];
        [self setBitsPerSample:8];
        [self setPixelsWide:NSImageRepMatchesDevice];
        [self setPixelsHigh:NSImageRepMatchesDevice];
    }
    return self;
}

// The superclass copies the bits of the instance variables: what they own is retained here.
- (id)copyWithZone:(NSZone *)zone {
    QVSymbolImageRep *copy = [super copyWithZone:zone];
    [copy->_masks retain];
    for (NSImage *&image : copy->_tinted) {
        image = nil;
    }
    for (std::uint32_t &colour : copy->_colour) {
        colour = 0;
    }
    return copy;
}

- (void)dealloc {
    [_masks release];
    for (NSImage *image : _tinted) {
        [image release];
    }
    [super dealloc];
}

// The symbol in the text colour; its size is its number of pixels, or its cache would lose the finer mask.
- (NSImage *)tintedImage:(unsigned)index {
    const Colour colour = inkColour();
    if (_tinted[index] == nil || _colour[index] != key(colour)) {
        NSBitmapImageRep *bitmap = tintedBitmap([_masks objectAtIndex:index], colour);
        const auto pixelsWide = static_cast<CGFloat>([bitmap pixelsWide]);
        const auto pixelsHigh = static_cast<CGFloat>([bitmap pixelsHigh]);
        const NSSize pixels = NSMakeSize(pixelsWide, pixelsHigh);
        [bitmap setSize:pixels];
        [_tinted[index] release];
        _tinted[index] = [[NSImage alloc] initWithSize:pixels];
        [_tinted[index] setCacheMode:NSImageCacheAlways];
        [_tinted[index] addRepresentation:bitmap];
        [bitmap release];
        _colour[index] = key(colour);
    }
    return _tinted[index];
}

// The smallest mask that is large enough.
- (unsigned)maskForPixels:(CGFloat)pixels {
    unsigned index = 0;
    while (index + 1 < symbolMasks && pixels > static_cast<CGFloat>([[_masks objectAtIndex:index] pixelsWide]) * 1.01) {
        index++;
    }
    return index;
}

// The superclass opens an off-screen window for each drawing, and a bitmap's own drawing does not paint over what is
// there: an image of the tinted bitmap does it, which keeps its surface until the colour changes.
- (BOOL)drawInRect:(NSRect)target
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)fraction
    respectFlipped:(BOOL)respectFlipped
             hints:(NSDictionary *)hints {
    const CGFloat side = std::min(NSWidth(target), NSHeight(target));
    const NSSize pixels = [[[NSGraphicsContext currentContext] GSCurrentCTM] transformSize:NSMakeSize(side, side)];
    [[self tintedImage:[self maskForPixels:std::fabs(pixels.width)]]
            drawInRect:NSMakeRect(NSMidX(target) - side / 2, NSMidY(target) - side / 2, side, side)
              fromRect:NSZeroRect
             operation:operation
              fraction:fraction
        respectFlipped:respectFlipped
                 hints:hints];
    return YES;
}

- (BOOL)draw {
    const NSSize size = [self size];
    return [self drawInRect:NSMakeRect(0, 0, size.width, size.height)
                   fromRect:NSZeroRect
                  operation:NSCompositeSourceOver
                   fraction:1
             respectFlipped:NO
                      hints:nil];
}

@end
