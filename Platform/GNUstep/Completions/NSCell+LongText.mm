// GNUstep's cells lay all of a text out before they draw the part that fits: a title of a megabyte takes a second.
#import "Hooks.h"

#import <AppKit/AppKit.h>

namespace platform {

namespace {

// More characters than any cell shows.
constexpr NSUInteger longest = 10'000;

Hook<void, NSAttributedString *, NSRect> drawAttributedText;
Hook<void, NSString *, NSRect> drawText;
Hook<NSSize, NSString *> sizeOfText;

// The first part of a long text, without half a character at its end.
NSString *shortened(NSString *text) {
    if ([text length] <= longest) {
        return text;
    }
    return [text substringToIndex:[text rangeOfComposedCharacterSequenceAtIndex:longest].location];
}

void newDrawAttributedText(id self, SEL selector, NSAttributedString *text, NSRect frame) {
    if ([text length] > longest) {
        text = [text attributedSubstringFromRange:NSMakeRange(0, [shortened([text string]) length])];
    }
    drawAttributedText.original(self, selector, text, frame);
}

void newDrawText(id self, SEL selector, NSString *text, NSRect frame) {
    drawText.original(self, selector, shortened(text), frame);
}

NSSize newSizeOfText(id self, SEL selector, NSString *text) {
    return sizeOfText.original(self, selector, shortened(text));
}

} // namespace

void installLongTextHook() {
    drawAttributedText.install([NSCell class], sel_registerName("_drawAttributedText:inFrame:"), newDrawAttributedText);
    drawText.install([NSCell class], sel_registerName("_drawText:inFrame:"), newDrawText);
    sizeOfText.install([NSCell class], sel_registerName("_sizeText:"), newSizeOfText);
}

} // namespace platform
