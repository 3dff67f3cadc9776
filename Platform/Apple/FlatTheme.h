// The flat theme's place on macOS, whose own look needs no help: the same functions, which do nothing.
#pragma once

#import <AppKit/AppKit.h>

namespace flattheme {

enum class Look { light, dark, automatic };

inline void registerDefaults() {}
inline void install() {}
inline void setLook(Look) {}
inline Look currentLook() {
    return Look::automatic;
}
inline bool isDark() {
    NSString *match = [[NSApp effectiveAppearance]
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
    return [match isEqualToString:NSAppearanceNameDarkAqua];
}
inline void setShowsMenuBar(NSWindow *, bool) {}

} // namespace flattheme
