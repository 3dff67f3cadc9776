// Animator proxies: setters called through them animate.
#pragma once

#import <AppKit/AppKit.h>

@interface NSView (Animator)
/// A proxy whose setters animate numbers, points, sizes and rectangles; `setHidden:` fades and `replaceSubview:with:`
/// cross-fades. Whatever else it is sent goes to the view at once.
- (instancetype)animator;
@end

@interface NSWindow (Animator)
- (instancetype)animator;
@end

@interface NSLayoutConstraint (Animator)
- (instancetype)animator;
@end
