// The fonts and colours behind the roles of declarative views, and how large texts are in them.
#pragma once

#import <AppKit/AppKit.h>

#include "ViewLayout.h"

namespace appkitglue::ui {

/// The font of a role. Autoreleased.
NSFont *fontFor(FontRole role);

/// The colour of a role in the current appearance. Autoreleased.
NSColor *colorFor(ColorRole role);

/// The same colour for texts and lines on a window's background: an accent that could hardly be seen there is moved
/// towards the colour of texts. Autoreleased.
NSColor *inkFor(ColorRole role);

/// The text in its font and colour. Autoreleased.
NSAttributedString *attributedText(const Text &text);

/// What the layout has to know of AppKit. Sizes are remembered by the returned value and are whole points.
LayoutEnvironment appKitLayoutEnvironment();

/// A view environment that opens addresses with the workspace; text that is no address is left alone.
ViewEnvironment workspaceEnvironment();

} // namespace appkitglue::ui
