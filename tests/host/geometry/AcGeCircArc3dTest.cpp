#include "geometry/AcGeCircArc3d.h"

#include "geometry/AcGeLineSeg3d.h"
#include "geometry/AcGeMatrix3d.h"
#include "Near.h"
#include "platform/PlatformException.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using geometry_test::near;
using geometry_test::pi;
using geometry_test::same;

const AcGeVector3d up(0.0, 0.0, 1.0);

/// The arc about (10, 20, 3) with radius 5 from 90 to 180 degrees.
AcGeCircArc3d quarter() {
    return {AcGePoint3d(10.0, 20.0, 3.0), up, AcGeVector3d::kXAxis, 5.0, pi / 2.0, pi};
}

TEST(Arc, DefaultIsTheUnitCircle) {
    const AcGeCircArc3d arc;
    EXPECT_TRUE(same(arc.center(), {0.0, 0.0, 0.0}));
    EXPECT_EQ(arc.radius(), 1.0);
    EXPECT_EQ(arc.startAng(), 0.0);
    EXPECT_EQ(arc.endAng(), 2.0 * pi);
    EXPECT_EQ(arc.isClosed(), 1);
    EXPECT_EQ(arc.length(), 2.0 * pi);
}

TEST(Arc, CopiesStandAlone) {
    AcGeCircArc3d arc = quarter();
    const AcGeCircArc3d copy(arc);
    AcGeCircArc3d assigned;
    assigned = arc;
    const AcGeCircArc3d& itself = assigned;
    assigned = itself;
    arc.reverseParam();
    for (const AcGeCircArc3d* other : {&copy, static_cast<const AcGeCircArc3d*>(&assigned)}) {
        EXPECT_TRUE(near(other->startPoint(), AcGePoint3d(10.0, 25.0, 3.0)));
        EXPECT_TRUE(near(other->endPoint(), AcGePoint3d(5.0, 20.0, 3.0)));
        EXPECT_TRUE(near(other->normal(), up));
        EXPECT_EQ(other->radius(), 5.0);
    }
    EXPECT_TRUE(near(arc.startPoint(), AcGePoint3d(5.0, 20.0, 3.0)));
}

TEST(Arc, BecomesTheUnitCircleByAssignment) {
    AcGeCircArc3d arc = quarter();
    arc = AcGeCircArc3d();
    EXPECT_EQ(arc.radius(), 1.0);
    EXPECT_TRUE(same(arc.center(), {0.0, 0.0, 0.0}));
    const AcGeCircArc3d unit;
    AcGeCircArc3d other = quarter();
    other = unit;
    other.translateBy({1.0, 0.0, 0.0}); // the unit circle itself stays where it is
    EXPECT_TRUE(near(other.center(), AcGePoint3d(1.0, 0.0, 0.0)));
    EXPECT_TRUE(same(unit.center(), {0.0, 0.0, 0.0}));
    EXPECT_TRUE(same(AcGeCircArc3d().center(), {0.0, 0.0, 0.0}));
}

TEST(Arc, IsSetByItsOwnValues) {
    AcGeCircArc3d arc = quarter();
    arc.set(arc.center(), arc.normal(), arc.refVec(), arc.radius(), arc.endAng(), arc.startAng());
    EXPECT_TRUE(near(arc.startPoint(), AcGePoint3d(5.0, 20.0, 3.0)));
    EXPECT_TRUE(near(arc.endPoint(), AcGePoint3d(10.0, 25.0, 3.0)));
    EXPECT_DOUBLE_EQ(arc.sweepAng(), 1.5 * pi);
}

TEST(Arc, TheUnitCircleCanBeTurnedRound) {
    AcGeCircArc3d circle;
    circle.reverseParam();
    EXPECT_TRUE(near(circle.normal(), -up));
    EXPECT_EQ(circle.startAng(), -2.0 * pi);
    EXPECT_EQ(circle.endAng(), 0.0);
    EXPECT_TRUE(near(AcGeCircArc3d().normal(), up));
}

TEST(Arc, FromCentreAndAngles) {
    const AcGeCircArc3d arc = quarter();
    EXPECT_TRUE(near(arc.startPoint(), AcGePoint3d(10.0, 25.0, 3.0)));
    EXPECT_TRUE(near(arc.endPoint(), AcGePoint3d(5.0, 20.0, 3.0)));
    EXPECT_DOUBLE_EQ(arc.length(), 2.5 * pi);
    EXPECT_DOUBLE_EQ(arc.length(pi / 2.0, 0.75 * pi), 1.25 * pi);
    EXPECT_DOUBLE_EQ(arc.length(pi, pi / 2.0, AcGeContext::gTol), 2.5 * pi);
    EXPECT_TRUE(near(arc.evalPoint(0.75 * pi),
                     AcGePoint3d(10.0 - std::sqrt(12.5), 20.0 + std::sqrt(12.5), 3.0)));
    EXPECT_EQ(arc.isClosed(), 0);
}

