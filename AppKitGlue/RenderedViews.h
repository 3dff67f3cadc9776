// The AppKit views that declarative views become.
#pragma once

#import <AppKit/AppKit.h>

#include "ViewLayout.h"

#include <memory>

/// A label: a text field that cannot be edited and draws its text exactly in its frame.
@interface QVTextLabel : NSTextField {
@private
    std::unique_ptr<appkitglue::ui::Text> _text;
}
- (void)showText:(const appkitglue::ui::Text &)text;
- (NSString *)accessibilityLabel;
@end

/// A rounded rectangle, filled or stroked; lets clicks through.
@interface QVShapeView : NSView {
@private
    std::unique_ptr<appkitglue::ui::RoundedRectangle> _shape;
}
- (void)showShape:(const appkitglue::ui::RoundedRectangle &)shape;
@end

/// A button, or anything else that can be tapped: a real button that draws the described label, presses on Space and
/// Return, shows when it is pressed and when it has the keys, and comes into sight when it gets them.
@interface QVLabelButton : NSButton {
@private
    std::unique_ptr<appkitglue::ui::View> _label;
    std::unique_ptr<appkitglue::ui::Layout> _layout;
    std::function<void()> _perform;
    std::string _context;
}
/// `layout` is that of the label; `context` says what is near the button, for those who cannot see it.
- (void)showLabel:(const appkitglue::ui::View &)label
           layout:(const appkitglue::ui::Layout &)layout
          context:(const std::string &)context;
- (void)setPerform:(std::function<void()>)perform;
- (NSString *)accessibilityLabel;
/// Draws the label; called by the button's cell.
- (void)drawLabelPressed:(BOOL)pressed;
@end

/// A view whose y grows downwards, as declarative layouts do.
@interface QVFlippedView : NSView
@end

namespace appkitglue::ui {

/// Draws a shape in `rect` of the focused, flipped view.
void drawShape(const RoundedRectangle &shape, NSRect rect);

inline NSRect toNSRect(const Rect &rect) {
    return NSMakeRect(rect.x, rect.y, rect.width, rect.height);
}

} // namespace appkitglue::ui
