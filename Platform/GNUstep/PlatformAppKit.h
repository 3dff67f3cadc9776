// Declares what the completions add to GNUstep's AppKit, under Apple's own names: one import for each header, in
// alphabetical order.
#pragma once

#import "Animator.h"
#import "CAMediaTimingFunction.h"
#import "ModernNames.h"
#import "NSAnimationContext+Groups.h"
#import "NSAppearance+Windows.h"
#import "NSButton+Factories.h"
#import "NSColor+Accent.h"
#import "NSFontManager+Target.h"
#import "NSImage+SystemSymbols.h"
#import "NSLayoutConstraint+Constant.h"
#import "NSMenu+PopUp.h"
#import "NSScreen+LocalizedName.h"
#import "NSSearchToolbarItem.h"
#import "NSToolbarItem+Bordered.h"
#import "NSView+FullScreen.h"
#import "NSView+TrackingAreas.h"
#import "NSViewController+Appearance.h"
#import "NSWindow+FullScreen.h"
#import "NSWindow+RepresentedURL.h"
#import "NSWindow+TabOverview.h"
