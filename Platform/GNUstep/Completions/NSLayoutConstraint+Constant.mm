// GNUstep's constraints keep the constant that they were made with.
#import "NSLayoutConstraint+Constant.h"

namespace {

// Constraints are not solved here. The simplest kind, a width or height of one view, is applied to its frame.
void applyToFrame(NSView *view, NSLayoutAttribute attribute, CGFloat length) {
    NSRect frame = [view frame];
    if (attribute == NSLayoutAttributeWidth) {
        frame.size.width = length;
    } else if (attribute == NSLayoutAttributeHeight) {
        // The upper edge stays.
        if (![[view superview] isFlipped]) {
            frame.origin.y += frame.size.height - length;
        }
        frame.size.height = length;
    }
    if (!NSEqualRects(frame, [view frame])) {
        [[view superview] setNeedsDisplayInRect:[view frame]];
        [view setFrame:frame];
        [view setNeedsDisplay:YES];
    }
}

} // namespace

@implementation NSLayoutConstraint (Constant)

- (void)setConstant:(CGFloat)constant {
    _constant = constant;
    if ([self secondItem] == nil && [[self firstItem] isKindOfClass:[NSView class]]) {
        applyToFrame([self firstItem], [self firstAttribute], constant);
    }
}

@end
