#pragma once

#import <AppKit/AppKit.h>

#if !__has_include(<AppKit/NSSearchToolbarItem.h>)

/// A toolbar item that is a search field. It comes with its field, which sends its action while the user types and on
/// Return; Escape empties it and sends the action too.
@interface NSSearchToolbarItem : NSToolbarItem {
    NSSearchField *_searchField;
    CGFloat _preferredWidthForSearchField;
    BOOL _resignsFirstResponderWithCancel;
}
/// The field, never nil. Target and action of the item are those of the field.
@property (nonatomic, strong) NSSearchField *searchField;
/// In points; 180 unless set.
@property (nonatomic) CGFloat preferredWidthForSearchField;
/// Whether Escape also takes the keyboard focus away from the field. YES unless set.
@property (nonatomic) BOOL resignsFirstResponderWithCancel;
/// Gives the field the keyboard focus, or takes it away.
- (void)beginSearchInteraction;
- (void)endSearchInteraction;
@end

#endif
