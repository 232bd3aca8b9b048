#include "geometry/AcGePlane.h"
#include "geometry/AcGePoint3dArray.h"
#include "geometry/AcGeScale3d.h"

#include "Near.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using geometry_test::near;
using geometry_test::pi;

TEST(Vector, LengthAndProducts) {
    const AcGeVector3d v(2.0, 3.0, 6.0);
    EXPECT_EQ(v.length(), 7.0);
    EXPECT_EQ(v.lengthSqrd(), 49.0);
    EXPECT_EQ(v.dotProduct({1.0, -1.0, 2.0}), 11.0);
    EXPECT_TRUE(near(AcGeVector3d(1.0, 2.0, 3.0).crossProduct({4.0, 5.0, 6.0}),
                     AcGeVector3d(-3.0, 6.0, -3.0)));
    EXPECT_TRUE(
        near(AcGeVector3d::kXAxis.crossProduct(AcGeVector3d::kYAxis), AcGeVector3d::kZAxis));
}

TEST(Vector, Arithmetic) {
    AcGeVector3d v(1.0, 2.0, 3.0);
    v += AcGeVector3d(1.0, 1.0, 1.0);
    v -= AcGeVector3d(0.0, 1.0, 2.0);
    v *= 3.0;
    v /= 2.0;
    EXPECT_TRUE(near(v, AcGeVector3d(3.0, 3.0, 3.0)));
    EXPECT_TRUE(near(-v + 2.0 * v - v / 3.0, AcGeVector3d(2.0, 2.0, 2.0)));
    EXPECT_TRUE(near(v.negate(), AcGeVector3d(-3.0, -3.0, -3.0)));
}

TEST(Vector, NormalizingMakesUnitLength) {
    AcGeVector3d v(0.0, 3.0, 4.0);
    EXPECT_TRUE(near(v.normal(), AcGeVector3d(0.0, 0.6, 0.8)));
    EXPECT_TRUE(near(v.normalize(), AcGeVector3d(0.0, 0.6, 0.8)));
    EXPECT_TRUE(v.isUnitLength());
}

TEST(Vector, WithoutLengthItStaysAsItIs) {
    AcGeVector3d none;
    none.normalize();
    EXPECT_EQ(none.length(), 0.0);
    AcGeVector3d tiny(1.0e-11, 0.0, 0.0);
    EXPECT_EQ(tiny.normalize().x, 1.0e-11);
    AcGeVector3d small(0.01, 0.0, 0.0);
    EXPECT_EQ(small.normalize(AcGeTol().setEqualVector(0.1)).x, 0.01);
    EXPECT_EQ(small.normalize().x, 1.0);
    EXPECT_TRUE(none.isZeroLength());
    EXPECT_FALSE(small.isZeroLength());
}

TEST(Vector, AngleBetweenIsFromZeroToPi) {
    const AcGeVector3d x = AcGeVector3d::kXAxis;
    EXPECT_DOUBLE_EQ(AcGeVector3d(1.0, 1.0, 0.0).angleTo(x), pi / 4.0);
    EXPECT_DOUBLE_EQ(AcGeVector3d(1.0, -1.0, 0.0).angleTo(x), pi / 4.0);
    EXPECT_DOUBLE_EQ(AcGeVector3d(-5.0, 0.0, 0.0).angleTo(x), pi);
    EXPECT_DOUBLE_EQ(AcGeVector3d(0.0, 0.0, 2.0).angleTo(x), pi / 2.0);
    EXPECT_EQ(x.angleTo(x), 0.0);
    EXPECT_DOUBLE_EQ(AcGeVector3d(1.0, 1.0e-12, 0.0).angleTo(x), 1.0e-12)
        << "small angles keep their digits";
}

TEST(Vector, AngleWithAReferenceGoesAllRound) {
    const AcGeVector3d x = AcGeVector3d::kXAxis;
    const AcGeVector3d y = AcGeVector3d::kYAxis;
    const AcGeVector3d z = AcGeVector3d::kZAxis;
    EXPECT_DOUBLE_EQ(x.angleTo(y, z), pi / 2.0);
    EXPECT_DOUBLE_EQ(y.angleTo(x, z), 1.5 * pi);
    EXPECT_DOUBLE_EQ(x.angleTo(y, -z), 1.5 * pi);
    EXPECT_DOUBLE_EQ(x.angleTo(-x, z), pi);
    EXPECT_EQ(x.angleTo(x, z), 0.0);
    EXPECT_LT(x.angleTo({1.0, -1.0e-300, 0.0}, z), 2.0 * pi);
}

