// Browsers, which the open and save panels and the font panel are made of.
#import "Drawing.h"
#import "Palette.h"
#import "QVFlatTheme.h"

#include <cmath>

using namespace flattheme;

namespace {

constexpr CGFloat padding = 4;
constexpr CGFloat arrowWidth = 16;

// The picture before a row's text; how much room it took.
CGFloat drawPicture(NSImage *image, NSRect frame, bool flipped) {
    if (image == nil) {
        return 0;
    }
    const NSSize size = [image size];
    const CGFloat y = std::round(NSMidY(frame) - size.height / 2);
    const NSRect place = NSMakeRect(NSMinX(frame) + padding, y, size.width, size.height);
    [image drawInRect:place
              fromRect:NSZeroRect
             operation:NSCompositeSourceOver
              fraction:1
        respectFlipped:flipped
                 hints:nil];
    return size.width + padding;
}

} // namespace

@implementation QVFlatTheme (Browsers)

- (NSColor *)browserHeaderTextColor {
    return colour(palette().text);
}

- (void)drawBrowserHeaderCell:(NSTableHeaderCell *)cell withFrame:(NSRect)rect inView:(NSView *)view {
    drawPanel(rect, colour(palette().bar), colour(palette().border), 0);
}

- (void)drawBrowserInteriorWithFrame:(NSRect)frame
                            withCell:(NSBrowserCell *)cell
                              inView:(NSView *)view
                           withImage:(NSImage *)image
                      alternateImage:(NSImage *)alternateImage
                       isHighlighted:(BOOL)highlighted
                               state:(int)state
                              isLeaf:(BOOL)leaf {
    const bool chosen = highlighted || state != NSOffState;
    [colour(chosen ? palette().selectedRow : palette().field) set];
    NSRectFill(frame);
    NSImage *picture = chosen && alternateImage != nil ? alternateImage : image;
    const CGFloat used = drawPicture(picture, frame, [view isFlipped]);
    NSColor *ink = colour([cell isEnabled] ? palette().text : palette().disabledText);
    if (!leaf) {
        const NSRect arrow = NSMakeRect(NSMaxX(frame) - arrowWidth, NSMinY(frame), arrowWidth, NSHeight(frame));
        drawChevron(arrow, Direction::right, [view isFlipped], ink);
    }
    NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setLineBreakMode:NSLineBreakByTruncatingTail];
    [style setAlignment:[cell alignment]];
    NSFont *font = [cell font] != nil ? [cell font] : [NSFont systemFontOfSize:0];
    NSDictionary *attributes =
        @{NSFontAttributeName : font, NSForegroundColorAttributeName : ink, NSParagraphStyleAttributeName : style};
    NSString *title = [cell stringValue];
    const CGFloat height = [title sizeWithAttributes:attributes].height;
    const CGFloat width = NSWidth(frame) - used - 2 * padding - (leaf ? 0 : arrowWidth - padding);
    const CGFloat y = std::round(NSMidY(frame) - height / 2);
    [title drawInRect:NSMakeRect(NSMinX(frame) + used + padding, y, width, height) withAttributes:attributes];
}

@end
