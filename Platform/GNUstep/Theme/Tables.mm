// Tables, outlines and their headers.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"

#include <cmath>

using namespace flattheme;

namespace {

platform::Hook<id, NSRect> initTableHook;

// AppKit's rows have one height, whatever the font's.
id initTable(id self, SEL command, NSRect frame) {
    NSTableView *table = initTableHook.original(self, command, frame);
    [table setRowHeight:std::round([table rowHeight] * scale())];
    return table;
}

} // namespace

void flattheme::installTableHooks() {
    initTableHook.install([NSTableView class], @selector(initWithFrame:), initTable);
}

@implementation QVFlatTheme (Tables)

- (NSColor *)tableHeaderTextColorForState:(GSThemeControlState)state {
    return colour(palette().text);
}

- (void)drawTableHeaderCell:(NSTableHeaderCell *)cell
                  withFrame:(NSRect)frame
                     inView:(NSView *)view
                      state:(GSThemeControlState)state {
    const bool pressed = state == GSThemeHighlightedState || state == GSThemeSelectedState;
    [colour(pressed ? palette().pressedControl : palette().bar) set];
    NSRectFill(frame);
    [colour(palette().border) set];
    NSRectFill(NSMakeRect(NSMaxX(frame) - 1, NSMinY(frame) + 3, 1, NSHeight(frame) - 6));
    const CGFloat bottom = [view isFlipped] ? NSMaxY(frame) - 1 : NSMinY(frame);
    NSRectFill(NSMakeRect(NSMinX(frame), bottom, NSWidth(frame), 1));
}

- (void)drawTableHeaderRect:(NSRect)rect inView:(NSView *)view {
    [colour(palette().bar) set];
    NSRectFill([view bounds]);
    [super drawTableHeaderRect:rect inView:view];
}

- (void)drawTableCornerView:(NSView *)view withClip:(NSRect)clip {
    [colour(palette().bar) set];
    NSRectFill([view bounds]);
    [colour(palette().border) set];
    const CGFloat bottom = [view isFlipped] ? NSMaxY([view bounds]) - 1 : NSMinY([view bounds]);
    NSRectFill(NSMakeRect(NSMinX([view bounds]), bottom, NSWidth([view bounds]), 1));
}

- (void)highlightTableViewSelectionInClipRect:(NSRect)clip
                                       inView:(NSView *)view
                             selectingColumns:(BOOL)selectingColumns {
    NSTableView *table = (NSTableView *)view;
    [colour(palette().selectedRow) set];
    NSIndexSet *indexes = selectingColumns ? [table selectedColumnIndexes] : [table selectedRowIndexes];
    for (NSUInteger index = [indexes firstIndex]; index != NSNotFound; index = [indexes indexGreaterThanIndex:index]) {
        const NSRect all = selectingColumns ? [table rectOfColumn:static_cast<NSInteger>(index)]
                                            : [table rectOfRow:static_cast<NSInteger>(index)];
        NSRectFill(NSIntersectionRect(all, clip));
    }
}

@end
