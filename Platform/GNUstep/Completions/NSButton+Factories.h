#pragma once

#import <AppKit/AppKit.h>

@interface NSButton (QVFactories)
/// A push button with the system font, sized to its title. `target` and `action` may be nil. Not retained for the
/// caller.
+ (instancetype)buttonWithTitle:(NSString *)title target:(id)target action:(SEL)action;

/// A push button that shows only the image, sized to it. `target` and `action` may be nil. Not retained for the caller.
+ (instancetype)buttonWithImage:(NSImage *)image target:(id)target action:(SEL)action;
@end
