// GNUstep's toolbars leave out default items that are not among the allowed ones. Elsewhere the allowed ones only say
// what can be added.
#import <AppKit/AppKit.h>

#import "Hooks.h"

#include <utility>

namespace platform {

namespace {

Hook<void> build;
Hook<NSArray *> allowedItems;

/// Whether a toolbar is choosing its first items: what it offers for customisation stays as it is.
bool building = false;

NSArray *defaultItems(NSToolbar *toolbar) {
    id delegate = [toolbar delegate];
    return [delegate respondsToSelector:@selector(toolbarDefaultItemIdentifiers:)]
               ? [delegate toolbarDefaultItemIdentifiers:toolbar]
               : nil;
}

void newBuild(id self, SEL selector) {
    const bool before = std::exchange(building, true);
    build.original(self, selector);
    building = before;
}

NSArray *newAllowedItems(id self, SEL selector) {
    NSArray *allowed = allowedItems.original(self, selector);
    NSArray *defaults = building ? defaultItems(self) : nil;
    return defaults != nil ? [defaults arrayByAddingObjectsFromArray:allowed] : allowed;
}

} // namespace

void installToolbarDefaultItems() {
    build.install([NSToolbar class], NSSelectorFromString(@"_build"), newBuild);
    allowedItems.install([NSToolbar class], NSSelectorFromString(@"_allowedItemIdentifiers"), newAllowedItems);
}

} // namespace platform
