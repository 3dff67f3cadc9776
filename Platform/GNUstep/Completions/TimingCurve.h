// The pace of an animation: a cubic curve from (0, 0) to (1, 1).
#pragma once

namespace platform::animation {

/// The curve's two inner control points. The default is "ease in, ease out".
struct TimingCurve {
    double x1 = 0.42;
    double y1 = 0;
    double x2 = 0.58;
    double y2 = 1;

    /// How far an animation is (0 to 1, beyond for curves that overshoot) when `time` (0 to 1) of its duration is over.
    [[nodiscard]] double at(double time) const;
};

} // namespace platform::animation
