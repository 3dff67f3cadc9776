// GNUstep's AppKit before 0.30 has no NSToolbarDelegate protocol, only an informal one. Plain Objective-C and usable on
// its own, because the bundle's public header needs it.
#pragma once

#import <AppKit/AppKit.h>

#ifndef __APPLE__
#import <GNUstepGUI/GSVersion.h>
#if GNUSTEP_GUI_MAJOR_VERSION == 0 && GNUSTEP_GUI_MINOR_VERSION < 30
/// Apple's protocol of this name; all methods are optional.
@protocol NSToolbarDelegate <NSObject>
@optional
- (NSToolbarItem *)toolbar:(NSToolbar *)toolbar
        itemForItemIdentifier:(NSString *)itemIdentifier
    willBeInsertedIntoToolbar:(BOOL)flag;
- (NSArray *)toolbarDefaultItemIdentifiers:(NSToolbar *)toolbar;
- (NSArray *)toolbarAllowedItemIdentifiers:(NSToolbar *)toolbar;
- (NSArray *)toolbarSelectableItemIdentifiers:(NSToolbar *)toolbar;
- (void)toolbarWillAddItem:(NSNotification *)notification;
- (void)toolbarDidRemoveItem:(NSNotification *)notification;
@end
#endif
#endif
