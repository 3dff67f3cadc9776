// The colours of the look that is in use.
#pragma once

#import <AppKit/AppKit.h>

namespace flattheme {

/// One value for each role a colour plays, as 0xRRGGBB. Text on its background reads at 4.5:1 or more, disabled text at
/// 3:1 or more.
struct Palette {
    unsigned window;
    unsigned bar;
    unsigned control;
    unsigned pressedControl;
    unsigned border;
    unsigned field;
    unsigned text;
    unsigned secondaryText;
    unsigned disabledText;
    unsigned accent;
    unsigned pressedAccent;
    unsigned accentText;
    unsigned accentLine;
    unsigned selectedText;
    unsigned selectedRow;
    unsigned inactiveSelection;
    unsigned alternateRow;
    unsigned grid;
    unsigned menu;
    unsigned menuSeparator;
    unsigned track;
    unsigned scrollerKnob;
    unsigned scrollerKnobPressed;
    unsigned sliderKnob;
    unsigned toolTip;
    unsigned link;
};

/// The palette in use.
const Palette& palette();

/// Uses the dark palette from now on, or the light one.
void setDarkPalette(bool dark);

/// A palette's value as a colour.
NSColor* colour(unsigned rgb);

/// The system colours (those of NSColor's class methods) in the palette in use, autoreleased.
NSColorList* systemColours();

} // namespace flattheme
