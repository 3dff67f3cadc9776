#pragma once

#import <AppKit/AppKit.h>

@interface NSToolbarItem (QVBordered)
/// Whether an item that shows its image looks like a button. NO unless set. An item with a view of its own looks as its
/// view does.
@property (getter=isBordered) BOOL bordered;
@end