TEST(Arc, AnglesAlwaysGrow) {
    const AcGeCircArc3d past({0.0, 0.0, 0.0}, up, AcGeVector3d::kXAxis, 1.0, 1.5 * pi, 0.5 * pi);
    EXPECT_DOUBLE_EQ(past.endAng(), 2.5 * pi);
    EXPECT_DOUBLE_EQ(past.sweepAng(), pi);
    const AcGeCircArc3d whole({0.0, 0.0, 0.0}, up, AcGeVector3d::kXAxis, 1.0, 1.0, 1.0);
    EXPECT_DOUBLE_EQ(whole.sweepAng(), 2.0 * pi);
    EXPECT_TRUE(same(whole.startPoint(), whole.endPoint()));
    const AcGeCircArc3d cut({0.0, 0.0, 0.0}, up, AcGeVector3d::kXAxis, 1.0, 0.0, 9.0 * pi);
    EXPECT_DOUBLE_EQ(cut.sweepAng(), 2.0 * pi);
    const AcGeCircArc3d vectors({0.0, 0.0, 0.0}, {0.0, 0.0, 4.0}, {0.0, 3.0, 0.0}, 1.0, 0.0, 1.0);
    EXPECT_TRUE(near(vectors.normal(), up));
    EXPECT_TRUE(near(vectors.refVec(), AcGeVector3d::kYAxis));
}

TEST(Arc, ACircleStartsOnTheConventionsFirstAxis) {
    const AcGeCircArc3d arc({1.0, 0.0, 0.0}, -up, 2.0);
    EXPECT_TRUE(near(arc.refVec(), AcGeVector3d(-1.0, 0.0, 0.0)));
    EXPECT_TRUE(near(arc.startPoint(), AcGePoint3d(-1.0, 0.0, 0.0)));
    EXPECT_EQ(arc.isClosed(), 1);
    EXPECT_EQ(arc.isOn({1.0, 2.0, 0.0}), 1);
}

// A bulge of 1 is half a circle. Turning left from (0, 0) to (2, 0) it hangs below the chord.
TEST(BulgeArc, HalfCircles) {
    const AcGePoint3d start(0.0, 0.0, 7.0);
    const AcGePoint3d end(2.0, 0.0, 7.0);
    const AcGeCircArc3d left = AcGeCircArc3d::fromBulge(start, end, 1.0, up);
    EXPECT_TRUE(near(left.center(), AcGePoint3d(1.0, 0.0, 7.0)));
    EXPECT_DOUBLE_EQ(left.radius(), 1.0);
    EXPECT_TRUE(near(left.normal(), up));
    EXPECT_TRUE(near(left.evalPoint(pi / 2.0), AcGePoint3d(1.0, -1.0, 7.0)));
    const AcGeCircArc3d right = AcGeCircArc3d::fromBulge(start, end, -1.0, up);
    EXPECT_TRUE(near(right.normal(), -up)) << "a negative bulge flips the normal";
    EXPECT_TRUE(near(right.evalPoint(pi / 2.0), AcGePoint3d(1.0, 1.0, 7.0)));
}

// tan(22.5 degrees) = sqrt(2) - 1 gives a quarter circle: from (5, 0) to (0, 5) about the origin.
TEST(BulgeArc, QuarterCircleBothWays) {
    const double bulge = std::sqrt(2.0) - 1.0;
    const AcGePoint3d east(5.0, 0.0, 0.0);
    const AcGePoint3d north(0.0, 5.0, 0.0);
    const AcGeCircArc3d arc = AcGeCircArc3d::fromBulge(east, north, bulge, up);
    EXPECT_TRUE(near(arc.center(), AcGePoint3d(0.0, 0.0, 0.0)));
    EXPECT_NEAR(arc.radius(), 5.0, 1.0e-14);
    EXPECT_TRUE(near(arc.refVec(), AcGeVector3d(1.0, 0.0, 0.0)));
    EXPECT_EQ(arc.startAng(), 0.0);
    EXPECT_NEAR(arc.endAng(), pi / 2.0, 1.0e-14);
    const AcGeCircArc3d back = AcGeCircArc3d::fromBulge(north, east, -bulge, up);
    EXPECT_TRUE(near(back.center(), AcGePoint3d(0.0, 0.0, 0.0)));
    EXPECT_TRUE(near(back.normal(), -up));
    EXPECT_TRUE(near(back.refVec(), AcGeVector3d(0.0, 1.0, 0.0)));
    EXPECT_NEAR(back.length(0.0, back.endAng()), 2.5 * pi, 1.0e-13);
    EXPECT_LT(back.paramOf({1.0, 8.0, 0.0}), back.paramOf({8.0, 1.0, 0.0}))
        << "parameters grow along the drawn direction";
}

