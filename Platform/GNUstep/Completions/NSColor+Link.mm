// GNUstep has no colour for links.
#import "NSColor+Link.h"

/// Decides when it is used.
@interface QVLinkColor : NSColor
@end

@implementation QVLinkColor

- (NSColor *)currentColor {
    NSColor *background = [[NSColor textBackgroundColor] colorUsingColorSpaceName:NSCalibratedWhiteColorSpace];
    const bool dark = background != nil && [background whiteComponent] < 0.5;
    return dark ? [NSColor colorWithCalibratedRed:0.45 green:0.69 blue:1 alpha:1]
                : [NSColor colorWithCalibratedRed:0.05 green:0.35 blue:0.8 alpha:1];
}

- (void)set {
    [[self currentColor] set];
}

- (void)setFill {
    [[self currentColor] setFill];
}

- (void)setStroke {
    [[self currentColor] setStroke];
}

- (CGFloat)alphaComponent {
    return 1;
}

- (NSString *)colorSpaceName {
    return NSNamedColorSpace;
}

- (NSColor *)colorUsingColorSpaceName:(NSString *)name device:(NSDictionary *)description {
    return [[self currentColor] colorUsingColorSpaceName:name device:description];
}

- (NSString *)catalogNameComponent {
    return @"System";
}

- (NSString *)colorNameComponent {
    return @"linkColor";
}

- (id)copyWithZone:(NSZone *)zone {
    return [self retain];
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:[QVLinkColor class]];
}

- (NSUInteger)hash {
    return [[self class] hash];
}

@end

@implementation NSColor (Link)

+ (NSColor *)linkColor {
    static NSColor *color = [[QVLinkColor alloc] init];
    return color;
}

@end
