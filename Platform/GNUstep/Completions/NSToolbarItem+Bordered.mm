// GNUstep 0.29 lacks the bordered look of toolbar items.
#import "NSToolbarItem+Bordered.h"

#import "AttachedValues.h"
#import "Hooks.h"

#include <cmath>

// The button that stands for an item without a view of its own: image above, label below.
@interface NSObject (QVToolbarButton)
- (NSView *)_backView;
- (NSToolbarItem *)toolbarItem;
@end

namespace platform {

namespace {

AttachedValues<bool> &borders() {
    [[clang::no_destroy]] static AttachedValues<bool> values;
    return values;
}

// What a button made with an image of the usual size has.
constexpr NSSize bezelSize = {38, 28};

// Around the image, not around the label.
NSRect bezelRect(NSButton *button) {
    const NSRect bounds = [button bounds];
    const CGFloat label = [button imagePosition] == NSImageAbove ? [[button attributedTitle] size].height : 0;
    const CGFloat room = NSHeight(bounds) - label;
    const CGFloat middle = [button isFlipped] ? room / 2 : label + room / 2;
    return NSMakeRect(std::round(NSMidX(bounds) - bezelSize.width / 2), std::round(middle - bezelSize.height / 2),
                      bezelSize.width, bezelSize.height);
}

Hook<void, NSRect> drawRect;

void drawWithBezel(id self, SEL selector, NSRect rect) {
    NSButton *button = self;
    if ([button imagePosition] != NSNoImage && borders().value([self toolbarItem], false)) {
        NSButtonCell *bezel = [[NSButtonCell alloc] initTextCell:@""];
        [bezel setBezelStyle:NSTexturedRoundedBezelStyle];
        [bezel setEnabled:[button isEnabled]];
        [bezel setHighlighted:[[button cell] isHighlighted]];
        [bezel drawBezelWithFrame:bezelRect(button) inView:button];
        [bezel release];
    }
    drawRect.original(self, selector, rect);
}

} // namespace

void installToolbarItemBorders() {
    if (Class button = NSClassFromString(@"GSToolbarButton")) {
        drawRect.install(button, @selector(drawRect:), drawWithBezel);
    }
}

} // namespace platform

@implementation NSToolbarItem (QVBordered)

- (BOOL)isBordered {
    return platform::borders().value(self, false);
}

- (void)setBordered:(BOOL)bordered {
    platform::borders().set(self, bordered);
    if ([self respondsToSelector:@selector(_backView)]) {
        [[self _backView] setNeedsDisplay:YES];
    }
}

@end
