#include "geometry/AcGeLine3d.h"
#include "geometry/AcGeLineSeg3d.h"

#include "Near.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

using geometry_test::near;
using geometry_test::pi;
using geometry_test::same;

AcGeLineSeg3d segment(double x1, double y1, double x2, double y2) {
    return {AcGePoint3d(x1, y1, 0.0), AcGePoint3d(x2, y2, 0.0)};
}

TEST(Segment, GivesBackItsPoints) {
    const AcGePoint3d start(0.1, 1.0e7, 0.3);
    const AcGePoint3d end(1.0 / 3.0, 1.0e-7, -5.0);
    const AcGeLineSeg3d line(start, end);
    EXPECT_TRUE(same(line.startPoint(), start));
    EXPECT_TRUE(same(line.endPoint(), end));
    EXPECT_TRUE(same(line.evalPoint(0.0), start));
    EXPECT_TRUE(same(line.evalPoint(1.0), end));
    AcGePoint3d from;
    AcGePoint3d to;
    AcGeInterval interval;
    line.getInterval(interval, from, to);
    EXPECT_TRUE(same(from, start));
    EXPECT_TRUE(same(to, end));
    EXPECT_EQ(interval.lowerBound(), 0.0);
    EXPECT_EQ(interval.upperBound(), 1.0);
}

TEST(Segment, DefaultAndOtherForms) {
    EXPECT_TRUE(same(AcGeLineSeg3d().startPoint(), {0.0, 0.0, 0.0}));
    EXPECT_TRUE(same(AcGeLineSeg3d().endPoint(), {1.0, 0.0, 0.0}));
    AcGeLineSeg3d line({1.0, 1.0, 1.0}, AcGeVector3d(0.0, 3.0, 4.0));
    EXPECT_TRUE(same(line.endPoint(), {1.0, 4.0, 5.0}));
    EXPECT_EQ(line.length(), 5.0);
    EXPECT_TRUE(near(line.midPoint(), AcGePoint3d(1.0, 2.5, 3.0)));
    EXPECT_TRUE(near(line.direction(), AcGeVector3d(0.0, 0.6, 0.8)));
    EXPECT_TRUE(same(line.pointOnLine(), {1.0, 1.0, 1.0}));
    line.set(AcGePoint3d(1.0, 0.0, 0.0), AcGePoint3d(3.0, 0.0, 0.0));
    EXPECT_EQ(line.length(), 2.0);
    EXPECT_EQ(line.length(0.25, 0.75), 1.0);
    EXPECT_EQ(line.length(0.75, 0.25, AcGeContext::gTol), 1.0);
    EXPECT_EQ(segment(2.0, 2.0, 2.0, 2.0).direction().length(), 0.0);
}

TEST(Segment, ClosestPointIsOnTheBoundedPiece) {
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_TRUE(near(line.closestPointTo({4.0, 3.0, 0.0}), AcGePoint3d(4.0, 0.0, 0.0)));
    EXPECT_TRUE(same(line.closestPointTo({-4.0, 3.0, 0.0}), {0.0, 0.0, 0.0}));
    EXPECT_TRUE(same(line.closestPointTo({14.0, 3.0, 0.0}), {10.0, 0.0, 0.0}));
    EXPECT_EQ(line.distanceTo({13.0, 4.0, 0.0}), 5.0);
    EXPECT_EQ(line.distanceTo({5.0, 0.0, -2.0}), 2.0);
    EXPECT_DOUBLE_EQ(line.paramOf({4.0, 3.0, 0.0}), 0.4);
    EXPECT_EQ(line.paramOf({40.0, 3.0, 0.0}), 1.0);
    EXPECT_EQ(segment(2.0, 2.0, 2.0, 2.0).distanceTo({2.0, 5.0, 4.0}), 5.0);
}

