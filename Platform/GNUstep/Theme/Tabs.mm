// Tab views: flat tabs above (or below) a framed pane, the chosen one under an accent line.
#import "Drawing.h"
#import "Palette.h"
#import "QVFlatTheme.h"

#include <cmath>

using namespace flattheme;

namespace {

constexpr CGFloat tabPadding = 12;
constexpr CGFloat tabGap = 2;
constexpr CGFloat firstTabInset = 8;

bool hasTabs(NSTabViewType type) {
    return type == NSTopTabsBezelBorder || type == NSBottomTabsBezelBorder;
}

void drawChosenTab(NSRect tab, bool onTop) {
    const NSRect framed = onTop ? NSMakeRect(NSMinX(tab), NSMinY(tab), NSWidth(tab), NSHeight(tab) + 1)
                                : NSMakeRect(NSMinX(tab), NSMinY(tab) - 1, NSWidth(tab), NSHeight(tab) + 1);
    drawPanel(framed, colour(palette().window), colour(palette().border), 4);
    // The tab is open towards its pane.
    [colour(palette().window) set];
    NSRectFill(NSMakeRect(NSMinX(tab) + 1, onTop ? NSMaxY(tab) - 4 : NSMinY(tab) - 1, NSWidth(tab) - 2, 5));
    [colour(palette().border) set];
    const CGFloat sideTop = onTop ? NSMaxY(tab) - 4 : NSMinY(tab) - 1;
    NSRectFill(NSMakeRect(NSMinX(tab), sideTop, 1, 5));
    NSRectFill(NSMakeRect(NSMaxX(tab) - 1, sideTop, 1, 5));
    const NSRect mark = NSMakeRect(NSMinX(tab) + 4, onTop ? NSMinY(tab) : NSMaxY(tab) - 2, NSWidth(tab) - 8, 2);
    fillCapsule(mark, colour(palette().accentLine));
}

} // namespace

@implementation QVFlatTheme (Tabs)

- (CGFloat)tabHeightForType:(NSTabViewType)type {
    return hasTabs(type) ? std::round(26 * scale()) : 0;
}

- (void)drawTabViewRect:(NSRect)rect
                 inView:(NSView *)view
              withItems:(NSArray *)items
           selectedItem:(NSTabViewItem *)selected {
    NSTabView *tabView = (NSTabView *)view;
    const NSTabViewType type = [tabView tabViewType];
    if (type == NSNoTabsNoBorder) {
        return;
    }
    const NSRect bounds = [tabView bounds];
    const CGFloat tabHeight = [self tabHeightForType:type];
    const bool onTop = type == NSTopTabsBezelBorder;
    NSRect pane = bounds;
    pane.size.height -= tabHeight;
    if (onTop) {
        pane.origin.y += tabHeight;
    }
    drawPanel(pane, colour(palette().window), colour(palette().border), 4);
    if (!hasTabs(type)) {
        return;
    }
    const BOOL truncates = [tabView allowsTruncatedLabels];
    const CGFloat y = onTop ? NSMinY(bounds) : NSMaxY(pane);
    CGFloat x = NSMinX(bounds) + firstTabInset;
    for (NSTabViewItem *item in items) {
        const NSSize label = [item sizeOfLabel:truncates];
        const NSRect tab = NSMakeRect(x, y, label.width + 2 * tabPadding, tabHeight);
        if (item == selected) {
            drawChosenTab(tab, onTop);
            if ([[tabView window] firstResponder] == tabView) {
                drawFocusRing(NSInsetRect(tab, 2, 3), 4);
            }
        }
        const NSRect inside =
            NSMakeRect(x + tabPadding, y + std::floor((tabHeight - label.height) / 2), label.width, label.height);
        [item drawLabel:truncates inRect:inside];
        x = NSMaxX(tab) + tabGap;
    }
}

@end
