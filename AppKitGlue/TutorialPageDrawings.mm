// The drawings of the four pages, each for 680 x 280 points.
#import "TutorialViews.h"

#import "TutorialDrawing.h"

#include <cmath>

using namespace appkitglue::tutorial;

namespace {

void drawMarkdown(NSRect rect) {
    struct Line {
        NSString *text;
        BOOL heading;
    };
    static const Line lines[] = {
        {@"# Quarterly Review", YES},
        {@"A clear story in six slides", NO},
        {@"", NO},
        {@"## Highlights", YES},
        {@"- Revenue up by 12 %", NO},
        {@"- Two new markets", NO},
        {@"- Faster onboarding", NO},
        {@"", NO},
        {@"![Growth](growth.png)", NO},
    };
    CGFloat y = NSMaxY(rect) - 26;
    for (const Line &line : lines) {
        NSColor *color = line.heading ? [NSColor controlAccentColor] : [NSColor textColor];
        drawText(line.text, NSMakePoint(rect.origin.x + 16, y), 12, Weight::fixedPitch, color);
        y -= 20;
    }
}

void drawPreview(NSRect rect) {
    const NSRect slide = NSMakeRect(rect.origin.x + 28, rect.origin.y + 68, 256, 144);
    drawSlide(slide, @"Highlights", 3);
    drawChart(NSMakeRect(NSMaxX(slide) - 104, slide.origin.y + 18, 84, 54));
    NSString *const titles[] = {@"Review", @"Highlights", @"Next"};
    for (int i = 0; i < 3; ++i) {
        const NSRect thumbnail = NSMakeRect(rect.origin.x + 28 + i * 90, rect.origin.y + 14, 76, 43);
        drawSlide(thumbnail, titles[i], 2);
        if (i == 1) {
            [[NSColor controlAccentColor] set];
            NSBezierPath *mark = [NSBezierPath bezierPathWithRoundedRect:NSInsetRect(thumbnail, -2, -2)
                                                                 xRadius:5
                                                                 yRadius:5];
            [mark setLineWidth:2];
            [mark stroke];
        }
    }
}

NSTextField *caption(NSString *text, NSRect frame) {
    NSTextField *field = [[[NSTextField alloc] initWithFrame:frame] autorelease];
    [field setStringValue:text];
    [field setFont:[NSFont systemFontOfSize:11]];
    [field setAlignment:NSTextAlignmentCenter];
    [field setBezeled:NO];
    [field setBordered:NO];
    [field setDrawsBackground:NO];
    [field setEditable:NO];
    [field setSelectable:NO];
    return field;
}

void drawField(NSString *name, NSString *value, CGFloat x, CGFloat y) {
    drawText(name, NSMakePoint(x, y + 4), 12, Weight::regular, [NSColor secondaryLabelColor]);
    const NSRect field = NSMakeRect(x + 84, y, 162, 24);
    drawPanel(field, 4, [NSColor textBackgroundColor], [NSColor gridColor]);
    drawText(value, NSMakePoint(field.origin.x + 8, y + 5), 12, Weight::regular, [NSColor textColor]);
}

void drawHandles(NSRect rect) {
    NSBezierPath *outline = [NSBezierPath bezierPathWithRect:rect];
    [[NSColor controlAccentColor] set];
    [outline setLineWidth:1.5];
    [outline stroke];
    for (const CGFloat x : {NSMinX(rect), NSMidX(rect), NSMaxX(rect)}) {
        for (const CGFloat y : {NSMinY(rect), NSMaxY(rect)}) {
            drawPanel(NSMakeRect(std::round(x) - 4, std::round(y) - 4, 8, 8), 2, [NSColor whiteColor],
                      [NSColor controlAccentColor]);
        }
    }
}

} // namespace

@implementation TutorialEditorDrawing

- (void)drawRect:(NSRect)rect {
    const NSRect content = drawWindow(NSMakeRect(20, 8, 640, 264));
    [[NSColor gridColor] set];
    NSRectFill(NSMakeRect(NSMidX(content), content.origin.y + 1, 1, content.size.height - 1));
    drawMarkdown(NSMakeRect(content.origin.x, content.origin.y, 320, content.size.height));
    drawPreview(NSMakeRect(NSMidX(content) + 4, content.origin.y, 312, content.size.height));
}

@end

@implementation TutorialToolbarDrawing

// Image views, not images drawn: AppKit gives symbols in them the colour of the text.
- (void)awakeFromNib {
    NSString *const items[][2] = {
        {@"plus", @"Add Slide"},
        {@"photo", @"Media"},
        {@"square.on.circle", @"Insert"},
        {@"paintbrush", @"Inspector"},
        {@"rectangle.grid.2x2", @"Arrange"},
        {@"play.circle", @"Play"},
        {@"paintpalette.fill", @"Themes"},
        {@"gear", @"Overrides"},
    };
    CGFloat x = 30;
    for (const auto &[symbol, title] : items) {
        NSImageView *image = [[[NSImageView alloc] initWithFrame:NSMakeRect(x + 25, 220, 28, 24)] autorelease];
        [image setImage:[NSImage imageWithSystemSymbolName:symbol accessibilityDescription:title]];
        [self addSubview:image];
        [self addSubview:caption(title, NSMakeRect(x, 200, 78, 17))];
        x += 77.5;
    }
}