TEST(Segment, TheNearestPlaceIsTheFootOnTheLineCutToTheEnds) {
    const AcGePoint3d start(0.1, 1.0e5, 0.3);
    const AcGePoint3d end(101.0 / 3.0, 1.0e5 - 7.7, -5.0);
    const AcGeLineSeg3d line(start, end);
    const AcGeVector3d along = end - start;
    for (double x = -40.0; x < 80.0; x += 0.93) {
        const AcGePoint3d point(x, 1.0e5 - 0.3 * x, 0.7 * x);
        const double foot = (point - start).dotProduct(along) / along.lengthSqrd();
        const double param = std::clamp(foot, 0.0, 1.0);
        EXPECT_EQ(line.paramOf(point), param);
        EXPECT_TRUE(same(line.closestPointTo(point), line.evalPoint(param)));
    }
    EXPECT_TRUE(same(line.closestPointTo(end + along), end));
    const AcGeLineSeg3d dot(start, start);
    EXPECT_EQ(dot.paramOf(end), 0.0);
    EXPECT_TRUE(same(dot.closestPointTo(end), start));
}

TEST(Segment, IsOnHasTheToleranceAtItsEndsAndBesideIt) {
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.isOn({5.0, 0.9e-10, 0.0}), 1);
    EXPECT_EQ(line.isOn({5.0, 1.1e-10, 0.0}), 0);
    EXPECT_EQ(line.isOn({-0.9e-10, 0.0, 0.0}), 1);
    EXPECT_EQ(line.isOn({-1.1e-10, 0.0, 0.0}), 0);
    const AcGeTol wide = AcGeTol().setEqualPoint(0.01);
    EXPECT_EQ(line.isOn({10.0099, 0.0, 0.0}, wide), 1);
    EXPECT_EQ(line.isOn({10.0101, 0.0, 0.0}, wide), 0);
    EXPECT_EQ(line.isOn({5.0, 0.0, 0.0099}, wide), 1);
    double param = -7.0;
    EXPECT_EQ(line.isOn({2.5, 0.0, 0.0}, param), 1);
    EXPECT_DOUBLE_EQ(param, 0.25);
    param = -7.0;
    EXPECT_EQ(line.isOn({2.5, 1.0, 0.0}, param), 0);
    EXPECT_EQ(param, -7.0);
}

TEST(Line, GoesOnWithoutEnd) {
    const AcGeLine3d line({1.0, 0.0, 0.0}, AcGeVector3d(2.0, 0.0, 0.0));
    EXPECT_EQ(line.distanceTo({-500.0, 3.0, 0.0}), 3.0);
    EXPECT_EQ(line.paramOf({5.0, 1.0, 0.0}), 2.0);
    EXPECT_TRUE(near(line.evalPoint(-3.0), AcGePoint3d(-5.0, 0.0, 0.0)));
    AcGePoint3d point(9.0, 9.0, 9.0);
    EXPECT_EQ(line.hasStartPoint(point), 0);
    EXPECT_EQ(line.hasEndPoint(point), 0);
    EXPECT_TRUE(same(point, {9.0, 9.0, 9.0}));
    EXPECT_EQ(line.isClosed(), 0);
    EXPECT_EQ(AcGeLine3d({0.0, 0.0, 0.0}, AcGePoint3d(0.0, 5.0, 0.0)).direction().y, 1.0);
}

TEST(Parallel, IsJudgedByTheAngleInRadians) {
    const AcGeTol eighteenDegrees = AcGeTol().setEqualVector(pi / 10.0);
    const AcGeLineSeg3d line = segment(0.0, 0.0, 100.0, 0.0);
    const auto turned = [](double degrees) {
        const double angle = degrees * pi / 180.0;
        return segment(50.0, 50.0, 50.0 + 30.0 * std::cos(angle), 50.0 + 30.0 * std::sin(angle));
    };
    EXPECT_EQ(line.isParallelTo(turned(17.99), eighteenDegrees), 1);
    EXPECT_EQ(line.isParallelTo(turned(18.01), eighteenDegrees), 0);
    EXPECT_EQ(line.isParallelTo(turned(-17.99), eighteenDegrees), 1);
    EXPECT_EQ(line.isParallelTo(turned(180.0 - 17.99), eighteenDegrees), 1) << "opposite";
    EXPECT_EQ(line.isParallelTo(turned(180.0 + 18.01), eighteenDegrees), 0);
    EXPECT_EQ(line.isParallelTo(turned(0.0)), 1);
    EXPECT_EQ(line.isParallelTo(turned(180.0)), 1);
    EXPECT_EQ(line.isParallelTo(turned(1.0e-7)), 0) << "1.7e-9 radians";
    EXPECT_EQ(line.isParallelTo(segment(0.0, 1.0, 100.0, 1.0 + 0.9e-8)), 1) << "0.9e-10 radians";
    EXPECT_EQ(line.isParallelTo(segment(0.0, 1.0, 100.0, 1.0 + 1.1e-8)), 0) << "1.1e-10 radians";
}

