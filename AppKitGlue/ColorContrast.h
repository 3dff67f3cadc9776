// How well one colour can be told from another.
#pragma once

namespace appkitglue {

/// A colour by its sRGB components, 0 to 1.
struct RGB {
    double red = 0;
    double green = 0;
    double blue = 0;
};

/// The contrast of two colours as the Web Content Accessibility Guidelines define it: 1 (equal) to 21 (black, white).
double contrastRatio(RGB a, RGB b);

/// How much of `ink` has to be mixed into `color`, 0 to 1 in tenths, so that it can be read on `background` (4.5). 0 if
/// it stands out as it is (3): a given colour is changed only where it could hardly be seen.
double inkNeeded(RGB color, RGB ink, RGB background);

} // namespace appkitglue
