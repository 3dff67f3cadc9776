// Placeholders of text fields: AppKit has no colour of its own for them.
#import "Hooks.h"
#import "Palette.h"

#import <AppKit/AppKit.h>

using namespace flattheme;

namespace {

using DrawnString = NSAttributedString *(*)(id, SEL);
DrawnString originalDrawnString;

NSAttributedString *drawnString(id self, SEL command) {
    NSTextFieldCell *cell = self;
    NSString *placeholder = [cell placeholderString];
    if ([placeholder length] == 0 || [[cell stringValue] length] != 0) {
        return originalDrawnString(self, command);
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
    originalDrawnString =
        replaceMethod<DrawnString>("NSTextFieldCell", sel_registerName("_drawAttributedString"), drawnString);
}
