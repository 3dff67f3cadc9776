#import "ViewReconciler.h"

#import "RenderedViews.h"

#include <map>

namespace appkitglue {

using namespace ui;

namespace {

template <class T> bool is(const View::Content &content) {
    return std::holds_alternative<T>(content);
}

RetainPtr<NSView> makeScrollView() {
    const auto scroll = adoptNS([[NSScrollView alloc] initWithFrame:NSZeroRect]);
    [scroll.get() setBorderType:NSNoBorder];
    [scroll.get() setDrawsBackground:NO];
    [[scroll.get() contentView] setCopiesOnScroll:NO];
    const auto document = adoptNS([[QVFlippedView alloc] initWithFrame:NSZeroRect]);
    [scroll.get() setDocumentView:document.get()];
    return scroll;
}

// The AppKit view for a kind of content; empty for what only arranges others.
RetainPtr<NSView> makeView(const View::Content &content) {
    if (is<Text>(content))
        return adoptNS([[QVTextLabel alloc] initWithFrame:NSZeroRect]);
    if (is<Decoration>(content))
        return adoptNS([[QVShapeView alloc] initWithFrame:NSZeroRect]);
    if (is<Button>(content) || is<TapTarget>(content))
        return adoptNS([[QVLabelButton alloc] initWithFrame:NSZeroRect]);
    if (is<ScrollView>(content))
        return makeScrollView();
    return {};
}

// The layout moved so that `origin` becomes its zero point.
Layout relative(const Layout &layout, double x, double y) {
    Layout result{{layout.frame.x - x, layout.frame.y - y, layout.frame.width, layout.frame.height}, {}};
    for (const Layout &child : layout.children)
        result.children.push_back(relative(child, x, y));
    return result;
}

// What a child is recognised by: its identity and how many of that identity came before, else its position.
std::string childKey(const View::Content &content, std::size_t index, std::map<std::string, int> &seen) {
    const auto *identity = std::get_if<Identity>(&content);
    if (!identity)
        return "#" + std::to_string(index);
    return "=" + std::to_string(seen[identity->id]++) + identity->id;
}

} // namespace

void ViewReconciler::update(RenderedNode &node, const View &view, const Layout &layout) {
    bool isNew = false;
    if (node.content.index() != view.content.index()) {
        remove(node);
        node = {};
    }
    if (!node.view) {
        node.view = makeView(view.content);
        isNew = static_cast<bool>(node.view);
    }
    const auto *decoration = std::get_if<Decoration>(&view.content);
    const bool inFront = decoration && decoration->inFront;
    if (node.view && !inFront)
        place(node, layout, isNew);
    if (const auto *text = std::get_if<Text>(&view.content); text && m_context.empty())
        m_context = text->text;
    if (is<Identity>(view.content))
        m_context.clear();
    if (node.view)
        show(node, view, layout, isNew);
    if (!is<Button>(view.content) && !is<TapTarget>(view.content) && !is<ScrollView>(view.content))
        updateChildren(node, view, layout);
    if (inFront)
        place(node, layout, isNew);
    node.content = view.content;
    node.layout.frame = layout.frame;
}

void ViewReconciler::updateChildren(RenderedNode &node, const View &view, const Layout &layout) {
    std::map<std::string, RenderedNode *> old;
    std::map<std::string, int> seen;
    for (std::size_t i = 0; i < node.children.size(); i++)
        old[childKey(node.children[i].content, i, seen)] = &node.children[i];
    seen.clear();
    std::vector<RenderedNode> children(view.children.size());
    for (std::size_t i = 0; i < children.size(); i++) {
        const auto found = old.find(childKey(view.children[i].content, i, seen));
        if (found != old.end()) {
            children[i] = std::move(*found->second);
            old.erase(found);
        }
    }
    for (auto &[key, gone] : old)
        remove(*gone);
    node.children = std::move(children);
    for (std::size_t i = 0; i < node.children.size(); i++)
        update(node.children[i], view.children[i], layout.children[i]);
}

void ViewReconciler::remove(RenderedNode &node) {
    for (RenderedNode &child : node.children)
        remove(child);
    if (!node.view)
        return;
    [node.view.get() removeFromSuperview];
    m_changes++;
}

// Puts the view above all that came before it.
void ViewReconciler::place(RenderedNode &node, const Layout &layout, bool isNew) {
    if (isNew)
        [m_container addSubview:node.view.get() positioned:m_last ? NSWindowAbove : NSWindowBelow relativeTo:m_last];
    m_last = node.view.get();
    const NSRect frame = toNSRect(layout.frame);
    const bool moved = !NSEqualRects([node.view.get() frame], frame);
    if (moved) {
        [m_container setNeedsDisplayInRect:[node.view.get() frame]];
        [node.view.get() setFrame:frame];
        [node.view.get() setNeedsDisplay:YES];
    }
    if (isNew || moved)
        m_changes++;
}

void ViewReconciler::show(RenderedNode &node, const View &view, const Layout &layout, bool isNew) {
    if (is<ScrollView>(view.content))
        return showScrollView(node, view, layout);
    if (const auto *button = std::get_if<Button>(&view.content))
        return showButton(node, view, layout, button->action, isNew);
    if (const auto *target = std::get_if<TapTarget>(&view.content))
        return showButton(node, view, layout, target->action, isNew);
    if (!isNew && node.content == view.content)
        return;
    if (!isNew)
        m_changes++;
    if (const auto *text = std::get_if<Text>(&view.content))
        [static_cast<QVTextLabel *>(node.view.get()) showText:*text];
    if (const auto *decoration = std::get_if<Decoration>(&view.content))
        [static_cast<QVShapeView *>(node.view.get()) showShape:decoration->shape];
}

void ViewReconciler::showButton(RenderedNode &node, const View &view, const Layout &layout, const Action &action,
                                bool isNew) {
    auto *const button = static_cast<QVLabelButton *>(node.view.get());
    // Always: actions are equal by name, but what they hold on to may have changed.
    [button setPerform:[perform = action.perform, environment = m_environment] {
        if (perform)
            perform(*environment);
    }];
    m_buttons.push_back(button);
    const Layout label = relative(layout.children.front(), layout.frame.x, layout.frame.y);
    if (!isNew && node.label == view.children && node.layout.children.front() == label)
        return;
    if (!isNew)
        m_changes++;
    [button showLabel:view.children.front() layout:label context:m_context];
    node.label = view.children;
    node.layout.children = {label};
}

void ViewReconciler::showScrollView(RenderedNode &node, const View &view, const Layout &layout) {
    auto *const scroll = static_cast<NSScrollView *>(node.view.get());
    [scroll setHasVerticalScroller:std::get<ScrollView>(view.content).showsIndicators];
    [scroll setAutohidesScrollers:NO];
    NSView *document = [scroll documentView];
    const NSSize visible = [scroll contentSize];
    const NSSize size = NSMakeSize(std::max(visible.width, layout.children.front().frame.width),
                                   std::max(visible.height, layout.children.front().frame.height));
    if (!NSEqualSizes([document frame].size, size))
        [document setFrameSize:size];
    node.children.resize(1);
    ViewReconciler inside(document, m_environment);
    inside.update(node.children.front(), view.children.front(), layout.children.front());
    m_buttons.insert(m_buttons.end(), inside.m_buttons.begin(), inside.m_buttons.end());
    m_changes += inside.m_changes;
}

} // namespace appkitglue
