#include "ViewTree.h"

namespace appkitglue::ui {

namespace {

template <class Change> void forEachText(View& view, const Change& change) {
    if (auto* text = std::get_if<Text>(&view.content))
        change(*text);
    for (View& child : view.children)
        forEachText(child, change);
}

} // namespace

View View::inside(Content outer) && {
    std::vector<View> wrapped;
    wrapped.push_back(std::move(*this));
    return {std::move(outer), std::move(wrapped)};
}

View View::font(FontRole role) && {
    forEachText(*this, [&](Text& text) { text.font = text.font.value_or(role); });
    return std::move(*this);
}

View View::foreground(ColorRole role) && {
    forEachText(*this, [&](Text& text) { text.color = text.color.value_or(role); });
    return std::move(*this);
}

View text(std::string_view text) {
    return {Text{.text = std::string(text), .isKey = false, .font = {}, .color = {}}};
}

View localizedText(std::string_view key) {
    return {Text{.text = std::string(key), .isKey = true, .font = {}, .color = {}}};
}

View spacer() {
    return {Spacer{}};
}

View scrollView(View content) {
    std::vector<View> children;
    children.push_back(std::move(content));
    return {ScrollView{}, std::move(children)};
}

View button(Action action, View label) {
    std::vector<View> children;
    children.push_back(std::move(label));
    return {Button{std::move(action)}, std::move(children)};
}

View stack(Stack properties, std::vector<View> children) {
    return {properties, std::move(children)};
}

View localized(View view, const std::function<std::string(const std::string&)>& localize) {
    forEachText(view, [&](Text& text) {
        if (std::exchange(text.isKey, false))
            text.text = localize(text.text);
    });
    return view;
}

} // namespace appkitglue::ui