TEST(Parallel, ALineWithoutLengthIsParallelToAll) {
    const AcGeLineSeg3d none = segment(5.0, 5.0, 5.0, 5.0);
    EXPECT_EQ(none.isParallelTo(segment(0.0, 0.0, 1.0, 7.0)), 1);
    EXPECT_EQ(segment(0.0, 0.0, 1.0, 7.0).isParallelTo(none), 1);
    EXPECT_EQ(none.isParallelTo(none), 1);
}

// Near 1e7 an end may be off by a unit in the last place, 2^-29 or 1.9e-9. Over one drawing unit
// that turns the direction by 1.9e-9 radians, which is noise; over 1000 it may not hide 1e-7.
TEST(Parallel, NoiseOfLargeCoordinatesDoesNotTurnADirection) {
    const double base = 1.0e7;
    const AcGeLineSeg3d line = segment(base, base, base + 1.0, base);
    EXPECT_EQ(line.isParallelTo(segment(base, base + 5.0, base + 1.0, base + 5.0 + 0x1p-29)), 1);
    EXPECT_EQ(line.isParallelTo(segment(base, base + 5.0, base + 1.0, base + 5.0 + 1.0e-6)), 0);
    EXPECT_EQ(segment(0.0, 0.0, 1.0, 0.0).isParallelTo(segment(0.0, 5.0, 1.0, 5.0 + 0x1p-29)), 0);
    EXPECT_EQ(segment(base, base, base + 1000.0, base)
                  .isParallelTo(segment(base, base, base + 1000.0, base + 1.0e-4)),
              0);
}

TEST(Perpendicular, IsJudgedByTheAngleToo) {
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.isPerpendicularTo(segment(3.0, 3.0, 3.0, 9.0)), 1);
    EXPECT_EQ(line.isPerpendicularTo(segment(3.0, 3.0, 3.001, 9.0)), 0);
    EXPECT_EQ(
        line.isPerpendicularTo(segment(3.0, 3.0, 3.001, 9.0), AcGeTol().setEqualVector(0.001)), 1);
    EXPECT_EQ(line.isPerpendicularTo(segment(3.0, 3.0, 9.0, 3.0)), 0);
}

TEST(Colinear, NeedsDirectionAndPlace) {
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.isColinearTo(segment(20.0, 0.0, 15.0, 0.0)), 1) << "apart and opposite";
    EXPECT_EQ(line.isColinearTo(segment(0.0, 0.001, 10.0, 0.001)), 0);
    EXPECT_EQ(line.isColinearTo(segment(0.0, 0.001, 10.0, 0.001), AcGeTol().setEqualPoint(0.002)),
              1);
    EXPECT_EQ(line.isColinearTo(segment(5.0, 0.0, 10.0, 1.0e-4)), 0) << "not parallel";
    const AcGeTol loose = AcGeTol().setEqualPoint(0.5).setEqualVector(0.2);
    // The other starts 0.4 beside this line and leans by 0.1: this start is then
    // |(-20, -0.4) x (1, 0.1)| = 1.6 away from the other's line.
    EXPECT_EQ(line.isColinearTo(segment(20.0, 0.4, 30.0, 1.4), loose), 0)
        << "each start counts, not one";
    EXPECT_EQ(segment(20.0, 0.4, 30.0, 1.4).isColinearTo(line, loose), 0);
    EXPECT_EQ(line.isColinearTo(segment(1.0, 0.4, 11.0, 1.4), loose), 1);
}

TEST(Colinear, ALineWithoutLengthTakesTheOthersDirection) {
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.isColinearTo(segment(5.0, 0.0, 5.0, 0.0)), 1);
    EXPECT_EQ(segment(5.0, 0.0, 5.0, 0.0).isColinearTo(line), 1);
    EXPECT_EQ(line.isColinearTo(segment(5.0, 1.0, 5.0, 1.0)), 0);
    EXPECT_EQ(segment(1.0, 1.0, 1.0, 1.0).isColinearTo(segment(1.0, 1.0, 1.0, 1.0)), 1);
    EXPECT_EQ(segment(1.0, 1.0, 1.0, 1.0).isColinearTo(segment(2.0, 1.0, 2.0, 1.0)), 0);
}

