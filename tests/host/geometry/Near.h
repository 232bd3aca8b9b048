#pragma once

#include "geometry/AcGePoint3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace geometry_test {

inline constexpr double pi = std::numbers::pi;

/// Whether two triples of coordinates differ by no more than `allowed` each.
template<class Triple>
testing::AssertionResult near(const Triple& actual, const Triple& expected,
                              double allowed = 1.0e-12) {
    if (std::fabs(actual.x - expected.x) <= allowed &&
        std::fabs(actual.y - expected.y) <= allowed &&
        std::fabs(actual.z - expected.z) <= allowed) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "(" << actual.x << ", " << actual.y << ", " << actual.z << ") instead of ("
           << expected.x << ", " << expected.y << ", " << expected.z << ")";
}

/// Whether the coordinates are the very same numbers.
inline bool same(const AcGePoint3d& a, const AcGePoint3d& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

} // namespace geometry_test
