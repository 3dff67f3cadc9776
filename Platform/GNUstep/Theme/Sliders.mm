// Sliders and progress bars: a thin track.
#import "Drawing.h"
#import "Palette.h"
#import "QVFlatTheme.h"

using namespace flattheme;

namespace {

constexpr CGFloat sliderTrack = 4;
constexpr CGFloat progressTrack = 6;

NSRect middleOf(NSRect rect, CGFloat thickness) {
    if (NSWidth(rect) > NSHeight(rect)) {
        return NSMakeRect(NSMinX(rect), NSMidY(rect) - thickness / 2, NSWidth(rect), thickness);
    }
    return NSMakeRect(NSMidX(rect) - thickness / 2, NSMinY(rect), thickness, NSHeight(rect));
}

} // namespace

@implementation QVFlatTheme (Sliders)

- (void)drawBarInside:(NSRect)rect inCell:(NSCell *)cell flipped:(BOOL)flipped {
    fillCapsule(middleOf(rect, sliderTrack), colour(palette().track));
}

- (void)drawProgressIndicator:(NSProgressIndicator *)progress
                   withBounds:(NSRect)bounds
                     withClip:(NSRect)rect
                      atCount:(int)count
                     forValue:(double)value {
    if ([progress style] == NSProgressIndicatorSpinningStyle) {
        [super drawProgressIndicator:progress withBounds:bounds withClip:rect atCount:count forValue:value];
        return;
    }
    NSRect bar = middleOf(bounds, progressTrack);
    fillCapsule(bar, colour(palette().track));
    if ([progress isIndeterminate]) {
        // A piece of a quarter of the length runs along the track.
        const CGFloat steps = 40;
        const CGFloat piece = NSWidth(bar) / 4;
        const CGFloat place = (count % static_cast<int>(steps)) / steps;
        bar = NSMakeRect(NSMinX(bar) + (NSWidth(bar) - piece) * place, NSMinY(bar), piece, NSHeight(bar));
    } else if ([progress isVertical]) {
        bar.size.height *= value;
    } else {
        bar.size.width *= value;
    }
    fillCapsule(bar, colour(palette().accentLine));
}

@end
