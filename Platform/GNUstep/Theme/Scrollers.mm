// Scrollers: a round knob in a plain slot, no arrows.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"

using namespace flattheme;

void flattheme::installScrollerHooks() {}

@implementation QVFlatTheme (Scrollers)

- (float)defaultScrollerWidth {
    return 12;
}

- (BOOL)scrollViewUseBottomCorner {
    return NO;
}

// Only the frame: no lines between the content and the scrollers.
- (void)drawScrollViewRect:(NSRect)rect inView:(NSView *)view {
    [self drawBorderType:[(NSScrollView *)view borderType] frame:[view bounds] view:view];
}

- (NSCell *)cellForScrollerKnobSlot:(BOOL)horizontal {
    NSCell *cell = [super cellForScrollerKnobSlot:horizontal];
    [(NSButtonCell *)cell setBackgroundColor:[NSColor scrollBarColor]];
    return cell;
}

- (void)drawScrollerRect:(NSRect)rect
                  inView:(NSView *)view
                 hitPart:(NSScrollerPart)hitPart
            isHorizontal:(BOOL)horizontal {
    [colour(palette().field) set];
    NSRectFill([view bounds]);
    const NSRect knob = [(NSScroller *)view rectForPart:NSScrollerKnob];
    if (NSWidth(knob) <= 0 || NSHeight(knob) <= 0) {
        return;
    }
    const bool pressed = hitPart == NSScrollerKnob;
    fillCapsule(NSInsetRect(knob, horizontal ? 1 : 3, horizontal ? 3 : 1),
                colour(pressed ? palette().scrollerKnobPressed : palette().scrollerKnob));
}

@end
