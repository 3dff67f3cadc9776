#pragma once

#import <AppKit/AppKit.h>

@interface NSLayoutConstraint (Constant)
/// Changes the constant of the constraint and applies it.
- (void)setConstant:(CGFloat)constant;
@end
