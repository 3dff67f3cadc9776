// Placeholders of text fields: AppKit has no colour of its own for them.
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

} // namespace

void flattheme::installFieldHooks() {
    drawnStringHook.install([NSTextFieldCell class], sel_registerName("_drawAttributedString"), drawnString);
}
