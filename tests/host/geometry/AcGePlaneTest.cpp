#include "geometry/AcGePlane.h"

#include "geometry/AcGeLine3d.h"
#include "geometry/AcGeLineSeg3d.h"
#include "geometry/AcGeMatrix3d.h"
#include "Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using geometry_test::near;
using geometry_test::pi;

TEST(Plane, DistancesAndFeet) {
    const AcGePlane plane({0.0, 0.0, 5.0}, {0.0, 0.0, 2.0});
    EXPECT_TRUE(near(plane.normal(), AcGeVector3d(0.0, 0.0, 1.0)));
    EXPECT_EQ(plane.signedDistanceTo({1.0, 2.0, 8.0}), 3.0);
    EXPECT_EQ(plane.signedDistanceTo({1.0, 2.0, 1.0}), -4.0);
    EXPECT_EQ(plane.distanceTo({1.0, 2.0, 1.0}), 4.0);
    EXPECT_TRUE(near(plane.closestPointTo({1.0, 2.0, 1.0}), AcGePoint3d(1.0, 2.0, 5.0)));
    EXPECT_EQ(plane.isOn({7.0, 7.0, 5.0 + 0.9e-10}), 1);
    EXPECT_EQ(plane.isOn({7.0, 7.0, 5.0 + 1.1e-10}), 0);
}

TEST(Plane, GivesBackItsAxes) {
    AcGePoint3d origin;
    AcGeVector3d u;
    AcGeVector3d v;
    AcGePlane({1.0, 2.0, 3.0}, {0.0, 2.0, 0.0}, {0.0, 0.0, 2.0}).get(origin, u, v);
    EXPECT_TRUE(near(origin, AcGePoint3d(1.0, 2.0, 3.0)));
    EXPECT_TRUE(near(u, AcGeVector3d(0.0, 2.0, 0.0)));
    EXPECT_TRUE(near(v, AcGeVector3d(0.0, 0.0, 2.0)));
    AcGePlane({1.0, 2.0, 3.0}, AcGeVector3d::kXAxis).getCoordSystem(origin, u, v);
    EXPECT_TRUE(near(u, AcGeVector3d(0.0, 1.0, 0.0)));
    EXPECT_TRUE(near(v, AcGeVector3d(0.0, 0.0, 1.0)));
}

TEST(Plane, MeetsLines) {
    const AcGePlane plane({0.0, 0.0, 1.0}, AcGeVector3d::kZAxis);
    AcGePoint3d point(9.0, 9.0, 9.0);
    EXPECT_EQ(
        plane.intersectWith(AcGeLineSeg3d({0.0, 0.0, 0.0}, AcGePoint3d(4.0, 0.0, 4.0)), point), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(1.0, 0.0, 1.0)));
    point.set(9.0, 9.0, 9.0);
    const AcGeLineSeg3d below({0.0, 0.0, 0.0}, AcGePoint3d(0.0, 0.0, 0.5));
    EXPECT_EQ(plane.intersectWith(below, point), 0);
    EXPECT_TRUE(near(point, AcGePoint3d(9.0, 9.0, 9.0))) << "nothing is written";
    EXPECT_EQ(plane.intersectWith(below, point, AcGeTol().setEqualPoint(0.6)), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(0.0, 0.0, 0.5))) << "the place is on the line";
    AcGeLine3d line;
    below.getLine(line);
    EXPECT_EQ(plane.intersectWith(line, point), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(0.0, 0.0, 1.0)));
    EXPECT_EQ(plane.intersectWith(AcGeLine3d({0.0, 0.0, 1.0}, AcGeVector3d::kXAxis), point), 0)
        << "parallel";
}

TEST(Plane, ComparesWithPlanes) {
    const AcGePlane level;
    EXPECT_EQ(level.isParallelTo(AcGePlane({0.0, 0.0, 3.0}, {0.0, 0.0, -1.0})), 1);
    EXPECT_EQ(level.isCoplanarTo(AcGePlane({0.0, 0.0, 3.0}, {0.0, 0.0, -1.0})), 0);
    EXPECT_EQ(level.isCoplanarTo(AcGePlane({8.0, 9.0, 0.0}, {0.0, 0.0, -1.0})), 1);
    EXPECT_EQ(level.isParallelTo(AcGePlane({0.0, 0.0, 0.0}, {0.0, 1.0, 1.0})), 0);
}

TEST(Plane, IsCarriedAlong) {
    AcGePlane plane({0.0, 0.0, 1.0}, AcGeVector3d::kZAxis);
    plane.rotateBy(pi / 2.0, AcGeVector3d::kXAxis);
    EXPECT_TRUE(near(plane.normal(), AcGeVector3d(0.0, -1.0, 0.0)));
    EXPECT_TRUE(near(plane.pointOnPlane(), AcGePoint3d(0.0, -1.0, 0.0)));
    const std::unique_ptr<AcGeEntity3d> copy(plane.copy());
    EXPECT_EQ(copy->type(), AcGe::kPlane);
    EXPECT_EQ(copy->isKindOf(AcGe::kEntity3d), 1);
    EXPECT_EQ(copy->isKindOf(AcGe::kCurve3d), 0);
    EXPECT_EQ(copy->isOn({5.0, -1.0, 5.0}), 1);
}

TEST(Plane, AnglesAreCountedFromItsFirstAxis) {
    const AcGePlane level;
    EXPECT_DOUBLE_EQ(AcGeVector3d(0.0, 2.0, 7.0).angleOnPlane(level), pi / 2.0);
    EXPECT_DOUBLE_EQ(AcGeVector3d(1.0, -1.0, 0.0).angleOnPlane(level), 1.75 * pi);
    EXPECT_EQ(AcGeVector3d(0.0, 0.0, 3.0).angleOnPlane(level), 0.0);
    const AcGePlane under(AcGePoint3d::kOrigin, -AcGeVector3d::kZAxis);
    EXPECT_DOUBLE_EQ(AcGeVector3d(1.0, 0.0, 0.0).angleOnPlane(under), pi);
    EXPECT_DOUBLE_EQ(AcGeVector3d(0.0, 1.0, 0.0).angleOnPlane(under), pi / 2.0);
}

// A vector at angle a in the object coordinates of a normal must measure a on the plane with that
// normal: the two ways to a database arc's angle agree.
TEST(Plane, AnglesAgreeWithObjectCoordinatesForAnyNormal) {
    for (int i = -6; i <= 6; ++i) {
        for (int j = 0; j < 24; ++j) {
            const double height = i / 6.0;
            const double around = j * pi / 12.0 + 0.01;
            const double wide = std::sqrt(1.0 - height * height) + 1.0e-3;
            const AcGeVector3d normal(wide * std::cos(around), wide * std::sin(around), height);
            const double angle = 0.25 * j + 0.1;
            AcGeVector3d vector(std::cos(angle), std::sin(angle), 0.0);
            vector.transformBy(AcGeMatrix3d::planeToWorld(normal));
            ASSERT_NEAR(vector.angleOnPlane(AcGePlane({1.0, 2.0, 3.0}, normal)), angle, 1.0e-12);
        }
    }
}

} // namespace
