#import "QVFlatTheme.h"

#import "Drawing.h"
#import "Palette.h"

using namespace flattheme;

@implementation QVFlatTheme

+ (NSString *)flatThemeName {
    return @"Flat";
}

- (id)init {
    if ((self = [super initWithBundle:nil]) != nil) {
        _colours = [systemColours() retain];
    }
    return self;
}

- (void)dealloc {
    [_colours release];
    [super dealloc];
}

- (NSString *)name {
    return [QVFlatTheme flatThemeName];
}

- (NSColorList *)colors {
    return _colours;
}

// The frame that AppKit asks for lies inside of a bezel, and around the picture only where a title stands below it.
static bool ringsWholeButton(NSView *view) {
    if (![view isKindOfClass:[NSButton class]]) {
        return false;
    }
    const NSCellImagePosition position = [(NSButton *)view imagePosition];
    return [(NSButton *)view isBordered] || position == NSImageAbove || position == NSImageBelow;
}

- (void)drawFocusFrame:(NSRect)frame view:(NSView *)view {
    if (ringsWholeButton(view)) {
        drawFocusRing([view bounds], 5);
    } else {
        drawFocusRing(frame, 4);
    }
}

- (void)drawBorderType:(NSBorderType)type frame:(NSRect)frame view:(NSView *)view {
    if (type == NSNoBorder || [view isKindOfClass:[NSSlider class]]) {
        return;
    }
    const bool isField = [view isKindOfClass:[NSTextField class]];
    const bool hasKeys = isField && [(NSTextField *)view currentEditor] != nil;
    NSColor *fill = nil;
    if (type == NSBezelBorder && isField) {
        const bool isLive = [(NSTextField *)view isEnabled];
        fill = isLive ? [(NSTextField *)view backgroundColor] : colour(palette().window);
    }
    drawPanel(frame, fill, colour(hasKeys ? palette().accentLine : palette().border), type == NSBezelBorder ? 4 : 0);
    if (hasKeys) {
        drawPanel(NSInsetRect(frame, 1, 1), nil, colour(palette().accentLine), 3);
    }
}

// What is left of the classic bezels becomes a hairline.
- (NSRect)outline:(NSRect)rect {
    [colour(palette().border) set];
    NSFrameRect(rect);
    return NSInsetRect(rect, 1, 1);
}

- (NSRect)drawButton:(NSRect)rect withClip:(NSRect)clip {
    return [self outline:rect];
}

- (NSRect)drawGrayBezel:(NSRect)rect withClip:(NSRect)clip {
    return [self outline:rect];
}

- (NSRect)drawWhiteBezel:(NSRect)rect withClip:(NSRect)clip {
    return [self outline:rect];
}

- (NSRect)drawDarkBezel:(NSRect)rect withClip:(NSRect)clip {
    return [self outline:rect];
}

- (NSRect)drawLightBezel:(NSRect)rect withClip:(NSRect)clip {
    return [self outline:rect];
}

- (NSRect)drawFramePhoto:(NSRect)rect withClip:(NSRect)clip {
    return [self outline:rect];
}

- (NSRect)drawGroove:(NSRect)rect withClip:(NSRect)clip {
    drawPanel(rect, nil, colour(palette().border), 4);
    return NSInsetRect(rect, 2, 2);
}

@end
