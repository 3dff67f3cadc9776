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
// Below the label, as under items with a view.
constexpr CGFloat labelInset = 4;

NSDictionary *labelAttributes(bool enabled) {
    NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setAlignment:NSTextAlignmentCenter];
    return @{
        NSFontAttributeName : [NSFont systemFontOfSize:[NSFont systemFontSize] * 11 / 12],
        NSForegroundColorAttributeName : enabled ? [NSColor controlTextColor] : [NSColor disabledControlTextColor],
        NSParagraphStyleAttributeName : style,
    };
}

void drawBezel(NSButton *button, NSRect rect) {
    NSButtonCell *bezel = [[NSButtonCell alloc] initTextCell:@""];
    [bezel setBezelStyle:NSTexturedRoundedBezelStyle];
    [bezel setEnabled:[button isEnabled]];
    [bezel setHighlighted:[[button cell] isHighlighted]];
    [bezel drawBezelWithFrame:rect inView:button];
    [bezel release];
}

// Bezel, image and label where an item whose view is a button has them.
void drawBordered(NSButton *button, NSToolbarItem *item) {
    const NSRect bounds = [button bounds];
    const bool enabled = [button isEnabled];
    CGFloat labelRoom = 0;
    if ([button imagePosition] == NSImageAbove) {
        NSDictionary *attributes = labelAttributes(enabled);
        const CGFloat height = [[item label] sizeWithAttributes:attributes].height;
        labelRoom = height + labelInset + 1;
        const CGFloat y = [button isFlipped] ? NSHeight(bounds) - labelInset - height : labelInset;
        [[item label] drawInRect:NSMakeRect(0, y, NSWidth(bounds), height) withAttributes:attributes];
    }
    const CGFloat room = NSHeight(bounds) - labelRoom;
    const CGFloat middle = [button isFlipped] ? room / 2 : labelRoom + room / 2;
    const NSRect bezel = NSMakeRect(std::round(NSMidX(bounds) - bezelSize.width / 2),
                                    std::floor(middle - bezelSize.height / 2), bezelSize.width, bezelSize.height);
    drawBezel(button, bezel);
    const NSSize size = [[item image] size];
    [[item image] drawInRect:NSMakeRect(std::round(NSMidX(bezel) - size.width / 2), NSMidY(bezel) - size.height / 2,
                                        size.width, size.height)
                    fromRect:NSZeroRect
                   operation:NSCompositeSourceOver
                    fraction:enabled ? 1 : 0.4
              respectFlipped:YES
                       hints:nil];
}

Hook<void, NSRect> drawRect;

void drawToolbarButton(id self, SEL selector, NSRect rect) {
    NSButton *button = self;
    NSToolbarItem *item = [self toolbarItem];
    if ([button imagePosition] != NSNoImage && borders().value(item, false)) {
        drawBordered(button, item);
    } else {
        drawRect.original(self, selector, rect);
    }
}

} // namespace

void installToolbarItemBorders() {
    if (Class button = NSClassFromString(@"GSToolbarButton")) {
        drawRect.install(button, @selector(drawRect:), drawToolbarButton);
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
