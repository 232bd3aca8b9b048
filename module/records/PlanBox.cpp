#include "records/PlanBox.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tkvlt {

namespace {

// Far above the rounding of a subtraction and a root, far below any distance that is drawn.
constexpr double kRelativeRounding = 1e-13;
/// The squares of smaller differences are lost, and with them the distance.
constexpr double kLeastDifference = 1e-150;
/// A search for the nearest starts with a distance like this, which passes for one that is too far
/// away to be measured.
constexpr double kStartOfNearest = 1e20;

/// `margin` and what rounding of coordinates up to `largest` may hide.
double WithRounding(double margin, double largest) {
    return margin + largest * kRelativeRounding + kLeastDifference;
}

} // namespace

PlanBox PlanBox::Everywhere() {
    constexpr double boundless = std::numeric_limits<double>::infinity();
    return {-boundless, -boundless, boundless, boundless};
}

PlanBox PlanBox::Around(const AcGePoint3d& point, double reach) {
    const double largest = std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(reach)});
    const double width = WithRounding(reach, largest);
    // Nought times a coordinate that is not finite is no number.
    if (reach >= kStartOfNearest ||
        !std::isfinite(0.0 * point.x + 0.0 * point.y + 0.0 * point.z + width)) {
        return Everywhere();
    }
    return {point.x - width, point.y - width, point.x + width, point.y + width};
}

PlanBox PlanBox::Widened(double margin) const {
    const double largest = std::max(
        {std::fabs(minX), std::fabs(minY), std::fabs(maxX), std::fabs(maxY), std::fabs(margin)});
    const double width = WithRounding(margin, largest);
    if (!std::isfinite(width)) {
        return Everywhere();
    }
    return {minX - width, minY - width, maxX + width, maxY + width};
}

} // namespace tkvlt
