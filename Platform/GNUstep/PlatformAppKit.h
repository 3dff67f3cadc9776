// Declares what the completions add to GNUstep's AppKit, under Apple's own names: one import per completed class.
#pragma once

#import "Animator.h"
#import "CAMediaTimingFunction.h"
#import "NSAnimationContext+Groups.h"
#import "NSLayoutConstraint+Constant.h"
#import "NSScreen+LocalizedName.h"
#import "NSView+FullScreen.h"
#import "NSView+TrackingAreas.h"
#import "NSViewController+Appearance.h"
#import "NSWindow+FullScreen.h"
