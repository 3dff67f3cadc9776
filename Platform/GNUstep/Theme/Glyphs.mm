#import "Glyphs.h"

#import "Drawing.h"
#import "Palette.h"

#include <array>
#include <cmath>
#include <string_view>

using namespace flattheme;

@interface QVFlatGlyphs : NSObject
- (void)drawCheckBoxOff:(NSCustomImageRep *)image;
- (void)drawCheckBoxOn:(NSCustomImageRep *)image;
- (void)drawRadioOff:(NSCustomImageRep *)image;
- (void)drawRadioOn:(NSCustomImageRep *)image;
- (void)drawDownArrow:(NSCustomImageRep *)image;
- (void)drawUpAndDownArrows:(NSCustomImageRep *)image;
- (void)drawRightArrow:(NSCustomImageRep *)image;
- (void)drawLightRightArrow:(NSCustomImageRep *)image;
- (void)drawCheckMark:(NSCustomImageRep *)image;
- (void)drawDash:(NSCustomImageRep *)image;
- (void)drawNothing:(NSCustomImageRep *)image;
- (void)drawKnob:(NSCustomImageRep *)image;
- (void)drawMagnifier:(NSCustomImageRep *)image;
- (void)drawCancel:(NSCustomImageRep *)image;
- (void)drawClippedItemsMark:(NSCustomImageRep *)image;
@end

namespace {

NSRect boundsOf(NSImageRep *image) {
    const NSSize size = [image size];
    return NSMakeRect(0, 0, size.width, size.height);
}

NSColor *text() {
    return colour(palette().text);
}

} // namespace

@implementation QVFlatGlyphs

- (void)drawCheckBoxOff:(NSCustomImageRep *)image {
    drawPanel(boundsOf(image), colour(palette().field), colour(palette().scrollerKnobPressed), 3);
}

- (void)drawCheckBoxOn:(NSCustomImageRep *)image {
    drawPanel(boundsOf(image), colour(palette().accent), colour(palette().accent), 3);
    drawCheckMark(boundsOf(image), colour(palette().accentText), 1.8 * scale());
}

- (void)drawRadioOff:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    drawPanel(bounds, colour(palette().field), colour(palette().scrollerKnobPressed), NSWidth(bounds) / 2);
}

- (void)drawRadioOn:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    drawPanel(bounds, colour(palette().accent), colour(palette().accent), NSWidth(bounds) / 2);
    const CGFloat inset = NSWidth(bounds) * 0.31;
    [colour(palette().accentText) set];
    [[NSBezierPath bezierPathWithOvalInRect:NSInsetRect(bounds, inset, inset)] fill];
}

- (void)drawDownArrow:(NSCustomImageRep *)image {
    drawChevron(boundsOf(image), Direction::down, false, text());
}

- (void)drawUpAndDownArrows:(NSCustomImageRep *)image {
    drawChevron(NSOffsetRect(boundsOf(image), 0, 3), Direction::up, false, text());
    drawChevron(NSOffsetRect(boundsOf(image), 0, -3), Direction::down, false, text());
}

- (void)drawRightArrow:(NSCustomImageRep *)image {
    drawChevron(boundsOf(image), Direction::right, false, text());
}

- (void)drawLightRightArrow:(NSCustomImageRep *)image {
    drawChevron(boundsOf(image), Direction::right, false, colour(palette().accentText));
}

- (void)drawCheckMark:(NSCustomImageRep *)image {
    flattheme::drawCheckMark(boundsOf(image), text(), 1.6);
}

- (void)drawDash:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    fillCapsule(NSMakeRect(NSMinX(bounds) + 2, NSMidY(bounds) - 1, NSWidth(bounds) - 4, 2), text());
}

- (void)drawNothing:(NSCustomImageRep *)image {
}

- (void)drawKnob:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    drawPanel(bounds, colour(palette().sliderKnob), colour(palette().scrollerKnobPressed), NSWidth(bounds) / 2);
}

- (void)drawMagnifier:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    const CGFloat unit = NSWidth(bounds) / 16;
    [colour(palette().secondaryText) set];
    NSBezierPath *path =
        [NSBezierPath bezierPathWithOvalInRect:NSMakeRect(3 * unit, 5.5 * unit, 7.5 * unit, 7.5 * unit)];
    [path moveToPoint:NSMakePoint(9.4 * unit, 6.6 * unit)];
    [path lineToPoint:NSMakePoint(13 * unit, 3 * unit)];
    [path setLineWidth:1.5 * unit];
    [path stroke];
}

