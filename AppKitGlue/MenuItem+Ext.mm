#import "MenuBuilding.h"
#import "QVAppKitController+Private.h"

#include "StringBridging.h"

#include <optional>
#include <variant>

using namespace appkitglue;

namespace {

/// How far under the button its menu opens, in points.
constexpr CGFloat menuDistance = 5;

NSImage *symbolImage(const std::string &name) {
    return [NSImage imageWithSystemSymbolName:toNSString(name) accessibilityDescription:nil];
}

/// Makes the native form of one entry.
struct NativeItem {
    id target;
    SEL action;

    RetainPtr<NSMenuItem> operator()(const MenuItem::Item &entry) const {
        auto item = adoptNS([[NSMenuItem alloc] init]);
        [item.get() setTitle:toNSString(entry.title)];
        [item.get() setImage:symbolImage(entry.image)];
        [item.get() setAction:action];
        [item.get() setTarget:target];
        [item.get() setRepresentedObject:[NSNumber numberWithLongLong:entry.tag]];
        return item;
    }

    RetainPtr<NSMenuItem> operator()(const MenuItem::Nested &entry) const {
        auto item = adoptNS([[NSMenuItem alloc] init]);
        [item.get() setTitle:toNSString(entry.title)];
        [item.get() setImage:symbolImage(entry.image)];
        const auto submenu = adoptNS([[NSMenu alloc] initWithTitle:toNSString(entry.title)]);
        populateMenu(submenu.get(), entry.items, target, action);
        [item.get() setSubmenu:submenu.get()];
        return item;
    }

    RetainPtr<NSMenuItem> operator()(const MenuItem::Separator &) const {
        return RetainPtr<NSMenuItem>(static_cast<NSMenuItem *>([NSMenuItem separatorItem]));
    }
};

/// The number's value if it is an integer that fits.
std::optional<long long> integerValue(id object) {
    if (![object isKindOfClass:[NSNumber class]]) {
        return std::nullopt;
    }
    const long long value = [object longLongValue];
    if (![object isEqual:[NSNumber numberWithLongLong:value]]) {
        return std::nullopt;
    }
    return value;
}

} // namespace

namespace appkitglue {

void populateMenu(NSMenu *menu, const std::vector<MenuItem> &items, id target, SEL action) {
    for (const MenuItem &item : items) {
        [menu addItem:std::visit(NativeItem{target, action}, item.entry()).get()];
    }
}

} // namespace appkitglue

@implementation QVAppKitController (Menus)

- (void)didTapMenuItem:(NSMenuItem *)sender {
    const auto code = integerValue([sender representedObject]);
    const auto action = code ? ToolbarAction::fromRawValue(*code) : std::nullopt;
    if (action) {
        [self state]->sendAction(*action);
    }
}

@end

@implementation QVAppKitController (MenuPopUp)

- (void)popUpMenu:(const std::vector<MenuItem> &)items sender:(NSView *)sender {
    if (![sender isKindOfClass:[NSView class]]) {
        return; // an entry of the toolbar's overflow menu has no place
    }
    const auto menu = adoptNS([[NSMenu alloc] initWithTitle:@""]);
    populateMenu(menu.get(), items, self, @selector(didTapMenuItem:));
    if ([menu.get() numberOfItems] == 0) {
        return;
    }
    [menu.get() popUpMenuPositioningItem:[menu.get() itemAtIndex:0]
                              atLocation:NSMakePoint(0, [sender frame].size.height + menuDistance)
                                  inView:sender];
}

@end
