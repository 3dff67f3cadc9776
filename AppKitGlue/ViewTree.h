// Declarative views: a screen is described as a value, compared as a value, laid out and rendered elsewhere.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace appkitglue::ui {

/// Fonts by their role; the renderer knows the fonts.
enum class FontRole : std::uint8_t { title, headline, subheadline, body };

/// Colours by their role; the renderer knows the colours of the current appearance.
enum class ColorRole : std::uint8_t { label, accent, white, controlBackground };

enum class Axis : std::uint8_t { horizontal, vertical };

/// Where the children of a stack stand across it: left, centre and right of a vertical stack, top, centre and bottom of
/// a horizontal one.
enum class Alignment : std::uint8_t { leading, center, trailing };

/// Space around a view, in points.
struct EdgeInsets {
    double top = 0;
    double leading = 0;
    double bottom = 0;
    double trailing = 0;
    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

/// The space around a view, and between the children of a stack, where none is said.
inline constexpr double defaultPadding = 16;
inline constexpr double defaultSpacing = 8;

/// How the outline of a shape is drawn.
struct StrokeStyle {
    /// In points.
    double lineWidth = 1;
    double miterLimit = 10;
    /// Lengths of dashes and gaps in points; empty: a solid line.
    std::vector<double> dash;
    friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

/// A rectangle whose corners are quarters of a circle; filled unless it has a stroke.
struct RoundedRectangle {
    /// In points.
    double cornerRadius = 0;
    ColorRole color = ColorRole::label;
    std::optional<StrokeStyle> stroke;

    static RoundedRectangle filled(double cornerRadius, ColorRole color) { return {cornerRadius, color, std::nullopt}; }
    static RoundedRectangle stroked(double cornerRadius, ColorRole color, double lineWidth) {
        return {cornerRadius, color, StrokeStyle{.lineWidth = lineWidth, .dash = {}}};
    }
    friend bool operator==(const RoundedRectangle&, const RoundedRectangle&) = default;
};

/// What views need from where they are shown.
struct ViewEnvironment {
    /// Opens an address in the program that is made for it. Does nothing for text that is no address.
    std::function<void(const std::string&)> openURL;
};

/// What a button or a tap does. Two actions are equal when their names are: functions cannot be compared.
struct Action {
    std::string name;
    std::function<void(const ViewEnvironment&)> perform;
    friend bool operator==(const Action& a, const Action& b) { return a.name == b.name; }
};

/// The kinds of views. Their children stand in the `View`.
struct Text {
    std::string text;
    /// Whether `text` is a key that is looked up in the localised strings.
    bool isKey = false;
    std::optional<FontRole> font;
    std::optional<ColorRole> color;
    friend bool operator==(const Text&, const Text&) = default;
};
struct Stack {
    Axis axis = Axis::vertical;
    Alignment alignment = Alignment::center;
    /// In points.
    double spacing = defaultSpacing;
    friend bool operator==(const Stack&, const Stack&) = default;
};
/// Takes all the space that the other children of its stack leave.
struct Spacer {
    friend bool operator==(const Spacer&, const Spacer&) = default;
};
/// Scrolls its one child vertically.
struct ScrollView {
    bool showsIndicators = true;
    friend bool operator==(const ScrollView&, const ScrollView&) = default;
};
struct Padding {
    EdgeInsets insets;
    friend bool operator==(const Padding&, const Padding&) = default;
};
/// A shape of the child's size behind (or over) its child.
struct Decoration {
    RoundedRectangle shape;
    bool inFront = false;
    friend bool operator==(const Decoration&, const Decoration&) = default;
};
/// Its one child is the label.
struct Button {
    Action action;
    friend bool operator==(const Button&, const Button&) = default;
};
/// A child that can be tapped.
struct TapTarget {
    Action action;
    friend bool operator==(const TapTarget&, const TapTarget&) = default;
};
/// Gives its child an identity among the children of a stack that survives insertions and moves.
struct Identity {
    std::string id;
    friend bool operator==(const Identity&, const Identity&) = default;
};

class View;

/// A type that describes itself by other views.
template <class T>
concept Describing = requires(const T& value) {
    { value.body() } -> std::convertible_to<View>;
};

/// A view with everything inside it: a value.
class View {
public:
    using Content = std::variant<Text, Stack, Spacer, ScrollView, Padding, Decoration, Button, TapTarget, Identity>;

    View(Content viewContent, std::vector<View> inside = {})
        : content(std::move(viewContent)), children(std::move(inside)) {}
    template <Describing T> View(const T& value) : View(value.body()) {}

    /// The font, or the colour, of all texts inside that have none of their own.
    View font(FontRole role) &&;
    View foreground(ColorRole role) &&;

    View padding(double allEdges = defaultPadding) && {
        return std::move(*this).padding(EdgeInsets{allEdges, allEdges, allEdges, allEdges});
    }
    View padding(EdgeInsets insets) && { return std::move(*this).inside(Padding{insets}); }
    /// A shape of this view's size behind it, or over it.
    View background(RoundedRectangle shape) && { return std::move(*this).inside(Decoration{std::move(shape), false}); }
    View overlay(RoundedRectangle shape) && { return std::move(*this).inside(Decoration{std::move(shape), true}); }
    View onTap(Action action) && { return std::move(*this).inside(TapTarget{std::move(action)}); }
    View identified(std::string id) && { return std::move(*this).inside(Identity{std::move(id)}); }

    Content content;
    std::vector<View> children;

    friend bool operator==(const View&, const View&) = default;

private:
    View inside(Content outer) &&;
};

/// A text that stands as it is, and one that is looked up in the localised strings.
View text(std::string_view text);
View localizedText(std::string_view key);
View spacer();
View scrollView(View content);
View button(Action action, View label);
View stack(Stack properties, std::vector<View> children);

/// Stacks of a few views.
template <class... Views> View vStack(Alignment alignment, double spacing, Views&&... views) {
    std::vector<View> children;
    (children.emplace_back(std::forward<Views>(views)), ...);
    return stack({Axis::vertical, alignment, spacing}, std::move(children));
}
template <class... Views> View hStack(Alignment alignment, double spacing, Views&&... views) {
    std::vector<View> children;
    (children.emplace_back(std::forward<Views>(views)), ...);
    return stack({Axis::horizontal, alignment, spacing}, std::move(children));
}

/// One view per element, each with the element's `id()` as its identity.
template <class Data, class MakeView> std::vector<View> forEach(const Data& data, const MakeView& makeView) {
    std::vector<View> views;
    views.reserve(data.size());
    for (const auto& element : data)
        views.push_back(View(makeView(element)).identified(element.id()));
    return views;
}

/// The view with every key replaced by what `localize` makes of it.
View localized(View view, const std::function<std::string(const std::string&)>& localize);

} // namespace appkitglue::ui
