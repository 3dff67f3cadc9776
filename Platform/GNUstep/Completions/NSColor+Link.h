// GNUstep has no colour for links.
#pragma once

#import <AppKit/AppKit.h>

@interface NSColor (Link)
/// The colour of links in text: a blue that is readable on the theme's background for text, also when that changes.
+ (NSColor *)linkColor;
@end
