// GNUstep's toolbars make flexible spaces too wide beside items that can be resized: the last items are cut off.
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

/// Shares among the flexible spaces exactly what the other items leave.
void newDistribute(id self, SEL) {
    NSArray *items = [[self toolbar] items];
    CGFloat left = [static_cast<NSView *>(self) frame].size.width;
    CGFloat spaces = 0;
    for (NSToolbarItem *item in items) {
        if (isFlexibleSpace(item)) {
            ++spaces;
        } else {
            left -= [[item _backView] frame].size.width;
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
