// GNUstep 0.29 lacks system symbols. Here they are masks made from an icon package when this library is built.
#import "NSImage+SystemSymbols.h"

#import "Hooks.h"
#import "SymbolImageRep.h"

#include <dlfcn.h>

#include <string>

namespace {

constexpr NSSize symbolSize = {20, 20};
// Beside the text of a menu item: smaller, with some room at both sides.
constexpr NSSize sizeInMenus = {22, 16};

// The masks lie beside this library, wherever that is.
NSString *symbolsFolder() {
    static NSString *folder = [] {
        Dl_info info = {};
        dladdr(reinterpret_cast<const void *>(&symbolsFolder), &info);
        NSString *library = [NSString stringWithUTF8String:info.dli_fname != nullptr ? info.dli_fname : ""];
        return [[[[library stringByStandardizingPath] stringByDeletingLastPathComponent]
            stringByAppendingPathComponent:@"Symbols"] retain];
    }();
    return folder;
}

NSBitmapImageRep *mask(NSString *fileName) {
    NSString *path = [symbolsFolder() stringByAppendingPathComponent:fileName];
    return static_cast<NSBitmapImageRep *>([NSBitmapImageRep imageRepWithContentsOfFile:path]);
}

// The masks of a symbol, or nil: an array, since menus and toolbars ask for the same symbols again and again.
NSArray *masks(NSString *name) {
    static NSMutableDictionary *cache = [[NSMutableDictionary alloc] init];
    NSArray *known = [cache objectForKey:name];
    if (known == nil && [name rangeOfString:@"/"].location == NSNotFound) {
        NSMutableArray *found = [NSMutableArray array];
        for (NSString *side in @[ @"16", @"20", @"40" ]) {
            if (NSBitmapImageRep *one = mask([NSString stringWithFormat:@"%@-%@.png", name, side])) {
                [found addObject:one];
            }
        }
        if ([found count] == symbolMasks) {
            known = [NSArray arrayWithArray:found]; // not to be copied by each image
            [cache setObject:known forKey:name];
        }
    }
    return known;
}

} // namespace

// An image that toolbars leave as large as it is.
@interface QVSymbolImage : NSImage {
    NSString *_accessibilityDescription;
}
@end

@implementation QVSymbolImage

- (id)copyWithZone:(NSZone *)zone {
    QVSymbolImage *copy = [super copyWithZone:zone];
    copy->_accessibilityDescription = [_accessibilityDescription copy];
    return copy;
}

- (void)dealloc {
    [_accessibilityDescription release];
    [super dealloc];
}

// A toolbar blows the images of its items up to one of these two sizes.
- (void)setSize:(NSSize)size {
    const bool isToolbarSize = size.width == size.height && (size.width == 32 || size.width == 24);
    if (!isToolbarSize) {
        [super setSize:size];
    }
}

- (NSString *)accessibilityDescription {
    return _accessibilityDescription;
}

- (void)setAccessibilityDescription:(NSString *)description {
    NSString *copy = [description copy];
    [_accessibilityDescription release];
    _accessibilityDescription = copy;
}

@end

namespace platform {

namespace {

Hook<void, NSImage *> setItemImage;

void setSymbolOfMenuSize(id self, SEL selector, NSImage *image) {
    if ([image isKindOfClass:[QVSymbolImage class]] && NSEqualSizes([image size], symbolSize)) {
        image = [[image copy] autorelease];
        [image setSize:sizeInMenus];
    }
    setItemImage.original(self, selector, image);
}

Hook<void, NSRect, NSView *> drawItemImage;

// The chosen item's symbol has the colour of its title.
void drawItemSymbol(id self, SEL selector, NSRect frame, NSView *view) {
    [QVSymbolImageRep setColour:[self isHighlighted] ? [NSColor selectedMenuItemTextColor] : nil];
    drawItemImage.original(self, selector, frame, view);
    [QVSymbolImageRep setColour:nil];
}

} // namespace

void installSymbolsInMenus() {
    setItemImage.install([NSMenuItem class], @selector(setImage:), setSymbolOfMenuSize);
    drawItemImage.install([NSMenuItemCell class], @selector(drawImageWithFrame:inView:), drawItemSymbol);
}

} // namespace platform

@implementation NSImage (QVSystemSymbols)

+ (NSImage *)imageWithSystemSymbolName:(NSString *)name accessibilityDescription:(NSString *)description {
    NSArray *known = [name length] > 0 ? masks(name) : nil;
    if (known == nil) {
        return nil;
    }
    QVSymbolImage *image = [[[QVSymbolImage alloc] initWithSize:symbolSize] autorelease];
    [image setCacheMode:NSImageCacheNever]; // the colour may be another at the next drawing
    QVSymbolImageRep *representation = [[QVSymbolImageRep alloc] initWithMasks:known size:symbolSize];
    [image addRepresentation:representation];
    [representation release];
    [image setAccessibilityDescription:description];
    return image;
}

- (NSString *)accessibilityDescription {
    return nil;
}

- (void)setAccessibilityDescription:(NSString *)description {
}

@end
