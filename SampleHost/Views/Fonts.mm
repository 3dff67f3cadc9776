#import "Fonts.h"

namespace samplehost {

namespace {

/// PostScript names, in the order of preference.
NSArray<NSArray<NSString *> *> *cutsOf(Family family) {
    switch (family) {
    case Family::sans:
        return @[
            @[ @"HelveticaNeue", @"HelveticaNeue-Bold", @"HelveticaNeue-Italic", @"HelveticaNeue-BoldItalic" ],
            @[ @"DejaVuSans", @"DejaVuSans-Bold", @"DejaVuSans-Oblique", @"DejaVuSans-BoldOblique" ]
        ];
    case Family::serif:
        return @[
            @[ @"Georgia", @"Georgia-Bold", @"Georgia-Italic", @"Georgia-BoldItalic" ],
            @[ @"DejaVuSerif", @"DejaVuSerif-Bold", @"DejaVuSerif-Italic", @"DejaVuSerif-BoldItalic" ]
        ];
    case Family::mono:
        break;
    }
    return @[
        @[ @"Menlo-Regular", @"Menlo-Bold", @"Menlo-Italic", @"Menlo-BoldItalic" ],
        @[ @"DejaVuSansMono", @"DejaVuSansMono-Bold", @"DejaVuSansMono-Oblique", @"DejaVuSansMono-BoldOblique" ]
    ];
}

NSFont *slanted(NSString *name, double size) {
    const CGFloat matrix[6] = {size, 0, size * 0.2, size, 0, 0};
    return [NSFont fontWithName:name matrix:matrix];
}

} // namespace

NSFont *fontOf(Family family, double size, bool bold, bool italic) {
    for (NSArray<NSString *> *cuts in cutsOf(family)) {
        NSString *upright = [cuts objectAtIndex:bold ? 1 : 0];
        if ([NSFont fontWithName:upright size:size] == nil) {
            continue;
        }
        NSFont *font = italic ? [NSFont fontWithName:[cuts objectAtIndex:bold ? 3 : 2] size:size] : nil;
        if (font == nil && italic) {
            font = slanted(upright, size);
        }
        return font != nil ? font : [NSFont fontWithName:upright size:size];
    }
    if (family == Family::mono) {
        return [NSFont userFixedPitchFontOfSize:size];
    }
    return bold ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size];
}

NSFont *editorFont(NSString *name, double size) {
    NSFont *font = [name length] > 0 ? [NSFont fontWithName:name size:size] : nil;
    return font != nil ? font : fontOf(Family::mono, size, false, false);
}

} // namespace samplehost
