// What the document window's toolbar offers. Plain data: the toolbar's delegate makes the native items from it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace appkitglue {

/// How an item is built.
enum class ToolbarItemKind {
    targetAction, ///< an image item that fires by itself
    button,       ///< an item with an image button as its view
    feedback,     ///< an item with a titled button as its view
    search,       ///< an item with a search field
};

/// What the item, or the control in it, does.
enum class ToolbarItemAction { target, popover, insertMenu, tabOverview, search };

/// One item of the toolbar.
struct ToolbarItemDescription {
    std::string_view identifier;
    std::string_view label;
    std::string_view symbol; ///< name of a system symbol image; empty for the search item
    ToolbarItemKind kind;
    ToolbarItemAction action;
    int tag = 0; ///< the action code of the item (target actions) or of its button (popovers); 0 for none
    std::optional<std::string_view> toolTip;
};

/// All items, in the order of their kinds.
const std::vector<ToolbarItemDescription>& toolbarItems();

/// The item with this identifier, or nullptr. Valid for the life of the process.
const ToolbarItemDescription* toolbarItem(std::string_view identifier);

/// Placeholders for the system's items in the lists below.
inline constexpr std::string_view toolbarSpace = "space";
inline constexpr std::string_view toolbarFlexibleSpace = "flexibleSpace";

/// The identifiers of a toolbar that the user has not changed, and those that can be chosen for it. They differ on
/// purpose: the tab overview cannot be put back once removed, and the editing items are there for customisation only.
std::vector<std::string_view> defaultToolbarItems();
std::vector<std::string_view> allowedToolbarItems();

/// A rectangle in points.
struct ToolbarRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// Where a host is to show the popover of a button: `button` is the button's rectangle in its window's coordinates
/// (origin at the bottom left), `windowHeight` the height of the window's frame. The result counts y from the top of
/// the window and scales x by 1/0.77, as hosts expect.
ToolbarRect popoverRect(const ToolbarRect& button, double windowHeight);

} // namespace appkitglue
