#import "SHDocument.h"

#import "DocumentLayout.h"
#import "SHAppDelegate.h"
#import "SHPopover.h"

#include <utility>

using namespace samplehost;

namespace {

/// What stands before the plug-in's default items, from left to right.
NSArray<NSString *> *leadingItems() {
    return @[ @"addSlide", @"media", @"insert", @"inspector", @"arrange", @"play" ];
}

/// The plug-in scales x by 1/0.77.
constexpr double popoverScale = 0.77;

} // namespace

@implementation SHDocument (Toolbar)

- (void)installToolbar {
    // Toolbars of the same identifier follow each other's changes: an item put into one would appear in all of them.
    static int number = 0;
    NSString *ownIdentifier = [NSString stringWithFormat:@"Document%d", ++number];
    const auto toolbar = own([[NSToolbar alloc] initWithIdentifier:ownIdentifier]);
    [toolbar.get() setAllowsUserCustomization:NO];
    [toolbar.get() setAutosavesConfiguration:NO];
    [toolbar.get() setDisplayMode:NSToolbarDisplayModeIconAndLabel];
    [toolbar.get() setDelegate:_controller.get()];
    const NSRect frame = [_window.get() frame];
    [_window.get() setToolbar:toolbar.get()];
    // The default items are about the look of things; what makes slides comes before them. Feedback is for test
    // versions.
    NSArray<NSToolbarItem *> *items = [toolbar.get() items];
    for (NSUInteger i = 0; i < [items count]; ++i) {
        if ([[[items objectAtIndex:i] itemIdentifier] isEqualToString:@"report"]) {
            [toolbar.get() removeItemAtIndex:static_cast<NSInteger>(i)];
            break;
        }
    }
    NSInteger place = 0;
    for (NSString *identifier in leadingItems()) {
        [toolbar.get() insertItemWithItemIdentifier:identifier atIndex:place++];
    }
    for (NSToolbarItem *item in [toolbar.get() items]) {
        if ([[item itemIdentifier] isEqualToString:@"search"]) {
            [item setMinSize:NSMakeSize(170, [item minSize].height)];
            [item setMaxSize:NSMakeSize(230, [item maxSize].height)];
        }
    }
    [_window.get() setFrame:frame display:NO];
}

- (void)toolbarActionForAction:(NSNumber *)action {
    [_application log].write(eventlog::action([action longLongValue]));
    const auto known = actionFromCode([action longLongValue]);
    if (!known) {
        return;
    }
    if (*known == Action::arrange) {
        [self toggleArranging];
    } else {
        [self perform:*known];
    }
}

- (void)toolbarActionForSearch:(NSString *)text {
    const auto wanted = text == nil ? std::nullopt : std::optional(toUTF8(text));
    [_application log].write(eventlog::search(wanted));
    [self find:wanted.value_or("")];
}

- (void)toolbarActionForPopover:(NSNumber *)action CGRect:(NSValue *)rect {
    const NSRect anchor = [rect rectValue];
    [_application log].write(
        eventlog::popover([action longLongValue], NSMinX(anchor), NSMinY(anchor), NSWidth(anchor), NSHeight(anchor)));
    if (const auto known = actionFromCode([action longLongValue])) {
        [self showPopover:*known rect:anchor];
    }
}

#pragma mark Popovers

/// The toolbar's button with the action's code; nil when it is not in the toolbar.
- (NSView *)buttonOf:(Action)action {
    for (NSToolbarItem *item in [[_window.get() toolbar] visibleItems]) {
        if ([[item view] isKindOfClass:[NSButton class]] && [[item view] tag] == static_cast<NSInteger>(action)) {
            return [item view];
        }
    }
    return nil;
}

- (void)showPopover:(Action)action rect:(NSRect)rect {
    const bool sameAgain = [_popover.get() isShown] && [_popover.get() action] == action;
    [self closePopover];
    if (sameAgain) {
        return;
    }
    _popover = own([[SHPopover alloc] initWithAction:action document:self application:_application]);
    if (NSView *button = [self buttonOf:action]; button != nil) {
        [_popover.get() showRelativeToRect:[button bounds] ofView:button];
        return;
    }
    NSView *content = [_window.get() contentView];
    NSRect anchor = NSMakeRect(NSMidX([content bounds]) - 2, NSMaxY([content bounds]) - 6, 4, 4);
    if (!NSIsEmptyRect(rect)) {
        const double top = NSHeight([_window.get() frame]) - NSMinY(rect);
        anchor = [content convertRect:NSMakeRect(NSMinX(rect) * popoverScale, top, NSWidth(rect), NSHeight(rect))
                             fromView:nil];
    }
    [_popover.get() showRelativeToRect:anchor ofView:content];
}

- (void)closePopover {
    [_popover.get() close];
}

#pragma mark Arranging

- (bool)isArranging {
    return [_gridScroll.get() superview] != nil;
}

- (void)toggleArranging {
    if ([self isArranging]) {
        [_gridScroll.get() removeFromSuperview];
        [_split setHidden:NO];
        [_window.get() makeFirstResponder:_editor];
        [self goToSlide:_current];
        return;
    }
    if (!_gridScroll) {
        const auto grid = own([[SHSlideListView alloc] initWithFrame:[_split frame]]);
        _grid = grid.get();
        [_grid setGrid:true];
        [_grid setSelectHandler:[self](std::size_t slide) { [self goToSlide:slide]; }];
        [_grid setOpenHandler:[self](std::size_t) { [self toggleArranging]; }];
        [_grid setMoveHandler:[self](std::size_t from, std::size_t to) {
            [self apply:moveSlide(_text, from, to) name:"Move Slide"];
        }];
        _gridScroll = keep(scrolling(_grid, [_split frame]));
        [_gridScroll.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    }
    [_gridScroll.get() setFrame:[_split frame]];
    [_split setHidden:YES];
    [[_split superview] addSubview:_gridScroll.get()];
    [self refresh];
    [_grid select:_current];
    [_window.get() makeFirstResponder:_grid];
}

#pragma mark Menu actions

- (void)focusSearch:(id)sender {
    (void)sender;
    [_controller.get() highlightSearch];
}

- (void)arrangeSlides:(id)sender {
    (void)sender;
    [self toggleArranging];
}

- (void)flipToolbar:(id)sender {
    (void)sender;
    if ([[_window.get() toolbar] isVisible]) {
        [_controller.get() hideToolbar];
    } else {
        [_controller.get() showToolbar];
    }
}

@end
