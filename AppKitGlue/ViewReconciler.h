// Makes the AppKit views inside a container follow a declarative tree.
#pragma once

#import "RetainPtr.h"

#import <AppKit/AppKit.h>

#include "ViewLayout.h"

#include <memory>
#include <string>
#include <vector>

namespace appkitglue {

/// What stands on screen for one declarative view: an AppKit view or none (stacks, padding), and what is inside.
struct RenderedNode {
    ui::View::Content content = ui::Spacer{};
    RetainPtr<NSView> view;
    ui::Layout layout;
    std::vector<ui::View> label; // of a button, which draws its label itself
    std::vector<RenderedNode> children;
};

/// One pass over a tree. Views keep their AppKit view as long as kind and identity (or, without one, position) stay.
class ViewReconciler {
public:
    /// Views go into `container`, the first of them to the back. `environment` is what buttons act in.
    ViewReconciler(NSView* container, std::shared_ptr<ui::ViewEnvironment> environment)
        : m_container(container), m_environment(std::move(environment)) {}

    /// Makes `node` show `view`.
    void update(RenderedNode& node, const ui::View& view, const ui::Layout& layout);

    /// The buttons met so far, in the order of the tree.
    [[nodiscard]] const std::vector<NSButton*>& buttons() const { return m_buttons; }
    /// How many AppKit views were made, changed, moved or removed.
    [[nodiscard]] std::size_t changes() const { return m_changes; }

private:
    void updateChildren(RenderedNode& node, const ui::View& view, const ui::Layout& layout);
    void remove(RenderedNode& node);
    void show(RenderedNode& node, const ui::View& view, const ui::Layout& layout, bool isNew);
    void showScrollView(RenderedNode& node, const ui::View& view, const ui::Layout& layout);
    void showButton(RenderedNode& node, const ui::View& view, const ui::Layout& layout, const ui::Action& action,
                    bool isNew);
    void place(RenderedNode& node, const ui::Layout& layout, bool isNew);

    NSView* m_container;
    std::shared_ptr<ui::ViewEnvironment> m_environment;
    NSView* m_last = nil;
    std::string m_context;
    std::vector<NSButton*> m_buttons;
    std::size_t m_changes = 0;
};

} // namespace appkitglue
