// GNUstep 0.29 lacks the font manager's target: its action always goes to the first responder.
#import "NSFontManager+Target.h"

#import "Hooks.h"
#import "WeakReference.h"

namespace platform {

namespace {

// There is one font manager in a process. The target is not retained, so it may die first.
WeakReference &targetReference() {
    [[clang::no_destroy]] static WeakReference reference;
    return reference;
}

Hook<BOOL> sendAction;

BOOL sendActionToTarget(id self, SEL selector) {
    id target = [targetReference().loadRetained() autorelease];
    const SEL action = [static_cast<NSFontManager *>(self) action];
    if (target != nil && action != nullptr) {
        return [NSApp sendAction:action to:target from:self];
    }
    return sendAction.original(self, selector);
}

} // namespace

void installFontManagerTargetHook() {
    sendAction.install([NSFontManager class], @selector(sendAction), sendActionToTarget);
}

} // namespace platform

@implementation NSFontManager (QVTarget)

- (id)target {
    return [platform::targetReference().loadRetained() autorelease];
}

- (void)setTarget:(id)target {
    platform::targetReference() = platform::WeakReference(target);
}

@end
