// The window controller of the startup tutorial.
#pragma once

#import "Platform.h"

/// Made with the window nib "StartupTutorialMacOS", which holds the window and its view controller. It has no behaviour
/// of its own; releasing it leaves an open tutorial alone.
@interface StartupTutorialWindowController : NSWindowController
@end
