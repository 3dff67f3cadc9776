// GNUstep's font panel has one layout for all sizes of the system font: with a larger one its titles are cut off. Here
// they take the largest size that fits.
#import "Hooks.h"

#import <AppKit/AppKit.h>

namespace platform {

namespace {

Hook<NSFontPanel *, BOOL> fontPanel;

bool fits(NSControl *control) {
    constexpr CGFloat tolerance = 3;
    const NSSize needed = [[control cell] cellSize];
    return needed.width <= NSWidth([control bounds]) + tolerance &&
           needed.height <= NSHeight([control bounds]) + tolerance;
}

void fitTitles(NSView *view) {
    constexpr CGFloat smallest = 9; // points: still readable
    for (NSView *subview in [view subviews]) {
        const bool hasTitle = [subview isKindOfClass:[NSButton class]] || [subview isKindOfClass:[NSTextField class]];
        if (!hasTitle) {
            fitTitles(subview);
            continue;
        }
        NSControl *control = static_cast<NSControl *>(subview);
        while (!fits(control) && [[control font] pointSize] > smallest) {
            NSFont *font = [control font];
            [control setFont:[[NSFontManager sharedFontManager] convertFont:font
                                                                     toSize:static_cast<float>([font pointSize] - 1)]];
        }
    }
}

NSFontPanel *fittedFontPanel(id self, SEL selector, BOOL create) {
    static NSFontPanel *fitted = nil; // the panel lives as long as the program
    NSFontPanel *panel = fontPanel.original(self, selector, create);
    if (panel != nil && panel != fitted) {
        fitted = panel;
        fitTitles([panel contentView]);
    }
    return panel;
}

} // namespace

void installFontPanelFitting() {
    fontPanel.install([NSFontManager class], @selector(fontPanel:), fittedFontPanel);
}

} // namespace platform
