// GNUstep 0.29 lacks search fields as toolbar items.
#import "NSSearchToolbarItem.h"

#import "NSTextField+Placeholder.h"

#import <objc/runtime.h>

@interface NSSearchToolbarItem (QVCancelling)
- (void)applyWidth;
- (void)searchFieldDidCancel;
@end

@interface NSTextField (QVDeclaration)
- (BOOL)textView:(NSTextView *)textView doCommandBySelector:(SEL)command;
@end

// Escape empties the field, as search fields do elsewhere.
@interface QVToolbarSearchField : NSSearchField {
    NSSearchToolbarItem *_item; // not retained: it owns the field
}
- (void)setItem:(NSSearchToolbarItem *)item;
@end

@implementation QVToolbarSearchField

- (void)setItem:(NSSearchToolbarItem *)item {
    _item = item;
}

- (BOOL)textView:(NSTextView *)textView doCommandBySelector:(SEL)command {
    // GNUstep binds Escape to completion, of which search fields have none.
    if (!sel_isEqual(command, @selector(cancelOperation:)) && !sel_isEqual(command, @selector(complete:))) {
        return [super textView:textView doCommandBySelector:command];
    }
    if ([[textView string] length] > 0) {
        [textView setString:@""];
        [self setStringValue:@""];
        [self sendAction:[self action] to:[self target]];
    }
    [_item searchFieldDidCancel];
    return YES;
}

@end

@implementation NSSearchToolbarItem

@synthesize preferredWidthForSearchField = _preferredWidthForSearchField;
@synthesize resignsFirstResponderWithCancel = _resignsFirstResponderWithCancel;

- (id)initWithItemIdentifier:(NSString *)identifier {
    if ((self = [super initWithItemIdentifier:identifier]) != nil) {
        _resignsFirstResponderWithCancel = YES;
        _preferredWidthForSearchField = 180;
        QVToolbarSearchField *field = [[QVToolbarSearchField alloc] initWithFrame:NSMakeRect(0, 0, 180, 24)];
        [field setPlaceholderString:@"Search"];
        [self setSearchField:field];
        [field release];
    }
    return self;
}

- (void)dealloc {
    if ([_searchField isKindOfClass:[QVToolbarSearchField class]]) {
        [static_cast<QVToolbarSearchField *>(_searchField) setItem:nil];
    }
    [_searchField release];
    [super dealloc];
}

- (NSSearchField *)searchField {
    return _searchField;
}

- (void)setSearchField:(NSSearchField *)field {
    [field retain];
    [_searchField release];
    _searchField = field;
    if ([field isKindOfClass:[QVToolbarSearchField class]]) {
        [static_cast<QVToolbarSearchField *>(field) setItem:self];
    }
    [self setView:field];
    [self applyWidth];
}

- (void)applyWidth {
    const CGFloat height = NSHeight([_searchField frame]);
    [self setMinSize:NSMakeSize(80, height)];
    [self setMaxSize:NSMakeSize(_preferredWidthForSearchField, height)];
}

- (void)setPreferredWidthForSearchField:(CGFloat)width {
    _preferredWidthForSearchField = width;
    [_searchField setFrameSize:NSMakeSize(width, NSHeight([_searchField frame]))];
    [self applyWidth];
}

- (id)target {
    return [_searchField target];
}

- (void)setTarget:(id)target {
    [_searchField setTarget:target];
}

- (SEL)action {
    return [_searchField action];
}

- (void)setAction:(SEL)action {
    [_searchField setAction:action];
}

- (void)setEnabled:(BOOL)enabled {
    [_searchField setEnabled:enabled];
}

- (BOOL)isEnabled {
    return [_searchField isEnabled];
}

- (void)beginSearchInteraction {
    [[_searchField window] makeFirstResponder:_searchField];
}

- (void)endSearchInteraction {
    if ([_searchField currentEditor] != nil) {
        [[_searchField window] makeFirstResponder:nil];
    }
}

- (void)searchFieldDidCancel {
    if (_resignsFirstResponderWithCancel) {
        [self endSearchInteraction];
    }
}

// The customisation palette shows copies; each needs a field of its own.
- (id)copyWithZone:(NSZone *)zone {
    NSSearchToolbarItem *copy = [[[self class] allocWithZone:zone] initWithItemIdentifier:[self itemIdentifier]];
    [copy setLabel:[self label]];
    [copy setPaletteLabel:[self paletteLabel]];
    [copy setToolTip:[self toolTip]];
    [copy setTag:[self tag]];
    [copy setPreferredWidthForSearchField:_preferredWidthForSearchField];
    [copy setTarget:[self target]];
    [copy setAction:[self action]];
    return copy;
}

@end
