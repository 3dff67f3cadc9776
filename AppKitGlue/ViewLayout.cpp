#include "ViewLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace appkitglue::ui {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// What the parent offers; nothing: take what you like best.
struct Proposal {
    std::optional<double> width;
    std::optional<double> height;

    std::optional<double>& along(Axis axis) { return axis == Axis::horizontal ? width : height; }
};

Axis across(Axis axis) {
    return axis == Axis::horizontal ? Axis::vertical : Axis::horizontal;
}

double& length(Rect& frame, Axis axis) {
    return axis == Axis::horizontal ? frame.width : frame.height;
}
double& position(Rect& frame, Axis axis) {
    return axis == Axis::horizontal ? frame.x : frame.y;
}

template <class T> bool is(const View& view) {
    return std::holds_alternative<T>(view.content);
}

// Centred things stand on whole points, so that texts stay sharp.
double offset(Alignment alignment, double space) {
    if (alignment == Alignment::leading)
        return 0;
    return alignment == Alignment::trailing ? space : std::floor(space / 2);
}

// Works out sizes; frames are relative to the parent's until `makeAbsolute`.
class Sizing {
public:
    explicit Sizing(const LayoutEnvironment& environment) : m_environment(environment) {}

    Layout size(const View& view, Proposal proposal) const {
        return std::visit([&](const auto& content) { return sizeOf(content, view, proposal); }, view.content);
    }

private:
    Layout sizeOf(const Text& text, const View&, Proposal proposal) const {
        const Size size =
            m_environment.measure(text.text, text.font.value_or(FontRole::body), proposal.width.value_or(infinity));
        return {{0, 0, size.width, size.height}, {}};
    }

    Layout sizeOf(const Spacer&, const View&, Proposal proposal) const {
        return {{0, 0, proposal.width.value_or(0), proposal.height.value_or(0)}, {}};
    }

    Layout sizeOf(const Padding& padding, const View& view, Proposal proposal) const {
        const EdgeInsets& insets = padding.insets;
        const double horizontal = insets.leading + insets.trailing;
        const double vertical = insets.top + insets.bottom;
        if (proposal.width)
            proposal.width = std::max(0.0, *proposal.width - horizontal);
        if (proposal.height)
            proposal.height = std::max(0.0, *proposal.height - vertical);
        Layout child = size(view.children.front(), proposal);
        child.frame.x = insets.leading;
        child.frame.y = insets.top;
        Layout result{{0, 0, child.frame.width + horizontal, child.frame.height + vertical}, {}};
        result.children.push_back(std::move(child));
        return result;
    }

    Layout sizeOf(const ScrollView& scroll, const View& view, Proposal proposal) const {
        const double scroller = scroll.showsIndicators ? m_environment.scrollerWidth : 0;
        Proposal inside{proposal.width, std::nullopt};
        if (inside.width)
            inside.width = std::max(0.0, *inside.width - scroller);
        Layout child = size(view.children.front(), inside);
        Layout result{{0, 0, child.frame.width + scroller, proposal.height.value_or(child.frame.height)}, {}};
        result.children.push_back(std::move(child));
        return result;
    }

    // Decorations, buttons, tap targets and identities are as large as their child.
    template <class Wrapper> Layout sizeOf(const Wrapper&, const View& view, Proposal proposal) const {
        Layout child = size(view.children.front(), proposal);
        Layout result{child.frame, {}};
        result.children.push_back(std::move(child));
        return result;
    }

    Layout sizeOf(const Stack& stack, const View& view, Proposal proposal) const;
    std::vector<std::size_t> sizingOrder(const Stack& stack, const View& view) const;
    double flexibility(const View& view, Axis axis, Axis stackAxis) const;

    const LayoutEnvironment& m_environment;
};

