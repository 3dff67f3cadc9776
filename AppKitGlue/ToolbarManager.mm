#import "QVAppKitController+Private.h"

#include "FatalError.h"
#include "StringBridging.h"
#include "ToolbarItems.h"

#include <type_traits>

using namespace appkitglue;

namespace {

constexpr const char *unit = "ToolbarManager";

SEL selectorFor(ToolbarItemAction action) {
    switch (action) {
    case ToolbarItemAction::target:
        return @selector(toolbarTargetActionWithSender:);
    case ToolbarItemAction::popover:
        return @selector(toolbarPopoverActionWithSender:);
    case ToolbarItemAction::insertMenu:
        return @selector(toolbarInsertMenuActionWithSender:);
    case ToolbarItemAction::tabOverview:
        return @selector(toolbarTabOverviewActionWithSender:);
    case ToolbarItemAction::search:
        return @selector(searchFieldDidChangeWithSender:);
    }
}

NSArray<NSString *> *itemIdentifiers(const std::vector<std::string_view> &identifiers) {
    NSMutableArray<NSString *> *result = [NSMutableArray arrayWithCapacity:identifiers.size()];
    for (const std::string_view identifier : identifiers) {
        if (identifier == toolbarFlexibleSpace) {
            [result addObject:NSToolbarFlexibleSpaceItemIdentifier];
        } else if (identifier == toolbarSpace) {
            [result addObject:NSToolbarSpaceItemIdentifier];
        } else {
            [result addObject:toNSString(identifier)];
        }
    }
    return result;
}

NSImage *symbolImage(const ToolbarItemDescription &description) {
    NSImage *image = [NSImage imageWithSystemSymbolName:toNSString(description.symbol)
                               accessibilityDescription:toNSString(description.label)];
    if (image == nil) {
        fatalError(unit, __LINE__, "Missing system symbol image " + std::string(description.symbol));
    }
    return image;
}

NSToolbarItem *searchItem(NSString *identifier, const ToolbarItemDescription &description, id target) {
    auto item = adoptNS([[NSSearchToolbarItem alloc] initWithItemIdentifier:identifier]);
    NSSearchField *field = [item.get() searchField];
    [field setTarget:target];
    [field setAction:selectorFor(description.action)];
    [item.get() setLabel:toNSString(description.label)];
    return item.autorelease();
}

/// The item shows its button and nothing else. The tag is the item's alone: the button keeps 0, so that a click on it
/// is not reported.
NSToolbarItem *feedbackItem(NSString *identifier, const ToolbarItemDescription &description, id target) {
    auto item = adoptNS([[NSToolbarItem alloc] initWithItemIdentifier:identifier]);
    NSButton *button = [NSButton buttonWithTitle:@"Feedback" target:target action:selectorFor(description.action)];
    [button setBezelStyle:NSBezelStyleRecessed];
    [item.get() setView:button];
    [item.get() setTag:description.tag];
    return item.autorelease();
}

NSButton *itemButton(NSImage *image, const ToolbarItemDescription &description, id target) {
    NSButton *button = [NSButton buttonWithImage:image target:target action:nullptr];
    [button setBezelStyle:NSBezelStyleTexturedRounded];
    [button setAction:selectorFor(description.action)];
    if (description.action == ToolbarItemAction::popover) {
        [button setTag:description.tag];
    }
    return button;
}

NSToolbarItem *imageItem(NSString *identifier, const ToolbarItemDescription &description, NSImage *image, id target) {
    auto item = adoptNS([[NSToolbarItem alloc] initWithItemIdentifier:identifier]);
    [item.get() setBordered:YES];
    if (description.kind == ToolbarItemKind::targetAction) {
        [item.get() setTarget:target];
        [item.get() setAction:selectorFor(description.action)];
        [item.get() setTag:description.tag];
    } else {
        [item.get() setView:itemButton(image, description, target)];
    }
    [item.get() setImage:image];
    [item.get() setLabel:toNSString(description.label)];
    [item.get() setToolTip:description.toolTip ? toNSString(*description.toolTip) : nil];
    return item.autorelease();
}

/// The first of `items` for which `matches` holds, or nil.
template <typename Condition> NSToolbarItem *firstItem(NSArray *items, Condition matches) {
    for (NSToolbarItem *item in items) {
        if (matches(item)) {
            return item;
        }
    }
    return nil;
}

NSRect rectInWindow(NSView *view) {
    NSView *superview = [view superview];
    return superview != nil ? [superview convertRect:[view frame] toView:nil] : [view frame];
}

/// Calls a copy, because the call may replace the original.
template <typename... Arguments>
void call(const std::function<void(Arguments...)> &callback, std::type_identity_t<Arguments>... arguments) {
    if (const auto copy = callback) {
        copy(arguments...);
    }
}

} // namespace

void QVAppKitControllerState::sendAction(ToolbarAction action) const {
    call(selectorAction, action);
}

