// GNUstep leaves the views of an interface file with an alpha value of zero, which shows as soon as alpha is drawn, and
// fills the whole frame of a pop-up button where AppKit leaves three points at both sides. The labels of such a file
// can be edited, though it does not say so.
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

Hook<id, NSCoder *> initTextFieldCellWithCoder;

id newInitTextFieldCellWithCoder(id self, SEL selector, NSCoder *coder) {
    NSTextFieldCell *cell = initTextFieldCellWithCoder.original(self, selector, coder);
    // The decoder answers that every field is editable; a field without a border is a label.
    if ([NSStringFromClass([coder class]) hasPrefix:@"GSXib"] && ![cell isBezeled] && ![cell isBordered]) {
        [cell setEditable:NO];
        [cell setSelectable:NO];
    }
    return cell;
}

} // namespace

void installViewDecodingHook() {
    initTextFieldCellWithCoder.install([NSTextFieldCell class], @selector(initWithCoder:),
                                       newInitTextFieldCellWithCoder);
    initWithCoder.install([NSView class], @selector(initWithCoder:), newInitWithCoder);
}

} // namespace platform
