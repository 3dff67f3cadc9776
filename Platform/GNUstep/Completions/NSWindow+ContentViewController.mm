// GNUstep's windows do not know the controller of their content view.
#import "NSWindow+ContentViewController.h"

#import "Hooks.h"
#import "NSViewController+Loading.h"
#import "Retained.h"

#include <memory>
#include <unordered_map>

namespace {

using Controllers = std::unordered_map<NSWindow *, platform::Retained>;

// Never destroyed: windows are deallocated after static objects are.
Controllers &controllers() {
    static auto *const shared = std::make_unique<Controllers>().release();
    return *shared;
}

} // namespace

@implementation NSWindow (ContentViewController)

- (NSViewController *)contentViewController {
    const auto found = controllers().find(self);
    return found != controllers().end() ? found->second.get() : nil;
}

- (void)setContentViewController:(NSViewController *)controller {
    // The earlier one may own what is looked at here: it goes last.
    const platform::Retained earlier([self contentViewController]);
    if (controller == nil) {
        controllers().erase(self);
        return;
    }
    controllers().insert_or_assign(self, platform::Retained(controller));
    // In a nib the controller may get its view only later; it is the window's content view then by the nib's own word.
    const bool hasView = [controller isViewLoaded] || [controller nibName] != nil;
    if (hasView && [controller view] != [self contentView]) {
        [self setContentView:[controller view]];
    }
}

@end

namespace platform {

namespace {

Hook<void> deallocWindow;

void dealloc(id self, SEL command) {
    Retained controller([self contentViewController]);
    controllers().erase(self);
    deallocWindow.original(self, command);
}

} // namespace

void installContentViewControllers();

void installContentViewControllers() {
    deallocWindow.install([NSWindow class], @selector(dealloc), &dealloc);
}

} // namespace platform
