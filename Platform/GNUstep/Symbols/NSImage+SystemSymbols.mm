// GNUstep 0.29 lacks system symbols. Here they are masks made from an icon package when this library is built.
#import "NSImage+SystemSymbols.h"

#import "SymbolImageRep.h"

#include <dlfcn.h>

#include <string>

namespace {

constexpr NSSize symbolSize = {20, 20};

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

// Both masks of a symbol, or nil: an array, since menus and toolbars ask for the same symbols again and again.
NSArray *masks(NSString *name) {
    static NSMutableDictionary *cache = [[NSMutableDictionary alloc] init];
    NSArray *known = [cache objectForKey:name];
    if (known == nil && [name rangeOfString:@"/"].location == NSNotFound) {
        NSBitmapImageRep *one = mask([name stringByAppendingString:@".png"]);
        NSBitmapImageRep *two = mask([name stringByAppendingString:@"@2x.png"]);
        if (one != nil && two != nil) {
            known = [NSArray arrayWithObjects:one, two, nil];
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
