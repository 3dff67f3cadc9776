// GNUstep's pop-up buttons look for each new title among all others and size themselves again each time: filling one
// with a thousand titles takes more than a second.
#import "Hooks.h"

#import <AppKit/AppKit.h>

namespace platform {

namespace {

Hook<void, NSArray *> addItemsWithTitles;

// As the original: a title that is there already moves to the end.
void newAddItemsWithTitles(id self, SEL /*selector*/, NSArray *titles) {
    NSMenu *menu = [self menu];
    NSMutableSet *present = [NSMutableSet setWithArray:[self itemTitles]];
    for (NSString *title in titles) {
        if ([present containsObject:title]) {
            [self removeItemWithTitle:title];
        }
        [present addObject:title];
        NSMenuItem *item = [[NSMenuItem alloc] initWithTitle:title action:nullptr keyEquivalent:@""];
        [item setOnStateImage:nil];
        [item setMixedStateImage:nil];
        [menu addItem:item];
        [item release];
    }
    if ([self indexOfSelectedItem] < 0 && [menu numberOfItems] > 0) {
        [self selectItemAtIndex:0];
    }
    [self synchronizeTitleAndSelectedItem];
}

} // namespace

void installPopUpButtonHook() {
    addItemsWithTitles.install([NSPopUpButton class], @selector(addItemsWithTitles:), newAddItemsWithTitles);
}

} // namespace platform
