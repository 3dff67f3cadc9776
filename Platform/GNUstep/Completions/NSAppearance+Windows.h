#pragma once

#import <AppKit/AppKit.h>

/// Posted with the window as its object after its `appearance` was set to another one: what draws with the appearance
/// of a window (a theme) follows it.
extern NSString *const QVWindowAppearanceDidChangeNotification;

@interface NSWindow (QVAppearance)
/// The appearance given to this window, or nil when it follows the application's.
@property (strong) NSAppearance *appearance;
/// The appearance that the window shows: its own or the application's. Never nil.
@property (readonly) NSAppearance *effectiveAppearance;
@end

@interface NSApplication (QVAppearance)
/// The appearance of windows without one of their own; nil means that of the system.
@property (strong) NSAppearance *appearance;
/// The application's appearance or the light one. Never nil.
@property (readonly) NSAppearance *effectiveAppearance;
@end