- (void)drawCancel:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    const CGFloat unit = NSWidth(bounds) / 16;
    [colour(palette().secondaryText) set];
    [[NSBezierPath bezierPathWithOvalInRect:NSInsetRect(bounds, 2 * unit, 2 * unit)] fill];
    NSBezierPath *cross = [NSBezierPath bezierPath];
    [cross moveToPoint:NSMakePoint(5.5 * unit, 5.5 * unit)];
    [cross lineToPoint:NSMakePoint(10.5 * unit, 10.5 * unit)];
    [cross moveToPoint:NSMakePoint(5.5 * unit, 10.5 * unit)];
    [cross lineToPoint:NSMakePoint(10.5 * unit, 5.5 * unit)];
    [cross setLineWidth:1.5 * unit];
    [colour(palette().field) set];
    [cross stroke];
}

- (void)drawClippedItemsMark:(NSCustomImageRep *)image {
    const NSRect bounds = boundsOf(image);
    drawChevron(NSOffsetRect(bounds, -2.5, 0), Direction::right, false, text());
    drawChevron(NSOffsetRect(bounds, 2.5, 0), Direction::right, false, text());
}

@end

namespace {

struct Glyph {
    SEL draw;
    CGFloat side;
    NSString *name;
};

// The image keeps its identity, so that cells that hold it already show the new picture.
void install(const Glyph &glyph, QVFlatGlyphs *painter) {
    const CGFloat side = glyph.side <= 1 ? glyph.side : std::round(glyph.side * scale());
    const NSSize size = NSMakeSize(side, side);
    NSCustomImageRep *drawn = [[[NSCustomImageRep alloc] initWithDrawSelector:glyph.draw delegate:painter] autorelease];
    [drawn setSize:size];
    NSImage *image = [NSImage imageNamed:glyph.name];
    if (image == nil) {
        // A named image stays alive as long as its name: the reference is the name's.
        image = [[NSImage alloc] initWithSize:size];
        [image setName:glyph.name];
    }
    for (NSImageRep *old in [[[image representations] copy] autorelease]) {
        [image removeRepresentation:old];
    }
    [image setCacheMode:NSImageCacheNever];
    [image setSize:size];
    [image addRepresentation:drawn];
}

} // namespace

void flattheme::installGlyphs() {
    static QVFlatGlyphs *painter = [[QVFlatGlyphs alloc] init];
    const std::array glyphs{
        Glyph{@selector(drawCheckBoxOff:), 15, @"NSSwitch"},
        Glyph{@selector(drawCheckBoxOn:), 15, @"NSHighlightedSwitch"},
        Glyph{@selector(drawRadioOff:), 15, @"NSRadioButton"},
        Glyph{@selector(drawRadioOn:), 15, @"NSHighlightedRadioButton"},
        Glyph{@selector(drawUpAndDownArrows:), 12, @"common_Nibble"},
        Glyph{@selector(drawDownArrow:), 12, @"common_3DArrowDown"},
        Glyph{@selector(drawDownArrow:), 12, @"NSComboArrow"},
        Glyph{@selector(drawRightArrow:), 12, @"NSMenuArrow"},
        Glyph{@selector(drawLightRightArrow:), 12, @"NSHighlightedMenuArrow"},
        Glyph{@selector(drawRightArrow:), 12, @"common_ArrowRight"},
        Glyph{@selector(drawLightRightArrow:), 12, @"common_ArrowRightH"},
        Glyph{@selector(drawRightArrow:), 12, @"common_outlineCollapsed"},
        Glyph{@selector(drawDownArrow:), 12, @"common_outlineExpanded"},
        Glyph{@selector(drawCheckMark:), 12, @"NSMenuCheckmark"},
        Glyph{@selector(drawDash:), 12, @"NSMenuMixedState"},
        Glyph{@selector(drawNothing:), 1, @"common_Dimple"},
        Glyph{@selector(drawNothing:), 1, @"common_DimpleHoriz"},
        Glyph{@selector(drawNothing:), 1, @"common_ret"},
        Glyph{@selector(drawNothing:), 1, @"common_retH"},
        Glyph{@selector(drawKnob:), 16, @"common_SliderHoriz"},
        Glyph{@selector(drawKnob:), 16, @"common_SliderVert"},
        Glyph{@selector(drawMagnifier:), 16, @"GSSearch"},
        Glyph{@selector(drawCancel:), 16, @"GSStop"},
        Glyph{@selector(drawClippedItemsMark:), 16, @"common_ToolbarClippedItemsMark"},
    };
    for (const Glyph &glyph : glyphs) {
        install(glyph, painter);
    }
}