TEST(SegmentMeeting, CrossingGivesThePlace) {
    AcGePoint3d point;
    EXPECT_EQ(segment(0.0, 0.0, 10.0, 10.0).intersectWith(segment(0.0, 10.0, 10.0, 0.0), point), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(5.0, 5.0, 0.0)));
}

TEST(SegmentMeeting, OnlyTheBoundedPiecesCount) {
    AcGePoint3d point(9.0, 9.0, 9.0);
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.intersectWith(segment(11.0, 5.0, 11.0, -5.0), point), 0);
    EXPECT_EQ(line.intersectWith(segment(5.0, 5.0, 5.0, 1.0), point), 0);
    EXPECT_TRUE(same(point, {9.0, 9.0, 9.0})) << "nothing is written";
    AcGeLine3d unbounded;
    line.getLine(unbounded);
    EXPECT_EQ(unbounded.intersectWith(segment(11.0, 5.0, 11.0, -5.0), point), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(11.0, 0.0, 0.0)));
}

TEST(SegmentMeeting, EndsTouch) {
    AcGePoint3d point;
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.intersectWith(segment(4.0, 0.0, 4.0, 8.0), point), 1) << "in the middle";
    EXPECT_TRUE(near(point, AcGePoint3d(4.0, 0.0, 0.0)));
    EXPECT_EQ(line.intersectWith(segment(10.0, 0.0, 13.0, 8.0), point), 1) << "at an end";
    EXPECT_TRUE(same(point, {10.0, 0.0, 0.0}));
    EXPECT_EQ(line.intersectWith(segment(10.0 + 0.9e-10, 0.0, 13.0, 8.0), point), 1);
    EXPECT_TRUE(same(point, {10.0, 0.0, 0.0})) << "the place is on the first";
    EXPECT_EQ(line.intersectWith(segment(10.0 + 1.1e-10, 0.0, 13.0, 8.0), point), 0);
}

TEST(SegmentMeeting, TheClosestApproachDecidesInSpace) {
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    const AcGeLineSeg3d above({5.0, -5.0, 0.3}, AcGePoint3d(5.0, 5.0, 0.3));
    AcGePoint3d point;
    EXPECT_EQ(line.intersectWith(above, point), 0);
    EXPECT_EQ(line.intersectWith(above, point, AcGeTol().setEqualPoint(0.29)), 0);
    EXPECT_EQ(line.intersectWith(above, point, AcGeTol().setEqualPoint(0.31)), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(5.0, 0.0, 0.0))) << "on the first";
    EXPECT_EQ(above.intersectWith(line, point, AcGeTol().setEqualPoint(0.31)), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(5.0, 0.0, 0.3))) << "on the first";
}

// The unbounded lines cross at (12, 0), two beyond the first one's end (10, 0). That end is
// 0.2 / sqrt(1.01) = 0.199 away from the other, which leans by a tenth.
TEST(SegmentMeeting, TheClosestApproachIsThatOfTheBoundedPieces) {
    AcGePoint3d point;
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    const AcGeLineSeg3d leaning = segment(8.0, 0.4, 12.0, 0.0);
    EXPECT_EQ(line.intersectWith(leaning, point, AcGeTol().setEqualPoint(0.198)), 0);
    EXPECT_EQ(line.intersectWith(leaning, point, AcGeTol().setEqualPoint(0.2)), 1);
    EXPECT_TRUE(same(point, {10.0, 0.0, 0.0}));
}

TEST(SegmentMeeting, ParallelAndColinearOnesNeverMeet) {
    AcGePoint3d point;
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.intersectWith(segment(5.0, 0.0, 15.0, 0.0), point), 0);
    EXPECT_EQ(line.intersectWith(segment(10.0, 0.0, 20.0, 0.0), point), 0);
    EXPECT_EQ(line.intersectWith(segment(5.0, 0.0, 5.0, 0.0), point), 0) << "without length";
    const AcGeTol eighteenDegrees = AcGeTol().setEqualVector(pi / 10.0);
    EXPECT_EQ(line.intersectWith(segment(0.0, -1.0, 10.0, 1.0), point, eighteenDegrees), 0);
    EXPECT_EQ(line.intersectWith(segment(0.0, -1.0, 10.0, 1.0), point), 1);
}

