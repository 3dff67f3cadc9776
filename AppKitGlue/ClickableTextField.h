// A caption that acts when it is clicked.
#pragma once

#import "Platform.h"

/// A label that sends its action when the mouse button goes up over it.
@interface ClickableTextField : NSTextField
@end
