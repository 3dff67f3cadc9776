// GNUstep 0.29 moves the hidden windows that hold cached images when the displays change, which empties them: check
// boxes, icons and drawn images vanish.
#import "Hooks.h"

#import <AppKit/AppKit.h>

namespace platform {

void installCachedImagesOnDisplayChange();

namespace {

Hook<void, NSNotification *> screensChanged;

void screensChangedUnlessCache(id self, SEL selector, NSNotification *notification) {
    static const Class cacheWindow = NSClassFromString(@"GSCacheW");
    if (cacheWindow == Nil || ![self isKindOfClass:cacheWindow]) {
        screensChanged.original(self, selector, notification);
    }
}

} // namespace

void installCachedImagesOnDisplayChange() {
    screensChanged.install([NSWindow class], @selector(applicationDidChangeScreenParameters:),
                           screensChangedUnlessCache);
}

} // namespace platform