TEST(BulgeArc, MoreThanHalfACircle) {
    // tan(67.5 degrees) = sqrt(2) + 1: three quarters, turning left, from north round to east.
    const AcGeCircArc3d arc =
        AcGeCircArc3d::fromBulge({0.0, 5.0, 0.0}, {5.0, 0.0, 0.0}, std::sqrt(2.0) + 1.0, up);
    EXPECT_TRUE(near(arc.center(), AcGePoint3d(0.0, 0.0, 0.0)));
    EXPECT_NEAR(arc.endAng(), 1.5 * pi, 1.0e-14);
    EXPECT_EQ(arc.isOn({-5.0, 0.0, 0.0}), 1);
    EXPECT_EQ(arc.isOn({5.0 * std::sqrt(0.5), 5.0 * std::sqrt(0.5), 0.0}), 0);
}

TEST(BulgeArc, GivesBackItsVeryEnds) {
    for (const double x : {1.0e7 / 3.0, 0.1, -0.003}) {
        const AcGePoint3d start(x, 4.0e-3 / 7.0, 0.1);
        const AcGePoint3d end(x + 13.7, 4.0e-3 / 7.0 - 2.9, 0.1);
        for (const double bulge : {0.01, -0.3, 0.77, -1.0, 5.0}) {
            const AcGeCircArc3d arc = AcGeCircArc3d::fromBulge(start, end, bulge, up);
            EXPECT_TRUE(same(arc.startPoint(), start));
            EXPECT_TRUE(same(arc.endPoint(), end));
            EXPECT_TRUE(same(arc.evalPoint(arc.startAng()), start));
            EXPECT_TRUE(same(arc.evalPoint(arc.endAng()), end));
            EXPECT_EQ(arc.isOn(start), 1);
            EXPECT_EQ(arc.isOn(end), 1);
        }
    }
}

