#include "records/PipeLength.h"

#include <gtest/gtest.h>

namespace module_tests {
namespace {

using tkvlt::LengthAlong;

constexpr double kQuarterTurn = 1.5707963267948966;

AcGeLineSeg3d between(const AcGePoint3d& from, const AcGePoint3d& to) {
    return {from, to};
}

/// A quarter of a circle of radius 10 about (100, 0), counter-clockwise from its rightmost point.
AcGeCircArc3d quarter() {
    return {AcGePoint3d(100, 0, 0),
            AcGeVector3d(0, 0, 1),
            AcGeVector3d(1, 0, 0),
            10.0,
            0.0,
            kQuarterTurn};
}

TEST(LengthAlong, BetweenTwoPlacesOfASegmentIsTheirDistance) {
    const AcGeLineSeg3d segment = between({1, 2, 3}, {4, 6, 15}); // 3, 4, 12: 13 long
    EXPECT_DOUBLE_EQ(LengthAlong(segment, {1, 2, 3}, {4, 6, 15}), 13.0);
    // The middle is (2.5, 4, 9).
    EXPECT_DOUBLE_EQ(LengthAlong(segment, {2.5, 4, 9}, {4, 6, 15}), 6.5);
}

TEST(LengthAlong, MissesAreAdded) {
    const AcGeLineSeg3d segment = between({0, 0, 0}, {10, 0, 0});
    // Feet at 1 and 8; 2 beside and 5 above.
    EXPECT_DOUBLE_EQ(LengthAlong(segment, {1, 2, 0}, {8, 0, 5}), 14.0);
    // Beyond both ends, by 6 and by (3, 4).
    EXPECT_DOUBLE_EQ(LengthAlong(segment, {-6, 0, 0}, {13, 4, 0}), 21.0);
    EXPECT_DOUBLE_EQ(LengthAlong(segment, {13, 4, 0}, {-6, 0, 0}), 21.0);
}

TEST(LengthAlong, AnArcIsMeasuredAlongItself) {
    const AcGeCircArc3d arc = quarter();
    EXPECT_NEAR(LengthAlong(arc, {110, 0, 0}, {100, 10, 0}), 10.0 * kQuarterTurn, 1e-9);
    // From half way, a radius of 12, so 2 outside, to the end: an eighth of the circle and the 2.
    const double atHalf = 12.0 * 0.70710678118654752;
    EXPECT_NEAR(LengthAlong(arc, {100 + atHalf, atHalf, 0}, {100, 10, 0}), 5.0 * kQuarterTurn + 2.0,
                1e-9);
}

TEST(LengthAlong, APointBeyondAnArcMissesByTheWayToItsNearerEnd) {
    // 3 below the start and 4 to its right: 5 away, and nearest to the start.
    EXPECT_NEAR(LengthAlong(quarter(), {114, -3, 0}, {110, 0, 0}), 5.0, 1e-9);
}

TEST(LengthAlong, ASegmentWithoutLengthLeavesTheTwoMisses) {
    const AcGeLineSeg3d segment = between({1, 1, 0}, {1, 1, 0});
    EXPECT_DOUBLE_EQ(LengthAlong(segment, {4, 5, 0}, {1, 13, 0}), 17.0); // 5 and 12
}

} // namespace
} // namespace module_tests
