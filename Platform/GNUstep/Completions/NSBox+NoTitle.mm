// GNUstep gives the content of a box without a title no size.
#import "Hooks.h"

#import <AppKit/AppKit.h>

#include <cstddef>

namespace platform {

namespace {

Hook<NSRect, BOOL> calculateSizes;

// Gives the content's frame and remembers the border's.
NSRect newCalculateSizes(id self, SEL selector, BOOL allowNegative) {
    const NSRect frame = calculateSizes.original(self, selector, allowNegative);
    if ([self titlePosition] != NSNoTitle || !NSIsEmptyRect(frame)) {
        return frame;
    }
    static const Ivar border = class_getInstanceVariable([NSBox class], "_border_rect");
    if (border != nullptr) {
        *reinterpret_cast<NSRect *>(reinterpret_cast<std::byte *>(self) + ivar_getOffset(border)) = [self bounds];
    }
    const CGFloat line = [self borderType] == NSNoBorder ? 0 : 1;
    const NSSize margins = [self contentViewMargins];
    return NSInsetRect([self bounds], margins.width + line, margins.height + line);
}

} // namespace

void installBoxHook() {
    calculateSizes.install([NSBox class], sel_registerName("calcSizesAllowingNegative:"), newCalculateSizes);
}

} // namespace platform
