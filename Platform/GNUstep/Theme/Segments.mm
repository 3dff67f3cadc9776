// Segmented controls and steppers.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"

#include <cmath>

using namespace flattheme;

namespace {

platform::Hook<void, NSInteger, NSRect, NSView *> drawSegmentHook;

void drawContent(NSSegmentedCell *cell, NSInteger segment, NSRect frame) {
    const bool enabled = [cell isEnabled] && [cell isEnabledForSegment:segment];
    NSFont *font = [cell font] != nil ? [cell font] : [NSFont systemFontOfSize:0];
    NSDictionary *attributes = @{
        NSFontAttributeName : font,
        NSForegroundColorAttributeName : colour(enabled ? palette().text : palette().disabledText)
    };
    NSString *label = [cell labelForSegment:segment];
    NSImage *image = [cell imageForSegment:segment];
    const NSSize text = [label length] > 0 ? [label sizeWithAttributes:attributes] : NSZeroSize;
    const NSSize picture = image != nil ? [image size] : NSZeroSize;
    const CGFloat gap = image != nil && [label length] > 0 ? 4 : 0;
    CGFloat x = std::round(NSMidX(frame) - (text.width + gap + picture.width) / 2);
    if (image != nil) {
        const NSRect place =
            NSMakeRect(x, std::round(NSMidY(frame) - picture.height / 2), picture.width, picture.height);
        [image drawInRect:place
                  fromRect:NSZeroRect
                 operation:NSCompositeSourceOver
                  fraction:enabled ? 1 : 0.5
            respectFlipped:YES
                     hints:nil];
        x += picture.width + gap;
    }
    if ([label length] > 0) {
        [label drawAtPoint:NSMakePoint(x, std::round(NSMidY(frame) - text.height / 2)) withAttributes:attributes];
    }
}

// A segment's content belongs in its middle.
void drawSegment(id self, SEL, NSInteger segment, NSRect frame, NSView *view) {
    NSSegmentedCell *cell = self;
    [[GSTheme theme]
        drawSegmentedControlSegment:cell
                          withFrame:frame
                             inView:view
                              style:[cell segmentStyle]
                              state:[cell isSelectedForSegment:segment] ? GSThemeSelectedState : GSThemeNormalState
                        roundedLeft:segment == 0
                       roundedRight:segment + 1 == [cell segmentCount]];
    drawContent(cell, segment, frame);
    const bool hasKeys = [[view window] firstResponder] == view && [cell selectedSegment] == segment;
    if (hasKeys) {
        drawFocusRing(frame, 5);
    }
}

} // namespace

void flattheme::installSegmentHooks() {
    drawSegmentHook.install([NSSegmentedCell class], @selector(drawSegment:inFrame:withView:), drawSegment);
}

@implementation QVFlatTheme (Segments)

- (void)drawSegmentedControlSegment:(NSCell *)cell
                          withFrame:(NSRect)frame
                             inView:(NSView *)view
                              style:(NSSegmentStyle)style
                              state:(GSThemeControlState)state
                        roundedLeft:(BOOL)roundedLeft
                       roundedRight:(BOOL)roundedRight {
    [NSGraphicsContext saveGraphicsState];
    NSRectClip(frame);
    // An inner edge is square: its round corners lie outside of the clip.
    constexpr CGFloat radius = 5;
    NSRect rect = frame;
    if (!roundedLeft) {
        rect.origin.x -= radius + 1;
        rect.size.width += radius + 1;
    }
    if (!roundedRight) {
        rect.size.width += radius + 1;
    }
    const bool selected = state != GSThemeNormalState && state != GSThemeDisabledState;
    drawPanel(rect, colour(selected ? palette().selectedRow : palette().control), colour(palette().border), radius);
    if (!roundedRight) {
        [colour(palette().border) set];
        NSRectFill(NSMakeRect(NSMaxX(frame) - 1, NSMinY(frame), 1, NSHeight(frame)));
    }
    [NSGraphicsContext restoreGraphicsState];
}

- (void)drawStepperCell:(NSCell *)cell
              withFrame:(NSRect)frame
                 inView:(NSView *)view
            highlightUp:(BOOL)highlightUp
          highlightDown:(BOOL)highlightDown {
    const bool flipped = [view isFlipped];
    const Palette &p = palette();
    drawPanel(frame, colour([cell isEnabled] ? p.control : p.window), colour(p.border), 4);
    NSRect up = frame;
    NSRect down = frame;
    up.size.height = down.size.height = NSHeight(frame) / 2;
    (flipped ? down : up).origin.y += NSHeight(up);
    if (highlightUp || highlightDown) {
        drawPanel(NSInsetRect(highlightUp ? up : down, 1, 1), colour(p.pressedControl), nil, 3);
    }
    NSColor *arrow = colour([cell isEnabled] ? p.text : p.disabledText);
    drawChevron(up, Direction::up, flipped, arrow);
    drawChevron(down, Direction::down, flipped, arrow);
}

@end
