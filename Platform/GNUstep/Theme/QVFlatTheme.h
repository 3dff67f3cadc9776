// The theme object. Each element's drawing is a category in a file of its own.
#pragma once

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSTheme.h>

/// A theme without a bundle: it draws everything itself, in the colours of the palette in use when it was made. A
/// change of look makes a new one, which is what makes AppKit read its cached colours and images again.
@interface QVFlatTheme : GSTheme {
    NSColorList *_colours;
}

/// The name every instance has, for the user default that names the theme.
+ (NSString *)flatThemeName;
@end