- (void)drawRect:(NSRect)rect {
    const NSRect window = NSMakeRect(20, 8, 640, 264);
    drawWindow(window);
    [[NSColor gridColor] set];
    NSRectFill(NSMakeRect(21, 194, 638, 1));
    // The button in use.
    drawPanel(NSMakeRect(188, 198, 72, 50), 6, faint([NSColor controlAccentColor], 0.18), [NSColor controlAccentColor]);
    const NSRect slide = NSMakeRect(196, 20, 288, 162);
    drawSlide(slide, @"Highlights", 0);
    drawTextLines(NSMakeRect(slide.origin.x + 23, slide.origin.y + 24, 110, 80), 5, 6,
                  faint([NSColor secondaryLabelColor], 0.6));
    const NSRect element = NSMakeRect(NSMaxX(slide) - 128, slide.origin.y + 24, 104, 70);
    drawChart(NSInsetRect(element, 8, 8));
    drawHandles(element);
}

@end

@implementation TutorialOverridesDrawing

- (void)drawRect:(NSRect)rect {
    const NSRect card = NSMakeRect(20, 20, 290, 240);
    drawPanel(card, 8, [NSColor windowBackgroundColor], [NSColor gridColor]);
    drawText(@"Document Overrides", NSMakePoint(40, 222), 14, Weight::bold, [NSColor textColor]);
    [[NSColor gridColor] set];
    NSRectFill(NSMakeRect(21, 210, 288, 1));
    drawField(@"Header", @"Quarterly Review", 40, 166);
    drawField(@"Footer", @"Example Inc.", 40, 126);
    drawField(@"Animation", @"Fade, 0.4 s", 40, 86);
    drawField(@"Page", @"Number of total", 40, 46);

    const NSRect slide = NSMakeRect(340, 47, 320, 186);
    drawPanel(slide, 4, [NSColor windowBackgroundColor], [NSColor gridColor]);
    NSColor *tint = faint([NSColor controlAccentColor], 0.18);
    const NSRect header = NSMakeRect(341, NSMaxY(slide) - 27, 318, 26);
    const NSRect footer = NSMakeRect(341, slide.origin.y + 1, 318, 26);
    [tint set];
    [NSBezierPath fillRect:header];
    [NSBezierPath fillRect:footer];
    drawText(@"Quarterly Review", NSMakePoint(354, header.origin.y + 6), 11, Weight::regular, [NSColor textColor]);
    drawText(@"Example Inc.", NSMakePoint(354, footer.origin.y + 6), 11, Weight::regular, [NSColor textColor]);
    drawText(@"2 of 6", NSMakePoint(614, footer.origin.y + 6), 11, Weight::regular, [NSColor textColor]);
    drawText(@"Highlights", NSMakePoint(366, 166), 20, Weight::bold, [NSColor textColor]);
    drawTextLines(NSMakeRect(366, 92, 130, 62), 4, 6, faint([NSColor secondaryLabelColor], 0.6));
    drawChart(NSMakeRect(528, 92, 104, 70));
}

@end

@implementation TutorialReorderDrawing

- (void)drawRect:(NSRect)rect {
    NSString *const titles[] = {@"Review", @"Highlights", @"Markets", @"Team", @"Risks", @"Next steps", @"Thanks"};
    const NSRect content = drawWindow(NSMakeRect(20, 8, 640, 264));
    constexpr CGFloat width = 128;
    constexpr CGFloat height = 72;
    for (int i = 0; i < 8; ++i) {
        const int row = i / 4;
        const int column = i % 4;
        const CGFloat x = content.origin.x + 30 + column * (width + 22);
        const CGFloat y = NSMaxY(content) - 20 - height - row * (height + 38);
        if (i == 5) {
            // Where the slide in hand goes.
            drawPanel(NSMakeRect(x, y, width, height), 4, faint([NSColor controlAccentColor], 0.12),
                      [NSColor controlAccentColor]);
            continue;
        }
        const int slide = i < 5 ? i : i - 1;
        drawSlide(NSMakeRect(x, y, width, height), titles[slide], 2);
        drawCentredText([NSString stringWithFormat:@"%d", i + 1], NSMakeRect(x, y - 20, width, 16), 11, Weight::regular,
                        [NSColor secondaryLabelColor]);
    }
    const NSRect lifted = NSMakeRect(content.origin.x + 30 + width + 22 + 16, content.origin.y + 44, width, height);
    drawPanel(NSOffsetRect(lifted, 4, -4), 4, faint([NSColor blackColor], 0.25), nil);
    drawSlide(lifted, @"Outlook", 2);
    NSBezierPath *mark = [NSBezierPath bezierPathWithRoundedRect:lifted xRadius:4 yRadius:4];
    [[NSColor controlAccentColor] set];
    [mark setLineWidth:2];
    [mark stroke];
}

@end
