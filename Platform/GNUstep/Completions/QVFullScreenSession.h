// One view in full screen: the window that covers the display, and all that is to be put back afterwards.
#pragma once

#import <AppKit/AppKit.h>

#include <string>

@interface QVFullScreenSession : NSObject {
@private
    NSView *_view;
    NSView *_placeholder;
    NSWindow *_home;
    NSWindow *_window;
    NSResponder *_firstResponder;
    NSUInteger _autoresizingMask;
    BOOL _isContent;
    BOOL _homeWasKey;
    BOOL _ended;
    std::string _displayName;
    NSRect _target;
    NSUInteger _round;
}

/// The running session of `view`, or nil. Not owned.
+ (QVFullScreenSession *)sessionOfView:(NSView *)view;

/// Moves `view` into a window over `screen` and keeps the session until it ends. The application has `options`, its
/// presentation options as a number, until the last session ends; nil leaves them alone.
+ (void)beginWithView:(NSView *)view screen:(NSScreen *)screen presentationOptions:(NSNumber *)options;

/// Puts everything back and gives the session up.
- (void)end;

@end
