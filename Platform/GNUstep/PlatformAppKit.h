// Declares what the completions add to GNUstep's AppKit, under Apple's own names: one import per completed class.
#pragma once

#import "Animator.h"
#import "CAMediaTimingFunction.h"
#import "NSAnimationContext+Groups.h"
#import "NSLayoutConstraint+Constant.h"
#import "NSViewController+Appearance.h"
