#include "TimingCurve.h"

namespace platform::animation {

namespace {

double bezier(double s, double first, double second) {
    const double rest = 1 - s;
    return 3 * rest * rest * s * first + 3 * rest * s * s * second + s * s * s;
}

} // namespace

double TimingCurve::at(double time) const {
    if (time <= 0 || time >= 1) {
        return time <= 0 ? 0 : 1;
    }
    double low = 0;
    double high = 1;
    for (int step = 0; step < 30; ++step) {
        const double middle = (low + high) / 2;
        (bezier(middle, x1, x2) < time ? low : high) = middle;
    }
    return bezier((low + high) / 2, y1, y2);
}

} // namespace platform::animation
