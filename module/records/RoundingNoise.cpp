#include "records/RoundingNoise.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tkvlt {

double RoundingNoise(std::initializer_list<AcGePoint3d> points) {
    double largest = 0.0;
    for (const AcGePoint3d& point : points) {
        largest = std::max({largest, std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
    }
    const double unit = std::nextafter(largest, std::numeric_limits<double>::infinity()) - largest;
    return std::isfinite(unit) ? 4.0 * unit : 0.0;
}

} // namespace tkvlt
