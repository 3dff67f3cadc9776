#include "ToolbarItems.h"

#include <algorithm>

namespace appkitglue {

const std::vector<ToolbarItemDescription>& toolbarItems() {
    using enum ToolbarItemKind;
    using Action = ToolbarItemAction;
    static const std::vector<ToolbarItemDescription> items = {
        {"addSlide", "Add Slide", "plus", targetAction, Action::target, 1, "Insert Slide"},
        {"media", "Media", "photo", button, Action::popover, 2, "Insert Media"},
        {"insert", "Insert", "square.on.circle", button, Action::insertMenu, 0, "Insert Elements"},
        {"inspector", "Inspector", "paintbrush", button, Action::popover, 14, "Slide or Element Inspector"},
        {"report", "Found Bug?", "exclamationmark.bubble", feedback, Action::target, 15,
         "Submit Beta Testing Feedback"},
        {"document", "Overrides", "gear", button, Action::popover, 16, "Document Settings"},
        {"arrange", "Arrange", "rectangle.grid.2x2", targetAction, Action::target, 17, "Rearrange Slides"},
        {"play", "Play", "play.circle", button, Action::popover, 18, "Play"},
        {"search", "", "", search, Action::search, 0, std::nullopt},
        {"themes", "Themes", "paintpalette.fill", button, Action::popover, 22, std::nullopt},
        {"tabOverview", "Tab Overview", "rectangle.on.rectangle", button, Action::tabOverview, 0,
         "Show / Hide Tab Overview"},
    };
    return items;
}

const ToolbarItemDescription* toolbarItem(std::string_view identifier) {
    const auto& items = toolbarItems();
    const auto found = std::ranges::find(items, identifier, &ToolbarItemDescription::identifier);
    return found != items.end() ? &*found : nullptr;
}

std::vector<std::string_view> defaultToolbarItems() {
    return {toolbarFlexibleSpace, "themes", "document", "search", "report", "tabOverview"};
}

std::vector<std::string_view> allowedToolbarItems() {
    return {"addSlide", "media", "insert",     toolbarSpace, "inspector", "report", toolbarSpace,
            "arrange",  "play",  toolbarSpace, "themes",     "document",  "search"};
}

ToolbarRect popoverRect(const ToolbarRect& button, double windowHeight) {
    return {button.x * (1 / 0.77), windowHeight - button.y, 4.0, button.height};
}

} // namespace appkitglue
