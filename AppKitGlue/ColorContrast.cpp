#include "ColorContrast.h"

#include <algorithm>
#include <cmath>

namespace appkitglue {

namespace {

double linear(double component) {
    return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(RGB color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

RGB mixed(RGB a, RGB b, double share) {
    return {std::lerp(a.red, b.red, share), std::lerp(a.green, b.green, share), std::lerp(a.blue, b.blue, share)};
}

} // namespace

double contrastRatio(RGB a, RGB b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

double inkNeeded(RGB color, RGB ink, RGB background) {
    if (contrastRatio(color, background) >= 3)
        return 0;
    int tenths = 1;
    while (tenths < 10 && contrastRatio(mixed(color, ink, tenths / 10.0), background) < 4.5)
        tenths++;
    return tenths / 10.0;
}

} // namespace appkitglue
