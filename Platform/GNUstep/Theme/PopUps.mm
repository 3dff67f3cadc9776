// Pop-up buttons whose items have pictures: the picture stands before the title, in the button as in its menu. AppKit
// puts it in the place of the arrows and at the far end of the menu.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"

#import <AppKit/AppKit.h>

#include <cmath>

using namespace flattheme;

@interface NSMenu (QVPopUpOwner)
- (BOOL)_ownedByPopUp;
@end

namespace {

constexpr CGFloat gap = 6;
constexpr CGFloat arrowsWidth = 18;

platform::Hook<void, NSRect, NSView *> drawInteriorHook;
platform::Hook<NSRect, NSRect> imageRectHook;
platform::Hook<NSRect, NSRect> titleRectHook;

NSMenuItem *shownItem(NSPopUpButtonCell *cell) {
    if ([cell pullsDown]) {
        return [cell numberOfItems] > 0 ? (NSMenuItem *)[cell itemAtIndex:0] : nil;
    }
    return (NSMenuItem *)[cell selectedItem];
}

// The item's own picture. AppKit lends an item without one the picture of the arrows.
NSImage *pictureOf(NSMenuItem *item) {
    NSImage *image = [item image];
    return [[image name] hasPrefix:@"common_"] ? nil : image;
}

void drawArrows(NSPopUpButtonCell *cell, NSRect rect, bool flipped, NSColor *ink) {
    if ([cell arrowPosition] == NSPopUpNoArrow) {
        return;
    }
    if ([cell pullsDown]) {
        drawChevron(rect, Direction::down, flipped, ink);
        return;
    }
    const CGFloat up = flipped ? -3 : 3;
    drawChevron(NSOffsetRect(rect, 0, up), Direction::up, flipped, ink);
    drawChevron(NSOffsetRect(rect, 0, -up), Direction::down, flipped, ink);
}

void drawPopUpInterior(id self, SEL command, NSRect frame, NSView *view) {
    NSPopUpButtonCell *cell = self;
    NSMenuItem *item = shownItem(cell);
    NSImage *image = pictureOf(item);
    if (image == nil || [cell imagePosition] == NSNoImage) {
        drawInteriorHook.original(self, command, frame, view);
        return;
    }
    NSColor *ink = colour([cell isEnabled] ? palette().text : palette().disabledText);
    const NSSize size = [image size];
    const NSRect place =
        NSMakeRect(NSMinX(frame) + gap, std::round(NSMidY(frame) - size.height / 2), size.width, size.height);
    [image drawInRect:place
              fromRect:NSZeroRect
             operation:NSCompositeSourceOver
              fraction:[cell isEnabled] ? 1 : 0.5
        respectFlipped:YES
                 hints:nil];
    drawArrows(cell, NSMakeRect(NSMaxX(frame) - arrowsWidth, NSMinY(frame), arrowsWidth, NSHeight(frame)),
               [view isFlipped], ink);
    if ([cell imagePosition] == NSImageOnly) {
        return;
    }
    NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setLineBreakMode:NSLineBreakByTruncatingTail];
    NSFont *font = [cell font] != nil ? [cell font] : [NSFont systemFontOfSize:0];
    NSDictionary *attributes =
        @{NSFontAttributeName : font, NSForegroundColorAttributeName : ink, NSParagraphStyleAttributeName : style};
    const CGFloat height = [[item title] sizeWithAttributes:attributes].height;
    const CGFloat x = NSMaxX(place) + gap;
    [[item title]
            drawInRect:NSMakeRect(x, std::round(NSMidY(frame) - height / 2), NSMaxX(frame) - arrowsWidth - x, height)
        withAttributes:attributes];
}

bool isInPopUp(NSMenuItemCell *cell) {
    NSMenu *menu = [[cell menuItem] menu];
    return [menu respondsToSelector:@selector(_ownedByPopUp)] && [menu _ownedByPopUp] &&
           pictureOf((NSMenuItem *)[cell menuItem]) != nil;
}

NSRect imageRect(id self, SEL command, NSRect bounds) {
    if (!isInPopUp(self)) {
        return imageRectHook.original(self, command, bounds);
    }
    const CGFloat width = [[[(NSMenuItemCell *)self menuItem] image] size].width;
    return NSMakeRect(NSMinX(bounds) + gap, NSMinY(bounds), width, NSHeight(bounds));
}

NSRect titleRect(id self, SEL command, NSRect bounds) {
    NSRect rect = titleRectHook.original(self, command, bounds);
    if (isInPopUp(self)) {
        const CGFloat start = NSMaxX(imageRect(self, @selector(imageRectForBounds:), bounds)) + gap;
        rect = NSMakeRect(start, NSMinY(rect), NSMaxX(bounds) - start, NSHeight(rect));
    }
    return rect;
}

} // namespace

void flattheme::installPopUpHooks() {
    drawInteriorHook.install([NSPopUpButtonCell class], @selector(drawInteriorWithFrame:inView:), drawPopUpInterior);
    imageRectHook.install([NSMenuItemCell class], @selector(imageRectForBounds:), imageRect);
    titleRectHook.install([NSMenuItemCell class], @selector(titleRectForBounds:), titleRect);
}
