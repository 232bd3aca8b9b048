#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace host_geometry {

double roundingNoise(std::initializer_list<AcGePoint3d> points) {
    double largest = 0.0;
    for (const AcGePoint3d& point : points) {
        largest = std::max({largest, std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
    }
    constexpr double unitsInTheLastPlace = 4.0;
    // The next larger number, without asking the library.
    const auto above = std::bit_cast<double>(std::bit_cast<std::uint64_t>(largest) + 1);
    const double noise = unitsInTheLastPlace * (above - largest);
    return std::isfinite(noise) ? noise : 0.0;
}

double meetingDistance(const AcGeTol& tol, double noise) {
    return std::max(tol.equalPoint(), noise);
}

double agreeingAngle(const AcGeTol& tol, double noise, double shorterLength) {
    if (shorterLength <= 0.0) {
        return std::numeric_limits<double>::infinity();
    }
    return std::max(tol.equalVector(), noise / shorterLength);
}

} // namespace host_geometry
