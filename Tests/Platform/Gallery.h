// A window with one of each control, for the tests of the theme.
#pragma once

#import <AppKit/AppKit.h>

/// Owns the window's parts as long as it lives; closes the window when it goes.
@interface Gallery : NSObject <NSTableViewDataSource> {
    NSWindow *_window;
    NSMutableDictionary *_controls;
}

/// Shows the window.
- (id)init;

- (NSWindow *)window;

/// A control by the name it has in Gallery.mm ("field", "placeholder", "popUp", "table", …).
- (id)control:(NSString *)name;

/// The names of all controls, sorted.
- (NSArray *)names;

/// The view of a toolbar item that has none of its own.
- (NSView *)toolbarButton:(NSString *)identifier;

/// The application's main menu of the gallery, installed on first use.
+ (NSMenu *)installMainMenu;

@end
