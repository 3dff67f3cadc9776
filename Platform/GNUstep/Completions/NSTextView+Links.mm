// GNUstep's text views do nothing with a link that is clicked.
#import "Hooks.h"

#import <AppKit/AppKit.h>

@protocol QVLinkDelegate
- (BOOL)textView:(NSTextView *)textView clickedOnLink:(id)link atIndex:(NSUInteger)index;
@end

namespace platform {

namespace {

Hook<void, id, NSUInteger> clickedOnLink;
Hook<void, NSEvent *> mouseDown;

// The index of the character under a point of the view; NSNotFound beside the text.
NSUInteger characterAt(NSTextView *view, NSPoint point) {
    NSLayoutManager *layout = [view layoutManager];
    NSTextContainer *container = [view textContainer];
    const NSPoint origin = [view textContainerOrigin];
    const NSPoint inContainer = NSMakePoint(point.x - origin.x, point.y - origin.y);
    if ([[view textStorage] length] == 0) {
        return NSNotFound;
    }
    const NSUInteger glyph = [layout glyphIndexForPoint:inContainer inTextContainer:container];
    const NSRect bounds = [layout boundingRectForGlyphRange:NSMakeRange(glyph, 1) inTextContainer:container];
    const NSUInteger character = [layout characterIndexForGlyphAtIndex:static_cast<unsigned>(glyph)];
    return NSPointInRect(inContainer, bounds) && character < [[view textStorage] length] ? character : NSNotFound;
}

void newClickedOnLink(id self, SEL /*selector*/, id link, NSUInteger index) {
    id delegate = [self delegate];
    if ([delegate respondsToSelector:@selector(textView:clickedOnLink:atIndex:)] &&
        [static_cast<id<QVLinkDelegate>>(delegate) textView:self clickedOnLink:link atIndex:index]) {
        return;
    }
    NSURL *url = [link isKindOfClass:[NSString class]] ? [NSURL URLWithString:link] : link;
    if ([url isKindOfClass:[NSURL class]]) {
        [[NSWorkspace sharedWorkspace] openURL:url];
    }
}

// The original returns when the button is released; a selection by dragging is no click.
void newMouseDown(id self, SEL selector, NSEvent *event) {
    mouseDown.original(self, selector, event);
    if ([event clickCount] != 1 || [self selectedRange].length > 0) {
        return;
    }
    const NSUInteger index = characterAt(self, [self convertPoint:[event locationInWindow] fromView:nil]);
    if (index != NSNotFound) {
        id link = [[self textStorage] attribute:NSLinkAttributeName atIndex:index effectiveRange:nullptr];
        if (link != nil) {
            [self clickedOnLink:link atIndex:index];
        }
    }
}

} // namespace

void installTextViewLinkHook() {
    clickedOnLink.install([NSTextView class], @selector(clickedOnLink:atIndex:), newClickedOnLink);
    mouseDown.install([NSTextView class], @selector(mouseDown:), newMouseDown);
}

} // namespace platform