TEST(SegmentMeeting, AcuteCrossingsNearAnEnd) {
    AcGePoint3d point;
    // The other leans by 1e-6 and passes through the end (10, 0).
    EXPECT_EQ(
        segment(0.0, 0.0, 10.0, 0.0).intersectWith(segment(9.0, -1.0e-6, 11.0, 1.0e-6), point), 1);
    EXPECT_TRUE(near(point, AcGePoint3d(10.0, 0.0, 0.0), 1.0e-6));
}

// A pipe that ends in the middle of another, everything shifted by survey coordinates: the end
// cannot lie exactly on the line, but meets it.
TEST(SegmentMeeting, SurveyCoordinatesDoNotHideAContact) {
    for (int i = 1; i < 50; ++i) {
        const double x = 1.0e7 + 0.1 * i;
        const double y = 9.0e6 + 0.7 * i;
        const AcGeLineSeg3d line = segment(x, y, x + 30.0, y + 7.0);
        const AcGePoint3d foot(x + 30.0 * 0.37, y + 7.0 * 0.37, 0.0);
        AcGePoint3d point;
        ASSERT_EQ(line.isOn(foot), 1) << i;
        ASSERT_EQ(line.intersectWith(segment(foot.x, foot.y, foot.x - 3.0, foot.y + 11.0), point),
                  1)
            << i;
        ASSERT_TRUE(point.isEqualTo(foot)) << i;
        ASSERT_EQ(line.isOn({foot.x, foot.y + 1.0e-6, 0.0}), 0) << i;
    }
}

TEST(Overlap, IsTheSharedPiece) {
    AcGePoint3d from;
    AcGePoint3d to;
    const AcGeLineSeg3d line = segment(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(line.overlap(segment(15.0, 0.0, 4.0, 0.0), from, to), 1);
    EXPECT_TRUE(near(from, AcGePoint3d(4.0, 0.0, 0.0)));
    EXPECT_TRUE(near(to, AcGePoint3d(10.0, 0.0, 0.0)));
    EXPECT_EQ(line.overlap(segment(10.0, 0.0, 14.0, 0.0), from, to), 0) << "a point is no piece";
    EXPECT_EQ(line.overlap(segment(12.0, 0.0, 14.0, 0.0), from, to), 0);
    EXPECT_EQ(line.overlap(segment(0.0, 1.0, 10.0, 1.0), from, to), 0);
    EXPECT_EQ(AcGeLine3d().overlap(line, from, to), 1);
    EXPECT_TRUE(near(to, AcGePoint3d(10.0, 0.0, 0.0)));
    EXPECT_EQ(AcGeLine3d().overlap(AcGeLine3d(), from, to), 0) << "without end";
}

TEST(Linear, KindsCopiesAndMaps) {
    AcGeLineSeg3d line = segment(1.0, 0.0, 3.0, 0.0);
    line.rotateBy(pi / 2.0, AcGeVector3d::kZAxis).translateBy({0.0, 0.0, 5.0});
    EXPECT_TRUE(near(line.startPoint(), AcGePoint3d(0.0, 1.0, 5.0)));
    EXPECT_TRUE(near(line.endPoint(), AcGePoint3d(0.0, 3.0, 5.0)));
    const std::unique_ptr<AcGeEntity3d> copy(line.copy());
    EXPECT_EQ(copy->type(), AcGe::kLineSeg3d);
    EXPECT_EQ(copy->isKindOf(AcGe::kLinearEnt3d), 1);
    EXPECT_EQ(copy->isKindOf(AcGe::kCurve3d), 1);
    EXPECT_EQ(copy->isKindOf(AcGe::kLine3d), 0);
    EXPECT_EQ(copy->isOn({0.0, 2.0, 5.0}), 1);
    AcGeLine3d unbounded({1.0, 0.0, 0.0}, AcGeVector3d::kYAxis);
    unbounded.scaleBy(2.0);
    EXPECT_EQ(unbounded.type(), AcGe::kLine3d);
    EXPECT_EQ(unbounded.isOn({2.0, 77.0, 0.0}), 1);
}

} // namespace