TEST(BulgeArc, NeedsABulgeAndAChord) {
    EXPECT_THROW(AcGeCircArc3d::fromBulge({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, 0.0, up),
                 CInvalidArgException);
    EXPECT_THROW(AcGeCircArc3d::fromBulge({1.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, 0.5, up),
                 CInvalidArgException);
}

TEST(ThreePointArc, RunsFromFirstThroughSecondToThird) {
    const AcGePoint3d a(5.0, 0.0, 1.0);
    const AcGePoint3d b(3.0, 4.0, 1.0);
    const AcGePoint3d c(-5.0, 0.0, 1.0);
    const AcGeCircArc3d arc(a, b, c);
    EXPECT_TRUE(near(arc.center(), AcGePoint3d(0.0, 0.0, 1.0)));
    EXPECT_NEAR(arc.radius(), 5.0, 1.0e-14);
    EXPECT_TRUE(near(arc.normal(), up));
    EXPECT_TRUE(near(arc.refVec(), AcGeVector3d(1.0, 0.0, 0.0)));
    EXPECT_EQ(arc.startAng(), 0.0);
    EXPECT_NEAR(arc.endAng(), pi, 1.0e-14);
    EXPECT_TRUE(same(arc.startPoint(), a));
    EXPECT_TRUE(same(arc.endPoint(), c));
    const AcGeCircArc3d back(c, b, a);
    EXPECT_TRUE(near(back.normal(), -up));
    EXPECT_TRUE(same(back.startPoint(), c));
    EXPECT_EQ(back.isOn({0.0, -5.0, 1.0}), 0);
    EXPECT_EQ(back.isOn({0.0, 5.0, 1.0}), 1);
}

TEST(ThreePointArc, MoreThanHalfACircle) {
    const AcGeCircArc3d arc({5.0, 0.0, 0.0}, {0.0, 5.0, 0.0}, {0.0, -5.0, 0.0});
    EXPECT_NEAR(arc.endAng(), 1.5 * pi, 1.0e-14);
    EXPECT_EQ(arc.isOn({-5.0, 0.0, 0.0}), 1);
}

TEST(ThreePointArc, CoincidentOrCollinearPointsLeaveTheArcAsItWas) {
    const AcGePoint3d a(0.0, 0.0, 0.0);
    const AcGePoint3d b(1.0, 1.0, 0.0);
    const AcGePoint3d c(3.0, 3.0, 0.0);
    AcGeCircArc3d arc = quarter();
    AcGeError error = AcGe::kOk;
    arc.set(a, a, b, error);
    EXPECT_EQ(error, AcGe::kEqualArg1Arg2);
    arc.set(a, b, a, error);
    EXPECT_EQ(error, AcGe::kEqualArg1Arg3);
    arc.set(a, b, b, error);
    EXPECT_EQ(error, AcGe::kEqualArg2Arg3);
    arc.set(a, b, c, error);
    EXPECT_EQ(error, AcGe::kLinearlyDependentArg1Arg2Arg3);
    arc.set(b, a, c, error);
    EXPECT_EQ(error, AcGe::kLinearlyDependentArg1Arg2Arg3) << "the start between the others";
    arc.set(a, b, c);
    EXPECT_TRUE(same(arc.center(), {10.0, 20.0, 3.0}));
    EXPECT_EQ(arc.radius(), 5.0);
    EXPECT_EQ(arc.startAng(), pi / 2.0);
    EXPECT_EQ(arc.endAng(), pi);
    EXPECT_TRUE(same(arc.startPoint(), quarter().startPoint()));
    arc.set(a, {1.0, 1.1, 0.0}, c, error);
    EXPECT_EQ(error, AcGe::kOk);
}

TEST(ThreePointArc, SurveyCoordinates) {
    const double x = 1.0e7;
    const double y = 5.0e6;
    const AcGeCircArc3d arc({x + 50.0, y, 0.0}, {x + 30.0, y + 40.0, 0.0}, {x, y + 50.0, 0.0});
    EXPECT_TRUE(near(arc.center(), AcGePoint3d(x, y, 0.0), 1.0e-8));
    EXPECT_NEAR(arc.radius(), 50.0, 1.0e-8);
    EXPECT_EQ(arc.isOn({x + 40.0, y + 30.0, 0.0}), 1);
    EXPECT_EQ(arc.isOn({x + 40.0 + 1.0e-6, y + 30.0, 0.0}), 0);
}

TEST(Arc, ClosestPointIsOnTheBoundedPiece) {
    const AcGeCircArc3d arc = quarter();
    EXPECT_TRUE(near(arc.closestPointTo({7.0, 24.0, 3.0}), AcGePoint3d(7.0, 24.0, 3.0)));
    EXPECT_TRUE(near(arc.closestPointTo({4.0, 28.0, 9.0}), AcGePoint3d(7.0, 24.0, 3.0)));
    EXPECT_TRUE(same(arc.closestPointTo({14.0, 23.0, 3.0}), arc.startPoint()));
    EXPECT_TRUE(same(arc.closestPointTo({7.0, 15.0, 3.0}), arc.endPoint()));
    EXPECT_NEAR(arc.distanceTo({4.0, 28.0, 3.0}), 5.0, 1.0e-14);
    EXPECT_NEAR(arc.distanceTo({10.0, 25.0, 10.0}), 7.0, 1.0e-14);
    EXPECT_NEAR(arc.paramOf({10.0 - 1.0, 20.0 + 1.0, 3.0}), 0.75 * pi, 1.0e-14);
    EXPECT_EQ(arc.paramOf({14.0, 23.0, 3.0}), pi / 2.0);
    EXPECT_EQ(arc.paramOf({7.0, 15.0, 3.0}), pi);
}

TEST(Arc, PointsOfItsOwnCircleLeaveCentreAndRadiusToTheLastBit) {
    for (int i = 1; i < 40; ++i) {
        AcGeCircArc3d arc(AcGePoint3d(500.1, 300.7, 3.0), up, AcGeVector3d::kXAxis, 0.37 * i,
                          0.1 * i, 0.1 * i + 2.0);
        const AcGePoint3d centre = arc.center();
        const double radius = arc.radius();
        const AcGePoint3d start = arc.startPoint();
        const AcGePoint3d end = arc.endPoint();
        const AcGePoint3d between = arc.evalPoint(0.1 * i + 0.7);
        arc.set(start, end, between); // over the end, on round the circle
        EXPECT_TRUE(same(arc.center(), centre)) << i;
        EXPECT_EQ(arc.radius(), radius) << i;
        EXPECT_TRUE(same(arc.startPoint(), start)) << i;
        EXPECT_TRUE(same(arc.endPoint(), between)) << i;
        EXPECT_EQ(arc.normal().z, -1.0) << i;
        EXPECT_NEAR(arc.sweepAng(), 2.0 * pi - 0.7, 1.0e-9) << i;
        EXPECT_EQ(arc.isOn(end), 1) << i;
        arc.set(between, start, end);
        EXPECT_TRUE(same(arc.center(), centre)) << i;
        EXPECT_EQ(arc.normal().z, -1.0) << i;
        EXPECT_NEAR(arc.sweepAng(), 2.0 * pi - 1.3, 1.0e-9) << i;
    }
}

TEST(Arc, PointsBesideItsCircleMakeAnother) {
    AcGeCircArc3d arc = quarter(); // about (10, 20) with the radius 5
    arc.set({15.0, 20.0, 3.0}, {10.0, 25.0, 3.0}, {5.0 - 1.0e-6, 20.0, 3.0});
    EXPECT_NEAR(arc.center().x, 10.0 - 0.5e-6, 1.0e-12);
    EXPECT_NEAR(arc.radius(), 5.0 + 0.5e-6, 1.0e-12);
    arc = quarter();
    arc.set({15.0, 20.0, 4.0}, {10.0, 25.0, 4.0}, {5.0, 20.0, 4.0});
    EXPECT_EQ(arc.center().z, 4.0);
}

TEST(Arc, ThePointClosestToTheCentreIsTheStart) {
    const AcGeCircArc3d arc = quarter();
    EXPECT_TRUE(same(arc.closestPointTo(arc.center()), arc.startPoint()));
    EXPECT_TRUE(same(arc.closestPointTo({10.0, 20.0, 99.0}), arc.startPoint()));
    EXPECT_EQ(arc.paramOf(arc.center()), pi / 2.0);
    EXPECT_NEAR(arc.distanceTo(arc.center()), 5.0, 1.0e-14);
    const AcGeCircArc3d half(arc.center(), up, AcGeVector3d::kXAxis, 5.0, -pi / 2.0, pi / 2.0);
    EXPECT_TRUE(same(half.closestPointTo(half.center()), half.startPoint()));
    EXPECT_TRUE(same(half.closestPointTo({10.0 + 5.0e-11, 20.0, 3.0}), half.startPoint()))
        << "a point that meets the centre";
    EXPECT_TRUE(near(half.closestPointTo({10.001, 20.0, 3.0}), AcGePoint3d(15.0, 20.0, 3.0)));
}

TEST(Arc, IsOnHasTheToleranceAtItsEndsAndBesideIt) {
    const AcGeCircArc3d arc = quarter();
    EXPECT_EQ(arc.isOn({7.0, 24.0, 3.0}), 1);
    EXPECT_EQ(arc.isOn({13.0, 24.0, 3.0}), 0) << "on the circle but not on the arc";
    EXPECT_EQ(arc.isOn({10.0 + 0.9e-10, 25.0, 3.0}), 1);
    EXPECT_EQ(arc.isOn({10.0 + 1.1e-10, 25.0, 3.0}), 0);
    EXPECT_EQ(arc.isOn({5.0 - 0.9e-10, 20.0, 3.0}), 1);
    EXPECT_EQ(arc.isOn({5.0 - 1.1e-10, 20.0, 3.0}), 0);
    EXPECT_EQ(arc.isOn({7.0, 24.0, 3.0 + 1.1e-10}), 0);
    const AcGeTol wide = AcGeTol().setEqualPoint(0.01);
    EXPECT_EQ(arc.isOn({10.0099, 25.0, 3.0}, wide), 1);
    EXPECT_EQ(arc.isOn({10.0101, 25.0, 3.0}, wide), 0);
    EXPECT_EQ(arc.isOn({7.0, 24.0, 3.0099}, wide), 1);
    double param = 0.0;
    EXPECT_EQ(arc.isOn(arc.endPoint(), param), 1);
    EXPECT_DOUBLE_EQ(param, pi);
}

TEST(Arc, InsideMeansTheWholeCircle) {
    const AcGeCircArc3d arc = quarter();
    EXPECT_EQ(arc.isInside({14.0, 20.0, 3.0}), 1);
    EXPECT_EQ(arc.isInside({14.0, 20.0, 99.0}), 1) << "projected";
    EXPECT_EQ(arc.isInside({15.0, 20.0, 3.0}), 0) << "on it";
    EXPECT_EQ(arc.isInside({16.0, 20.0, 3.0}), 0);
}

TEST(Arc, TangentRunsAlongTheDrawnDirection) {
    AcGeLine3d line;
    EXPECT_EQ(quarter().tangent({10.0, 25.0, 3.0}, line), 1);
    EXPECT_TRUE(near(line.direction(), AcGeVector3d(-1.0, 0.0, 0.0)));
    EXPECT_TRUE(near(line.pointOnLine(), AcGePoint3d(10.0, 25.0, 3.0)));
    EXPECT_EQ(quarter().tangent({10.0, 26.0, 3.0}, line), 0);
    EXPECT_TRUE(near(line.pointOnLine(), AcGePoint3d(10.0, 25.0, 3.0))) << "as it was";
}

TEST(Arc, ReversingKeepsThePlaces) {
    AcGeCircArc3d arc = quarter();
    arc.reverseParam();
    EXPECT_TRUE(near(arc.normal(), -up));
    EXPECT_TRUE(same(arc.startPoint(), quarter().endPoint()));
    EXPECT_TRUE(same(arc.endPoint(), quarter().startPoint()));
    EXPECT_NEAR(arc.length(), 2.5 * pi, 1.0e-14);
    EXPECT_TRUE(
        near(arc.evalPoint(0.5 * (arc.startAng() + arc.endAng())), quarter().evalPoint(0.75 * pi)));
}

TEST(Arc, IsCarriedAlong) {
    AcGeCircArc3d arc = quarter();
    arc.translateBy({-10.0, -20.0, -3.0}).scaleBy(2.0);
    EXPECT_TRUE(near(arc.center(), AcGePoint3d(0.0, 0.0, 0.0)));
    EXPECT_DOUBLE_EQ(arc.radius(), 10.0);
    EXPECT_TRUE(near(arc.startPoint(), AcGePoint3d(0.0, 10.0, 0.0)));
    arc.mirror(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis));
    EXPECT_TRUE(near(arc.startPoint(), AcGePoint3d(0.0, 10.0, 0.0)));
    EXPECT_TRUE(near(arc.endPoint(), AcGePoint3d(10.0, 0.0, 0.0)));
    EXPECT_TRUE(near(arc.normal(), -up)) << "still counter-clockwise about its normal";
    EXPECT_TRUE(near(arc.evalPoint(0.75 * pi), AcGePoint3d(std::sqrt(50.0), std::sqrt(50.0), 0.0)));
    const std::unique_ptr<AcGeEntity3d> copy(arc.copy());
    EXPECT_EQ(copy->type(), AcGe::kCircArc3d);
    EXPECT_EQ(copy->isKindOf(AcGe::kCurve3d), 1);
    EXPECT_EQ(copy->isKindOf(AcGe::kLinearEnt3d), 0);
}

// The way a database arc is built from this one: its angle 0 is the X axis of the object
// coordinates of the normal, so startAng + refVec.angleOnPlane must lead to the start point.
TEST(Arc, AnglesOfADatabaseArcAgreeForAnyNormal) {
    const AcGeVector3d normals[] = {{0.0, 0.0, 1.0},   {0.0, 0.0, -1.0},  {1.0, 0.0, 0.0},
                                    {0.3, -0.2, 0.93}, {0.01, 0.01, 1.0}, {-0.5, 0.5, -0.1}};
    for (const AcGeVector3d& normal : normals) {
        const AcGeVector3d inPlane = normal.perpVector();
        const AcGePoint3d start(4.0, 5.0, 6.0);
        const AcGePoint3d end = start + inPlane * 3.0;
        for (const double bulge : {0.4, -0.4}) {
            const AcGeCircArc3d arc = AcGeCircArc3d::fromBulge(start, end, bulge, normal);
            const double turn = arc.refVec().angleOnPlane(AcGePlane(arc.center(), arc.normal()));
            const auto place = [&](double angle) {
                const AcGeVector3d arm(arc.radius() * std::cos(angle),
                                       arc.radius() * std::sin(angle), 0.0);
                return arc.center() + AcGeMatrix3d::planeToWorld(arc.normal()) * arm;
            };
            EXPECT_TRUE(near(place(arc.startAng() + turn), start));
            EXPECT_TRUE(near(place(arc.endAng() + turn), end));
        }
    }
}

} // namespace