// How much longer than nothing a view may become along `axis`. A spacer stretches along its own stack only.
double Sizing::flexibility(const View& view, Axis axis, Axis stackAxis) const {
    if (const auto* text = std::get_if<Text>(&view.content))
        return axis == Axis::vertical
                   ? 0
                   : m_environment.measure(text->text, text->font.value_or(FontRole::body), infinity).width;
    if (is<Spacer>(view))
        return axis == stackAxis ? infinity : 0;
    if (is<ScrollView>(view) && axis == Axis::vertical)
        return infinity;
    const auto* stack = std::get_if<Stack>(&view.content);
    double sum = 0;
    double most = 0;
    for (const View& child : view.children) {
        const double one = flexibility(child, axis, stack ? stack->axis : stackAxis);
        sum += one;
        most = std::max(most, one);
        if (most == infinity)
            break;
    }
    return stack && stack->axis == axis ? sum : most;
}

// Rigid views choose first, so that flexible ones share what is left; spacers get what nobody wants.
std::vector<std::size_t> Sizing::sizingOrder(const Stack& stack, const View& view) const {
    std::vector<std::tuple<bool, double, std::size_t>> keys;
    keys.reserve(view.children.size());
    for (const View& child : view.children)
        keys.emplace_back(is<Spacer>(child), flexibility(child, stack.axis, stack.axis), keys.size());
    std::ranges::sort(keys);
    std::vector<std::size_t> order;
    order.reserve(keys.size());
    for (const auto& [isSpacer, freedom, index] : keys)
        order.push_back(index);
    return order;
}

Layout Sizing::sizeOf(const Stack& stack, const View& view, Proposal proposal) const {
    const std::size_t count = view.children.size();
    Layout result;
    result.children.resize(count);
    const double gaps = count > 1 ? stack.spacing * double(count - 1) : 0;
    const std::optional<double> offered = proposal.along(stack.axis);
    if (!offered) {
        for (std::size_t i = 0; i < count; i++)
            result.children[i] = size(view.children[i], proposal);
    } else {
        double left = *offered - gaps;
        const auto order = sizingOrder(stack, view);
        auto sharing = std::ranges::count_if(view.children, [](const View& child) { return !is<Spacer>(child); });
        for (std::size_t place = 0; place < count; place++, sharing--) {
            const std::size_t index = order[place];
            if (sharing == 0)
                sharing = std::ptrdiff_t(count - place);
            proposal.along(stack.axis) = std::max(0.0, left / double(sharing));
            if (is<Spacer>(view.children[index]))
                proposal.along(across(stack.axis)) = 0;
            result.children[index] = size(view.children[index], proposal);
            left -= length(result.children[index].frame, stack.axis);
        }
    }
    double end = 0;
    double breadth = 0;
    for (Layout& child : result.children) {
        position(child.frame, stack.axis) = end;
        end += length(child.frame, stack.axis) + stack.spacing;
        breadth = std::max(breadth, length(child.frame, across(stack.axis)));
    }
    for (Layout& child : result.children)
        position(child.frame, across(stack.axis)) =
            offset(stack.alignment, breadth - length(child.frame, across(stack.axis)));
    length(result.frame, stack.axis) = count > 0 ? end - stack.spacing : 0;
    length(result.frame, across(stack.axis)) = breadth;
    return result;
}

void makeAbsolute(Layout& layout, const View& view, double x, double y) {
    layout.frame.x += x;
    layout.frame.y += y;
    const bool scrolls = is<ScrollView>(view);
    for (std::size_t i = 0; i < layout.children.size(); i++)
        makeAbsolute(layout.children[i], view.children[i], scrolls ? 0 : layout.frame.x, scrolls ? 0 : layout.frame.y);
}

} // namespace

Layout layOut(const View& view, Size size, const LayoutEnvironment& environment) {
    Layout layout = Sizing(environment).size(view, {size.width, size.height});
    const double x = std::max(0.0, std::floor((size.width - layout.frame.width) / 2));
    const double y = std::max(0.0, std::floor((size.height - layout.frame.height) / 2));
    makeAbsolute(layout, view, x, y);
    return layout;
}

Size idealSize(const View& view, const LayoutEnvironment& environment) {
    const Layout layout = Sizing(environment).size(view, {});
    return {layout.frame.width, layout.frame.height};
}

} // namespace appkitglue::ui
