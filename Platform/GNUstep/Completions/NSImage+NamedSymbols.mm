// GNUstep looks for the images of an interface file in the main bundle only: it knows no catalogue of system symbols.
#import "Hooks.h"
#import "NSImage+SystemSymbols.h"

namespace platform {

namespace {

Hook<id, NSString *> imageNamed;

id newImageNamed(id self, SEL selector, NSString *name) {
    NSImage *image = imageNamed.original(self, selector, name);
    if (image == nil) {
        image = [NSImage imageWithSystemSymbolName:name accessibilityDescription:nil];
        [image setName:name];
    }
    return image;
}

} // namespace

void installNamedSymbolsHook() {
    imageNamed.installOnClass([NSImage class], @selector(imageNamed:), newImageNamed);
}

} // namespace platform
