// GNUstep 0.29 lacks the accent colour.
#import "NSColor+Accent.h"

@implementation NSColor (QVAccent)

+ (NSColor *)controlAccentColor {
    return [NSColor alternateSelectedControlColor];
}

@end
