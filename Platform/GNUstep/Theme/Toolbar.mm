// The toolbar: a chosen item stands on a round panel, labels are in the text's colour.
#import "Drawing.h"
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"
#import "QVFlatTheme.h"

#import <GNUstepGUI/GSToolbarView.h>

using namespace flattheme;

@interface NSObject (QVToolbarItemViews)
- (NSToolbarItem *)toolbarItem;
@end

namespace {

platform::Hook<void, NSRect, NSView *> drawCellHook;
platform::Hook<void, NSRect> drawViewHook;

void drawToolbarButton(id self, SEL, NSRect frame, NSView *view) {
    NSButtonCell *cell = self;
    if ([cell state] != NSOffState || [cell isHighlighted]) {
        drawPanel(NSInsetRect(frame, 2, 1), colour(palette().pressedControl), colour(palette().border), 5);
    }
    [cell drawInteriorWithFrame:frame inView:view];
}

// The label under an item that has a view of its own.
void drawToolbarItemLabel(id self, SEL, NSRect) {
    NSToolbarItem *item = [self toolbarItem];
    if ([[item toolbar] displayMode] == NSToolbarDisplayModeIconOnly) {
        return;
    }
    NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setAlignment:NSCenterTextAlignment];
    NSColor *ink = colour([item isEnabled] ? palette().text : palette().disabledText);
    NSDictionary *attributes = [NSDictionary
        dictionaryWithObjectsAndKeys:[NSFont systemFontOfSize:11 * scale()], NSFontAttributeName, ink,
                                     NSForegroundColorAttributeName, style, NSParagraphStyleAttributeName, nil];
    const NSRect bounds = [(NSView *)self bounds];
    const NSSize size = [[item label] sizeWithAttributes:attributes];
    [[item label] drawInRect:NSMakeRect(0, 4, NSWidth(bounds), size.height) withAttributes:attributes];
}

} // namespace

void flattheme::installToolbarHooks() {
    drawCellHook.install(objc_getClass("GSToolbarButtonCell"), @selector(drawWithFrame:inView:), drawToolbarButton);
    drawViewHook.install(objc_getClass("GSToolbarBackView"), @selector(drawRect:), drawToolbarItemLabel);
}

@implementation QVFlatTheme (Toolbar)

- (NSColor *)toolbarBackgroundColor {
    return colour(palette().bar);
}

- (NSColor *)toolbarBorderColor {
    return colour(palette().border);
}

@end
