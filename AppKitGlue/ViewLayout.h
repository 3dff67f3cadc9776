// Where the views of a tree stand: sizes are proposed from the outside in and chosen from the inside out.
#pragma once

#include "ViewTree.h"

namespace appkitglue::ui {

/// In points.
struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

/// In points; y grows downwards.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// What the layout has to know of where it will be shown.
struct LayoutEnvironment {
    /// The size of a text in the font of this role, broken into lines of at most `width` points (infinity: one line).
    std::function<Size(const std::string& text, FontRole font, double width)> measure;
    /// How much of a scroll view's width its indicator takes.
    double scrollerWidth = 0;
};

/// A laid-out view; the children stand in the order of the view's children.
struct Layout {
    /// Relative to the whole screen; inside a scroll view relative to the scrolled content.
    Rect frame;
    std::vector<Layout> children;
    friend bool operator==(const Layout&, const Layout&) = default;
};

/// Lays `view` out in `size`. What is smaller is centred, what is larger begins at the top left corner.
Layout layOut(const View& view, Size size, const LayoutEnvironment& environment);

/// The smallest size that `view` needs on its own: texts in one line, scroll views as large as their content.
Size idealSize(const View& view, const LayoutEnvironment& environment);

} // namespace appkitglue::ui
