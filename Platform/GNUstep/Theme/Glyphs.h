// The small pictures that AppKit's controls look up by name.
#pragma once

namespace flattheme {

/// Replaces the named images of check boxes, radio buttons, arrows, check marks and slider knobs. They draw themselves
/// in the palette in use; call it again after a theme has been activated, which loads its own ones.
void installGlyphs();

} // namespace flattheme
