// NSAnimationContext as AppKit has it.
#pragma once

#import <AppKit/AppKit.h>

#import "CAMediaTimingFunction.h"

@interface NSAnimationContext (Groups)

/// Whether setters called directly on a view animate as well, not only those called through its animator.
@property (nonatomic) BOOL allowsImplicitAnimation;
/// The pace of the group's animations; nil stands for "ease in, ease out".
@property (nonatomic, retain) CAMediaTimingFunction *timingFunction;

/// Runs `changes` in a group of its own.
+ (void)runAnimationGroup:(void (^)(NSAnimationContext *context))changes;

@end
