// In GNUstep window controllers never release the objects at the top of their nib, which are loaded with a reference
// for their owner.
#import "Hooks.h"
#import "Retained.h"

#import <AppKit/AppKit.h>

#include <memory>
#include <unordered_map>

namespace platform {

namespace {

using Objects = std::unordered_map<const void *, Retained>;

// Never destroyed: controllers may be deallocated after static objects are.
Objects &objectsOfControllers() {
    static auto *const shared = std::make_unique<Objects>().release();
    return *shared;
}

Hook<BOOL, NSString *, NSDictionary *, NSZone *> loadNib;
Hook<void> deallocController;

// Asks for the list of the objects, which the controller does not.
BOOL load(id self, SEL command, NSString *name, NSDictionary *table, NSZone *zone) {
    id owner = [table objectForKey:NSNibOwner];
    if (![owner isKindOfClass:[NSWindowController class]] || [table objectForKey:NSNibTopLevelObjects] != nil) {
        return loadNib.original(self, command, name, table, zone);
    }
    NSMutableArray *objects = [NSMutableArray array];
    NSMutableDictionary *extended = [NSMutableDictionary dictionaryWithDictionary:table];
    [extended setObject:objects forKey:NSNibTopLevelObjects];
    const BOOL loaded = loadNib.original(self, command, name, extended, zone);
    objectsOfControllers().insert_or_assign(owner, Retained(objects));
    return loaded;
}

void dealloc(id self, SEL command) {
    Retained objects;
    if (const auto found = objectsOfControllers().find(self); found != objectsOfControllers().end()) {
        objects = std::move(found->second);
        objectsOfControllers().erase(found);
    }
    deallocController.original(self, command);
    for (id object in static_cast<NSArray *>(objects.get())) {
        // Windows have given theirs up when they were handed to the controller.
        if (![object isKindOfClass:[NSWindow class]]) {
            [object release];
        }
    }
}

} // namespace

void installTopLevelObjectRelease();

void installTopLevelObjectRelease() {
    loadNib.installOnClass([NSBundle class], @selector(loadNibFile:externalNameTable:withZone:), &load);
    deallocController.install([NSWindowController class], @selector(dealloc), &dealloc);
}

} // namespace platform
