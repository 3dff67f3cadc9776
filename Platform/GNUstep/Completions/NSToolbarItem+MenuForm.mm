// GNUstep 0.29 gives toolbar items that find no room a menu entry without tag and image, which an item without a label
// leaves blank and which does not act itself for the control that it stands for.
#import "Hooks.h"

#import <AppKit/AppKit.h>

namespace platform {

namespace {

Hook<NSMenuItem *> defaultMenuForm;

NSMenuItem *completeMenuForm(id self, SEL selector) {
    NSMenuItem *entry = defaultMenuForm.original(self, selector);
    NSToolbarItem *item = self;
    if (entry == nil) {
        return nil;
    }
    NSControl *control = [[item view] isKindOfClass:[NSControl class]] ? static_cast<NSControl *>([item view]) : nil;
    if ([[item label] length] == 0) {
        // An entry needs a title: that of the button, if it has one.
        NSString *title = [control isKindOfClass:[NSButton class]] ? [static_cast<NSButton *>(control) title] : nil;
        if ([title length] == 0) {
            return nil;
        }
        [entry setTitle:title];
    }
    if (control != nil) {
        [entry setAction:[control action]];
        [entry setTarget:[control target]];
    }
    [entry setTag:[item tag]];
    [entry setImage:[item image]];
    return entry;
}

} // namespace

void installToolbarItemMenuForm() {
    defaultMenuForm.install([NSToolbarItem class], NSSelectorFromString(@"_defaultMenuFormRepresentation"),
                            completeMenuForm);
}

} // namespace platform
