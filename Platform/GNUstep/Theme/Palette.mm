#import "Palette.h"

#include <utility>

namespace flattheme {

namespace {

constexpr Palette lightPalette{
    .window = 0xf3f3f4,
    .bar = 0xe9eaec,
    .control = 0xffffff,
    .pressedControl = 0xdfe2e7,
    .border = 0xc0c3c9,
    .field = 0xffffff,
    .text = 0x1d1e20,
    .secondaryText = 0x5f6268,
    .disabledText = 0x7d8087,
    .accent = 0x2f6fde,
    .pressedAccent = 0x2459b8,
    .accentText = 0xffffff,
    .accentLine = 0x2f6fde,
    .selectedText = 0xb9d3f8,
    .selectedRow = 0xcfe0fa,
    .inactiveSelection = 0xdcdfe4,
    .alternateRow = 0xf6f7f9,
    .grid = 0xe2e4e8,
    .menu = 0xffffff,
    .menuSeparator = 0xdfe1e5,
    .track = 0xc9ccd2,
    .scrollerKnob = 0xb4b7bd,
    .scrollerKnobPressed = 0x8b8e95,
    .sliderKnob = 0xffffff,
    .toolTip = 0xfffbe6,
    .link = 0x1d5fd0,
};

constexpr Palette darkPalette{
    .window = 0x2b2c2f,
    .bar = 0x333438,
    .control = 0x3c3e43,
    .pressedControl = 0x4f525a,
    .border = 0x565960,
    .field = 0x1f2023,
    .text = 0xe6e7ea,
    .secondaryText = 0xb0b3bb,
    .disabledText = 0x8f929a,
    .accent = 0x2f6fde,
    .pressedAccent = 0x2459b8,
    .accentText = 0xffffff,
    .accentLine = 0x5b97f7,
    .selectedText = 0x2f4f86,
    .selectedRow = 0x2f4f86,
    .inactiveSelection = 0x44474e,
    .alternateRow = 0x26272a,
    .grid = 0x3a3c41,
    .menu = 0x35363a,
    .menuSeparator = 0x4a4c52,
    .track = 0x55585f,
    .scrollerKnob = 0x5d6067,
    .scrollerKnobPressed = 0x82858d,
    .sliderKnob = 0xd8d9dc,
    .toolTip = 0x44464c,
    .link = 0x7db1ff,
};

const Palette *&inUse() {
    static const Palette *current = &lightPalette;
    return current;
}

} // namespace

const Palette &palette() {
    return *inUse();
}

void setDarkPalette(bool dark) {
    inUse() = dark ? &darkPalette : &lightPalette;
}

NSColor *colour(unsigned rgb) {
    const auto channel = [rgb](unsigned shift) { return ((rgb >> shift) & 255U) / 255.0; };
    return [NSColor colorWithCalibratedRed:channel(16) green:channel(8) blue:channel(0) alpha:1];
}

NSColorList *systemColours() {
    const Palette &p = palette();
    const std::pair<NSString *, unsigned> entries[] = {
        {@"windowBackgroundColor", p.window},
        {@"controlBackgroundColor", p.field},
        {@"controlColor", p.control},
        {@"controlTextColor", p.text},
        {@"disabledControlTextColor", p.disabledText},
        {@"textColor", p.text},
        {@"textBackgroundColor", p.field},
        {@"labelColor", p.text},
        {@"secondaryLabelColor", p.secondaryText},
        {@"tertiaryLabelColor", p.disabledText},
        {@"quaternaryLabelColor", p.disabledText},
        {@"selectedControlColor", p.selectedRow},
        {@"selectedControlTextColor", p.text},
        {@"selectedTextBackgroundColor", p.selectedText},
        {@"selectedTextColor", p.text},
        {@"alternateSelectedControlColor", p.accent},
        {@"alternateSelectedControlTextColor", p.accentText},
        {@"secondarySelectedControlColor", p.inactiveSelection},
        {@"selectedMenuItemColor", p.accent},
        {@"selectedMenuItemTextColor", p.accentText},
        {@"gridColor", p.grid},
        {@"headerColor", p.bar},
        {@"headerTextColor", p.text},
        {@"controlShadowColor", p.border},
        {@"controlDarkShadowColor", p.border},
        {@"controlHighlightColor", p.control},
        {@"controlLightHighlightColor", p.control},
        {@"scrollBarColor", p.field},
        {@"knobColor", p.scrollerKnob},
        {@"selectedKnobColor", p.scrollerKnobPressed},
        {@"keyboardFocusIndicatorColor", p.accentLine},
        {@"windowFrameColor", p.border},
        {@"windowFrameTextColor", p.text},
        {@"shadowColor", p.border},
        {@"highlightColor", p.control},
        {@"rowBackgroundColor", p.field},
        {@"alternateRowBackgroundColor", p.alternateRow},
        {@"toolTipColor", p.toolTip},
        {@"toolTipTextColor", p.text},
        {@"linkColor", p.link},
    };
    NSColorList *list = [[[NSColorList alloc] initWithName:@"System"] autorelease];
    for (const auto &[name, rgb] : entries) {
        [list setColor:colour(rgb) forKey:name];
    }
    return list;
}

} // namespace flattheme
