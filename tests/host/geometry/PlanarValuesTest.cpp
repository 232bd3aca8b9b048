#include "geometry/AcGeInterval.h"
#include "geometry/AcGePoint2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

constexpr double pi = std::numbers::pi;

TEST(PlanarVector, LengthAnglesAndProducts) {
    const AcGeVector2d v(3.0, 4.0);
    EXPECT_EQ(v.length(), 5.0);
    EXPECT_EQ(v.dotProduct({2.0, 1.0}), 10.0);
    EXPECT_EQ(v.perpVector().x, -4.0);
    EXPECT_EQ(v.perpVector().y, 3.0);
    EXPECT_DOUBLE_EQ(AcGeVector2d(0.0, -1.0).angle(), 1.5 * pi);
    EXPECT_EQ(AcGeVector2d().angle(), 0.0);
    EXPECT_DOUBLE_EQ(AcGeVector2d(1.0, 1.0).angleTo({1.0, -1.0}), pi / 2.0);
    EXPECT_DOUBLE_EQ(v.normal().x, 0.6);
    EXPECT_EQ(AcGeVector2d(1.0e-11, 0.0).normal().x, 1.0e-11);
    EXPECT_TRUE(AcGeVector2d(1.0, 2.0) - AcGeVector2d(0.0, 1.0) == AcGeVector2d(1.0, 1.0));
    EXPECT_TRUE(AcGeVector2d(1.0, 2.0) + -AcGeVector2d(1.0, 1.0) == AcGeVector2d::kYAxis);
    EXPECT_TRUE(2.0 * AcGeVector2d(1.0, 2.0) / 4.0 == AcGeVector2d(0.5, 1.0));
    EXPECT_TRUE(AcGeVector2d(1.0, 0.0).rotateBy(pi / 2.0) == AcGeVector2d::kYAxis);
    EXPECT_TRUE(AcGeVector2d(1.0, 2.0).negate() == AcGeVector2d(-1.0, -2.0));
}

TEST(PlanarPoint, DistanceEqualityAndTurns) {
    AcGePoint2d p(1.0, 2.0);
    EXPECT_EQ(p.distanceTo({4.0, 6.0}), 5.0);
    EXPECT_TRUE(p == AcGePoint2d(1.0, 2.0 + 0.9e-10));
    EXPECT_FALSE(p == AcGePoint2d(1.0, 2.0 + 1.1e-10));
    EXPECT_TRUE(AcGePoint2d(1.0e7, 0.0) == AcGePoint2d(1.0e7 + 0x1p-28, 0.0));
    EXPECT_TRUE(p + AcGeVector2d(1.0, 1.0) == AcGePoint2d(2.0, 3.0));
    EXPECT_TRUE(p - AcGeVector2d(1.0, 1.0) == AcGePoint2d(0.0, 1.0));
    EXPECT_TRUE(p * 2.0 == AcGePoint2d(2.0, 4.0));
    EXPECT_TRUE(p.asVector() == AcGeVector2d(1.0, 2.0));
    EXPECT_TRUE(p.rotateBy(pi / 2.0, {1.0, 1.0}) == AcGePoint2d(0.0, 1.0));
}

TEST(Interval, BoundsAndMembership) {
    const AcGeInterval range(1.0, 3.0);
    EXPECT_TRUE(range.isBounded());
    EXPECT_EQ(range.length(), 2.0);
    EXPECT_TRUE(range.contains(1.0));
    EXPECT_TRUE(range.contains(3.0));
    EXPECT_FALSE(range.contains(std::nextafter(3.0, 4.0)));
    EXPECT_EQ(range.clamp(0.0), 1.0);
    EXPECT_EQ(range.clamp(2.0), 2.0);
    EXPECT_EQ(range.clamp(9.0), 3.0);
    const AcGeInterval everything;
    EXPECT_FALSE(everything.isBoundedBelow());
    EXPECT_FALSE(everything.isBoundedAbove());
    EXPECT_EQ(everything.clamp(-1.0e300), -1.0e300);
}

} // namespace
