// Text fields: the colour of placeholders, for which AppKit has none of its own, the ring around the one that is
// edited, combo boxes in the height they are given.
#import "ElementHooks.h"
#import "Hooks.h"
#import "Palette.h"

#import <AppKit/AppKit.h>

using namespace flattheme;

namespace {

platform::Hook<NSAttributedString *> drawnStringHook;

NSAttributedString *drawnString(id self, SEL command) {
    NSTextFieldCell *cell = self;
    NSString *placeholder = [cell placeholderString];
    if ([placeholder length] == 0 || [[cell stringValue] length] != 0) {
        return drawnStringHook.original(self, command);
    }
    NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setAlignment:[cell alignment]];
    [style setLineBreakMode:[cell lineBreakMode]];
    NSFont *font = [cell font] != nil ? [cell font] : [NSFont systemFontOfSize:0];
    NSDictionary *attributes = [NSDictionary
        dictionaryWithObjectsAndKeys:font, NSFontAttributeName, colour(palette().secondaryText),
                                     NSForegroundColorAttributeName, style, NSParagraphStyleAttributeName, nil];
    return [[[NSAttributedString alloc] initWithString:placeholder attributes:attributes] autorelease];
}

platform::Hook<void, NSNotification *> endEditingHook;
platform::Hook<BOOL> becomeFirstResponderHook;

// The ring is part of the field's border, which is not drawn again for an edit.
void endEditing(id self, SEL command, NSNotification *notification) {
    endEditingHook.original(self, command, notification);
    [(NSView *)self setNeedsDisplay:YES];
}

BOOL becomeFirstResponder(id self, SEL command) {
    const BOOL became = becomeFirstResponderHook.original(self, command);
    [(NSView *)self setNeedsDisplay:YES];
    return became;
}

platform::Hook<void, NSRect> comboFrameHook;

// AppKit gives every combo box the same height, too little for a large font. What a text field does is right.
void setComboFrame(id self, SEL command, NSRect frame) {
    using SetFrame = void (*)(id, SEL, NSRect);
    const auto setFieldFrame =
        reinterpret_cast<SetFrame>(class_getMethodImplementation([NSTextField class], @selector(setFrame:)));
    setFieldFrame(self, command, frame);
}

} // namespace

void flattheme::installFieldHooks() {
    endEditingHook.install([NSTextField class], @selector(textDidEndEditing:), endEditing);
    becomeFirstResponderHook.install([NSTextField class], @selector(becomeFirstResponder), becomeFirstResponder);
    comboFrameHook.install([NSComboBox class], @selector(setFrame:), setComboFrame);
    drawnStringHook.install([NSTextFieldCell class], sel_registerName("_drawAttributedString"), drawnString);
}
