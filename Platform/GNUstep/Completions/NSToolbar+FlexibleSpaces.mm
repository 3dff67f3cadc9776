// GNUstep's toolbars make flexible spaces too wide beside items that can be resized, and cut the last items off.
#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSToolbarView.h>

#import "Hooks.h"

#include <algorithm>
#include <cmath>

/// What toolbars know of the views that they make for their items.
@interface NSToolbarItem (QVItemViews)
- (NSView *)_backView;
@end

namespace platform {

namespace {

Hook<void> distribute;

bool isFlexibleSpace(NSToolbarItem *item) {
    return [[item itemIdentifier] isEqualToString:NSToolbarFlexibleSpaceItemIdentifier];
}

/// How much wider than its smallest width the item may be shown.
CGFloat stretch(NSToolbarItem *item) {
    return [item view] != nil ? std::max<CGFloat>([item maxSize].width - [item minSize].width, 0) : 0;
}

/// Gives the item's view a width, centred in the view that the toolbar made around it, which keeps its margins.
void setViewWidth(NSToolbarItem *item, CGFloat width) {
    NSView *back = [item _backView];
    NSRect frame = [[item view] frame];
    const CGFloat margins = NSWidth([back frame]) - NSWidth(frame);
    [back setFrameSize:NSMakeSize(width + margins, NSHeight([back frame]))];
    frame.size.width = width;
    frame.origin.x = std::floor(margins / 2);
    [[item view] setFrame:frame];
}

/// Shows the items that can be resized as wide as there is room for, and shares what is left among the flexible spaces.
void newDistribute(id self, SEL) {
    NSArray *items = [[self toolbar] items];
    CGFloat left = NSWidth([static_cast<NSView *>(self) frame]);
    CGFloat spaces = 0;
    for (NSToolbarItem *item in items) {
        if (stretch(item) > 0) {
            setViewWidth(item, [item minSize].width);
        }
        isFlexibleSpace(item) ? ++spaces : left -= NSWidth([[item _backView] frame]);
    }
    for (NSToolbarItem *item in items) {
        const CGFloat more = isFlexibleSpace(item) ? 0 : std::floor(std::clamp<CGFloat>(left, 0, stretch(item)));
        if (more > 0) {
            setViewWidth(item, [item minSize].width + more);
            left -= more;
        }
    }
    const CGFloat share = spaces > 0 ? std::floor(std::max<CGFloat>(left, 0) / spaces) : 0;
    CGFloat x = 0;
    for (NSToolbarItem *item in items) {
        NSRect frame = [[item _backView] frame];
        frame.origin.x = x;
        if (isFlexibleSpace(item)) {
            frame.size.width = share;
        }
        [[item _backView] setFrame:frame];
        x += frame.size.width;
    }
}

} // namespace

void installToolbarFlexibleSpaces() {
    distribute.install([GSToolbarView class], NSSelectorFromString(@"_takeInAccountFlexibleSpaces"), newDistribute);
}

} // namespace platform
