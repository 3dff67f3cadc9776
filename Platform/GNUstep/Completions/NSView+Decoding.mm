// GNUstep leaves the views of an interface file with an alpha value of zero, which shows as soon as alpha is drawn, and
// fills the whole frame of a pop-up button where AppKit leaves three points at both sides.
#import "Hooks.h"

#import <AppKit/AppKit.h>

namespace platform {

namespace {

Hook<id, NSCoder *> initWithCoder;

id newInitWithCoder(id self, SEL selector, NSCoder *coder) {
    NSView *view = initWithCoder.original(self, selector, coder);
    if ([view alphaValue] == 0 && !([coder allowsKeyedCoding] && [coder containsValueForKey:@"alphaValue"])) {
        [view setAlphaValue:1];
    }
    if ([view isKindOfClass:[NSPopUpButton class]]) {
        [view setFrame:NSInsetRect([view frame], 3, 0)];
    }
    return view;
}

} // namespace

void installViewDecodingHook() {
    initWithCoder.install([NSView class], @selector(initWithCoder:), newInitWithCoder);
}

} // namespace platform