TEST(Vector, RotationIsRightHanded) {
    AcGeVector3d v(1.0, 0.0, 0.0);
    EXPECT_TRUE(near(v.rotateBy(pi / 2.0, AcGeVector3d::kZAxis), AcGeVector3d(0.0, 1.0, 0.0)));
    EXPECT_TRUE(near(v.rotateBy(pi / 2.0, {5.0, 0.0, 0.0}), AcGeVector3d(0.0, 0.0, 1.0)));
    AcGeVector3d diagonal(1.0, 0.0, 0.0);
    EXPECT_TRUE(
        near(diagonal.rotateBy(2.0 * pi / 3.0, {1.0, 1.0, 1.0}), AcGeVector3d(0.0, 1.0, 0.0)));
    AcGeVector3d kept(1.0, 2.0, 3.0);
    EXPECT_TRUE(near(kept.rotateBy(1.0, AcGeVector3d()), AcGeVector3d(1.0, 2.0, 3.0)));
}

TEST(Vector, DirectionsAgreeWithinTheTolerance) {
    const AcGeVector3d x = AcGeVector3d::kXAxis;
    const AcGeVector3d turned(std::cos(0.1), std::sin(0.1), 0.0);
    const AcGeTol below = AcGeTol().setEqualVector(0.0999);
    const AcGeTol above = AcGeTol().setEqualVector(0.1001);
    EXPECT_FALSE(x.isParallelTo(turned, below));
    EXPECT_TRUE(x.isParallelTo(turned, above));
    EXPECT_TRUE(x.isParallelTo(-turned, above));
    EXPECT_TRUE(x.isCodirectionalTo(turned, above));
    EXPECT_FALSE(x.isCodirectionalTo(-turned, above));
    EXPECT_FALSE(x.isCodirectionalTo(turned, below));
    EXPECT_FALSE(AcGeVector3d::kYAxis.isPerpendicularTo(turned, below));
    EXPECT_TRUE(AcGeVector3d::kYAxis.isPerpendicularTo(turned, above));
    EXPECT_TRUE(x.isPerpendicularTo({0.0, 3.0, -7.0}));
    EXPECT_TRUE(x.isParallelTo(AcGeVector3d()));
}

TEST(Vector, MirrorAndSetLength) {
    AcGeVector3d v(1.0, 2.0, 3.0);
    EXPECT_TRUE(near(v.mirror({0.0, 0.0, 2.0}), AcGeVector3d(1.0, 2.0, -3.0)));
    AcGeVector3d w(0.0, 6.0, 8.0);
    EXPECT_TRUE(near(w.setLength(5.0), AcGeVector3d(0.0, 3.0, 4.0)));
    EXPECT_TRUE(near(AcGeVector3d().setLength(5.0), AcGeVector3d()));
}

// The rule: with both x and y of the unit normal below 1/64, Y x normal, else Z x normal.
TEST(Vector, PerpendicularFollowsTheDrawingConvention) {
    EXPECT_TRUE(near(AcGeVector3d(0.0, 0.0, 1.0).perpVector(), AcGeVector3d(1.0, 0.0, 0.0)));
    EXPECT_TRUE(near(AcGeVector3d(0.0, 0.0, -9.0).perpVector(), AcGeVector3d(-1.0, 0.0, 0.0)));
    EXPECT_TRUE(near(AcGeVector3d(1.0, 0.0, 0.0).perpVector(), AcGeVector3d(0.0, 1.0, 0.0)));
    EXPECT_TRUE(near(AcGeVector3d(0.0, 1.0, 0.0).perpVector(), AcGeVector3d(-1.0, 0.0, 0.0)));
    // Just inside 1/64 = 0.015625: Y x (0.015, 0, z) = (z, 0, -0.015).
    const double z = std::sqrt(1.0 - 0.015 * 0.015);
    EXPECT_TRUE(near(AcGeVector3d(0.015, 0.0, z).perpVector(), AcGeVector3d(z, 0.0, -0.015)));
    // Just outside: Z x (0.016, 0, z) = (0, 0.016, 0), made unit.
    EXPECT_TRUE(near(AcGeVector3d(0.016, 0.0, std::sqrt(1.0 - 0.016 * 0.016)).perpVector(),
                     AcGeVector3d(0.0, 1.0, 0.0)));
    EXPECT_EQ(AcGeVector3d().perpVector().length(), 0.0);
}

