#pragma once

#import <AppKit/AppKit.h>

@interface NSImage (QVSystemSymbols)
/// The system symbol of that name as an image of 20 by 20 points, drawn in the text colour of controls at the time of
/// drawing; nil for an unknown name. The image's own description for assistive programs is `description`, which may be
/// nil. A new image each time, not retained for the caller.
+ (NSImage *)imageWithSystemSymbolName:(NSString *)name accessibilityDescription:(NSString *)description;

/// What assistive programs say instead of showing the image; nil unless it was given one. Only symbols have it.
@property (copy) NSString *accessibilityDescription;
@end
