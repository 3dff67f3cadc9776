// GNUstep 0.29 lacks the bordered look of toolbar items.
#import "NSToolbarItem+Bordered.h"

#import "AttachedValues.h"

@interface NSToolbarItem (QVBackView)
- (NSView *)_backView;
@end

namespace {

platform::AttachedValues<bool> &borders() {
    [[clang::no_destroy]] static platform::AttachedValues<bool> values;
    return values;
}

} // namespace

@implementation NSToolbarItem (QVBordered)

- (BOOL)isBordered {
    return borders().value(self, false);
}

- (void)setBordered:(BOOL)bordered {
    borders().set(self, bordered);
    NSView *back = [self respondsToSelector:@selector(_backView)] ? [self _backView] : nil;
    if ([self view] == nil && [back isKindOfClass:[NSButton class]]) {
        NSButton *button = static_cast<NSButton *>(back);
        [button setBezelStyle:NSTexturedRoundedBezelStyle];
        [button setBordered:bordered];
        [button setNeedsDisplay:YES];
    }
}

@end