TEST(Point, DistancesAndMoves) {
    AcGePoint3d p(1.0, 2.0, 3.0);
    EXPECT_EQ(p.distanceTo({3.0, 5.0, 9.0}), 7.0);
    EXPECT_TRUE(near(p - AcGePoint3d(0.0, 1.0, 1.0), AcGeVector3d(1.0, 1.0, 2.0)));
    EXPECT_TRUE(near(p + AcGeVector3d(1.0, 1.0, 1.0), AcGePoint3d(2.0, 3.0, 4.0)));
    EXPECT_TRUE(near(p - AcGeVector3d(1.0, 1.0, 1.0), AcGePoint3d(0.0, 1.0, 2.0)));
    EXPECT_TRUE(near(p * 2.0, AcGePoint3d(2.0, 4.0, 6.0)));
    EXPECT_TRUE(near(p.asVector(), AcGeVector3d(1.0, 2.0, 3.0)));
    EXPECT_EQ(p[0], 1.0);
    EXPECT_EQ(p[2], 3.0);
    p += AcGeVector3d(1.0, 0.0, 0.0);
    p -= AcGeVector3d(0.0, 1.0, 0.0);
    p *= 2.0;
    EXPECT_TRUE(near(p, AcGePoint3d(4.0, 2.0, 6.0)));
    EXPECT_TRUE(near(p.set(1.0, 1.0, 1.0), AcGePoint3d(1.0, 1.0, 1.0)));
}

TEST(Point, EqualWithinTheTolerance) {
    const AcGePoint3d p(1.0, 1.0, 0.0);
    EXPECT_TRUE(p == AcGePoint3d(1.0 + 0.9e-10, 1.0, 0.0));
    EXPECT_TRUE(p != AcGePoint3d(1.0 + 1.1e-10, 1.0, 0.0));
    EXPECT_TRUE(p.isEqualTo({1.3, 1.4, 0.0}, AcGeTol().setEqualPoint(0.51)));
    EXPECT_FALSE(p.isEqualTo({1.3, 1.4, 0.0}, AcGeTol().setEqualPoint(0.49)));
}

TEST(Point, TurnsMirrorsScalesProjects) {
    AcGePoint3d p(3.0, 1.0, 5.0);
    EXPECT_TRUE(near(p.rotateBy(pi / 2.0, AcGeVector3d::kZAxis, {1.0, 1.0, 0.0}),
                     AcGePoint3d(1.0, 3.0, 5.0)));
    const AcGePlane level({0.0, 0.0, 2.0}, {0.0, 0.0, 1.0});
    EXPECT_TRUE(near(p.orthoProject(level), AcGePoint3d(1.0, 3.0, 2.0)));
    EXPECT_TRUE(near(p.mirror(level), AcGePoint3d(1.0, 3.0, -1.0)));
    EXPECT_TRUE(near(p.scaleBy(2.0, {1.0, 1.0, 0.0}), AcGePoint3d(1.0, 5.0, -2.0)));
}

TEST(Point, FromAndToPlainNumbers) {
    const double numbers[3] = {1.0, 2.0, 3.0};
    double out[3] = {};
    asDblArray(asPnt3d(numbers), out);
    EXPECT_EQ(out[0], 1.0);
    EXPECT_EQ(out[1], 2.0);
    EXPECT_EQ(out[2], 3.0);
    AcGePoint3dArray points;
    points.append(asPnt3d(numbers));
    EXPECT_TRUE(points.contains({1.0, 2.0, 3.0}));
}

TEST(Scale, DefaultsToOneAndCompares) {
    EXPECT_EQ(AcGeScale3d().sx, 1.0);
    EXPECT_EQ(AcGeScale3d().sz, 1.0);
    EXPECT_EQ(AcGeScale3d(3.0).sy, 3.0);
    EXPECT_TRUE(AcGeScale3d(2.0, -2.0, 2.0).isProportional());
    EXPECT_FALSE(AcGeScale3d(2.0, 2.0, 3.0).isProportional());
    EXPECT_TRUE(AcGeScale3d(1.0, 2.0, 4.0) * AcGeScale3d(1.0, 2.0, 4.0).inverse() ==
                AcGeScale3d::kIdentity);
    EXPECT_FALSE(AcGeScale3d(1.0, 2.0, 3.0) == AcGeScale3d(1.0, 2.0, 3.1));
}

} // namespace
