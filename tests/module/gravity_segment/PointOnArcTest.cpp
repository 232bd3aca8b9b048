#include "gravity/GetPointOnArcAtDist.h"

#include "module/support/Compare.h"

namespace module_tests {
namespace {

using tkvlt::GetPointOnArcAtDist;

constexpr double kQuarter = 0.41421356237309503; // tan(pi / 8)
constexpr double kQuarterLength = 15.707963267948966;
constexpr double kHalfRoot = 7.0710678118654755; // 10 at 45 degrees

class PointOnArc : public ::testing::Test {
protected:
    AcGePoint3d point{77, 78, 79};
};

const AcGeVector3d kUp(0, 0, 1);

/// From (10, 0) over 45 degrees to (0, 10).
AcGeCircArc3d counterClockwise() {
    return AcGeCircArc3d::fromBulge({10, 0, 0}, {0, 10, 0}, kQuarter, kUp);
}

TEST_F(PointOnArc, DistanceCountsFromTheStartAlongTheArc) {
    EXPECT_EQ(GetPointOnArcAtDist(counterClockwise(), kQuarterLength / 2, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {kHalfRoot, kHalfRoot, 0}));
    EXPECT_EQ(GetPointOnArcAtDist(counterClockwise(), kQuarterLength / 3, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {8.660254037844386, 5, 0})); // at 30 degrees
}

TEST_F(PointOnArc, StartAndEndBelongToTheArc) {
    EXPECT_EQ(GetPointOnArcAtDist(counterClockwise(), 0.0, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {10, 0, 0}));
    EXPECT_EQ(GetPointOnArcAtDist(counterClockwise(), kQuarterLength - 1e-9, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {0, 10, 0}, 1e-8));
}

TEST_F(PointOnArc, DistanceOffTheArcGivesAStatusAndLeavesThePoint) {
    EXPECT_NE(GetPointOnArcAtDist(counterClockwise(), kQuarterLength + 0.1, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {77, 78, 79}, 0.0));
    EXPECT_NE(GetPointOnArcAtDist(counterClockwise(), -0.1, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {77, 78, 79}, 0.0));
}

TEST_F(PointOnArc, ClockwiseArcCountsFromItsOwnStart) {
    const auto arc = AcGeCircArc3d::fromBulge({0, 10, 0}, {10, 0, 0}, -kQuarter, kUp);
    EXPECT_EQ(GetPointOnArcAtDist(arc, kQuarterLength / 3, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {5, 8.660254037844386, 0})); // 30 degrees on from 90
}

TEST_F(PointOnArc, ReferenceVectorTurnsTheAngles) {
    const AcGeCircArc3d arc({1, 2, 3}, kUp, {0, 1, 0}, 10, 0, kPi / 2);
    EXPECT_EQ(GetPointOnArcAtDist(arc, kQuarterLength / 2, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {1 - kHalfRoot, 2 + kHalfRoot, 3}));
}

TEST_F(PointOnArc, StartAngleOtherThanZeroIsTakenIn) {
    const AcGeCircArc3d arc({0, 0, 0}, kUp, {1, 0, 0}, 10, kPi / 2, kPi);
    EXPECT_EQ(GetPointOnArcAtDist(arc, kQuarterLength / 2, point), Acad::eOk);
    EXPECT_TRUE(samePoint(point, {-kHalfRoot, kHalfRoot, 0}));
}

} // namespace
} // namespace module_tests
