#pragma once

#import <AppKit/AppKit.h>

@interface NSColor (QVAccent)
/// The colour that marks what is selected or in use: the theme's colour of selected controls.
+ (NSColor *)controlAccentColor;
@end