void QVAppKitControllerState::sendSearch(NSString *text) const {
    call(selectorSearch, text);
}

void QVAppKitControllerState::sendPopover(ToolbarAction action, NSRect rect) const {
    call(selectorPopover, action, rect);
}

@implementation QVAppKitController (Toolbar)

- (void)setupToolbarInWindow:(NSWindow *)window {
    platform::prepareAppKit(); // the controller may be older than the application object
    [self state]->window = window;
    if ([self state]->shouldCloseOnLoad) {
        [window close];
    }
}

- (void)setupToolbarURL:(NSURL *)url {
    const auto window = [self documentWindow];
    [window.get() setRepresentedURL:url];
    NSString *name = [url lastPathComponent];
    [window.get() setTitle:name != nil ? name : @""];
}

- (void)clearWindowToolbar {
    QVAppKitControllerState *state = [self state];
    state->selectorAction = nullptr;
    state->selectorSearch = nullptr;
    state->selectorPopover = nullptr;
    currentTutorialWindowController() = nullptr;
}

- (void)showToolbar {
    [[self documentWindow].get() toggleToolbarShown:nil];
}

- (void)hideToolbar {
    [[self documentWindow].get() toggleToolbarShown:nil];
}

- (NSToolbarItem *)toolbar:(NSToolbar *)toolbar
        itemForItemIdentifier:(NSString *)identifier
    willBeInsertedIntoToolbar:(BOOL)flag {
    const ToolbarItemDescription *description = toolbarItem(toUTF8(identifier));
    if (description == nullptr) {
        fatalError(unit, __LINE__, "Unknown Identifier " + toUTF8(identifier));
    }
    if (description->kind == ToolbarItemKind::search) {
        return searchItem(identifier, *description, self);
    }
    NSImage *image = symbolImage(*description);
    if (description->kind == ToolbarItemKind::feedback) {
        return feedbackItem(identifier, *description, self);
    }
    return imageItem(identifier, *description, image, self);
}

- (NSArray *)toolbarDefaultItemIdentifiers:(NSToolbar *)toolbar {
    return itemIdentifiers(defaultToolbarItems());
}

- (NSArray *)toolbarAllowedItemIdentifiers:(NSToolbar *)toolbar {
    return itemIdentifiers(allowedToolbarItems());
}

- (void)highlightSearch {
    const auto window = [self documentWindow];
    NSToolbarItem *item = firstItem([[window.get() toolbar] visibleItems], [](NSToolbarItem *candidate) {
        return [[candidate itemIdentifier] isEqualToString:@"search"];
    });
    if ([item isKindOfClass:[NSSearchToolbarItem class]]) {
        [[static_cast<NSSearchToolbarItem *>(item) searchField] becomeFirstResponder];
    }
}

- (void)toolbarTargetActionWithSender:(id)sender {
    if (![sender respondsToSelector:@selector(tag)]) {
        return;
    }
    const auto action = ToolbarAction::fromRawValue([sender tag]);
    if (action) {
        [self state]->sendAction(*action);
    }
}

- (void)toolbarInsertMenuActionWithSender:(id)sender {
    [self state]->sendAction(ToolbarAction::insert);
    [self popUpMenu:MenuItem::insertionStructure() sender:sender];
}

- (void)toolbarMediaMenuActionWithSender:(id)sender {
    [self popUpMenu:MenuItem::mediaStructure() sender:sender];
}

- (void)toolbarTabOverviewActionWithSender:(id)sender {
    [[self documentWindow].get() toggleTabOverview:nil];
}

- (void)toolbarPopoverActionWithSender:(id)sender {
    const auto window = [self documentWindow];
    if (!window) {
        return;
    }
    NSView *view = nil;
    NSInteger code = 0;
    if ([sender isKindOfClass:[NSButton class]]) {
        view = sender;
        code = [view tag];
    } else if ([sender isKindOfClass:[NSMenuItem class]]) {
        NSString *title = [static_cast<NSMenuItem *>(sender) title];
        NSToolbarItem *item = firstItem([[window.get() toolbar] items], [title](NSToolbarItem *candidate) {
            return [[candidate label] isEqualToString:title];
        });
        view = [item view];
        code = [item tag];
    }
    const auto action = ToolbarAction::fromRawValue(code);
    if (view != nil && action) {
        const NSRect button = rectInWindow(view);
        const ToolbarRect rect = popoverRect({button.origin.x, button.origin.y, button.size.width, button.size.height},
                                             [window.get() frame].size.height);
        [self state]->sendPopover(*action, NSMakeRect(rect.x, rect.y, rect.width, rect.height));
    }
}

- (void)searchFieldDidChangeWithSender:(id)sender {
    NSString *text = [sender stringValue];
    [self state]->sendSearch([text length] > 0 ? text : nil);
}

@end
