// GNUstep 0.29 has no -[NSScreen localizedName].
#import "NSScreen+LocalizedName.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include "XDisplays.h"

#include <cmath>

namespace {

NSInteger screenNumber(NSScreen *screen) {
    return [[[screen deviceDescription] objectForKey:@"NSScreenNumber"] integerValue];
}

/// How many connected screens with the same frame (mirrored displays) come before this one.
std::size_t rankAmongMirrors(NSScreen *screen) {
    std::size_t rank = 0;
    for (NSScreen *other in [NSScreen screens]) {
        if (NSEqualRects([other frame], [screen frame]) && screenNumber(other) < screenNumber(screen)) {
            ++rank;
        }
    }
    return rank;
}

// A coordinate in whole pixels; one that no X screen can have when the frame is not that of a display.
int pixels(CGFloat coordinate) {
    constexpr CGFloat reach = 1 << 20;
    return std::abs(coordinate) < reach ? static_cast<int>(coordinate) : -static_cast<int>(reach);
}

} // namespace

@implementation NSScreen (QVLocalizedName)

- (NSString *)localizedName {
    void *display = [GSCurrentServer() serverDevice];
    const NSRect frame = [self frame];
    const platform::x11::Rectangle rectangle{pixels(NSMinX(frame)),
                                             platform::x11::rootHeight(display) - pixels(NSMaxY(frame)),
                                             pixels(NSWidth(frame)), pixels(NSHeight(frame))};
    const auto outputs = platform::x11::activeOutputs(display);
    std::size_t rank = rankAmongMirrors(self);
    for (const auto &output : outputs) {
        if (output.rectangle == rectangle && rank-- == 0) {
            return [NSString stringWithUTF8String:output.name.c_str()];
        }
    }
    // The server knows of a change that AppKit has not heard of yet: screens are numbered in the order of the outputs.
    const auto number = static_cast<std::size_t>(screenNumber(self));
    return number < outputs.size() ? [NSString stringWithUTF8String:outputs[number].name.c_str()] : @"";
}

@end
