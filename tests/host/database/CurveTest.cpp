#include "host/database/DatabaseFixture.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDb3dPolyline.h"
#include "database/AcDbArc.h"
#include "database/AcDbCircle.h"
#include "database/AcDbEllipse.h"
#include "database/AcDbSpline.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

TEST(AcDbLineTest, MeasuresAlongItself) {
    const AcDbLine line({1.0, 2.0, 0.0}, {4.0, 6.0, 0.0});
    AcGePoint3d point;
    ASSERT_EQ(line.getStartPoint(point), Acad::eOk);
    expectPoint(point, 1.0, 2.0, 0.0, 0.0);
    ASSERT_EQ(line.getEndPoint(point), Acad::eOk);
    expectPoint(point, 4.0, 6.0, 0.0, 0.0);
    EXPECT_DOUBLE_EQ(line.curveLength(), 5.0);
    ASSERT_EQ(line.getPointAtDist(2.5, point), Acad::eOk);
    expectPoint(point, 2.5, 4.0, 0.0);
    double param = -1.0;
    ASSERT_EQ(line.getEndParam(param), Acad::eOk);
    EXPECT_DOUBLE_EQ(param, 5.0);
    double dist = -1.0;
    ASSERT_EQ(line.getDistAtPoint({2.5, 4.0, 0.0}, dist), Acad::eOk);
    EXPECT_DOUBLE_EQ(dist, 2.5);
    EXPECT_EQ(line.getDistAtPoint({2.5, 4.1, 0.0}, dist), Acad::eInvalidInput);
    EXPECT_EQ(line.getPointAtDist(5.1, point), Acad::eInvalidInput);
}

TEST(AcDbLineTest, ClosestPointStaysOnItUnlessExtended) {
    const AcDbLine line({0.0, 0.0, 0.0}, {10.0, 0.0, 0.0});
    AcGePoint3d point;
    ASSERT_EQ(line.getClosestPointTo({3.0, 4.0, 0.0}, point), Acad::eOk);
    expectPoint(point, 3.0, 0.0, 0.0);
    ASSERT_EQ(line.getClosestPointTo({12.0, 4.0, 0.0}, point), Acad::eOk);
    expectPoint(point, 10.0, 0.0, 0.0);
    ASSERT_EQ(line.getClosestPointTo({12.0, 4.0, 0.0}, point, Adesk::kTrue), Acad::eOk);
    expectPoint(point, 12.0, 0.0, 0.0);
}

TEST(AcDbArcTest, PointAtDistIsValidFromZeroToTheLength) {
    const AcDbArc arc({10.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0, 0.0, kPi / 2.0);
    AcGePoint3d point(7.0, 7.0, 7.0);
    ASSERT_EQ(arc.getPointAtDist(0.0, point), Acad::eOk);
    expectPoint(point, 12.0, 0.0, 0.0);
    ASSERT_EQ(arc.getPointAtDist(arc.curveLength(), point), Acad::eOk);
    expectPoint(point, 10.0, 2.0, 0.0);
    // A third of the quarter turn: 30 degrees.
    ASSERT_EQ(arc.getPointAtDist(kPi / 3.0, point), Acad::eOk);
    expectPoint(point, 10.0 + std::sqrt(3.0), 1.0, 0.0);
    point.set(7.0, 7.0, 7.0);
    EXPECT_EQ(arc.getPointAtDist(-1e-9, point), Acad::eInvalidInput);
    EXPECT_EQ(arc.getPointAtDist(kPi + 1e-9, point), Acad::eInvalidInput);
    EXPECT_EQ(arc.getPointAtDist(std::nan(""), point), Acad::eInvalidInput);
    expectPoint(point, 7.0, 7.0, 7.0, 0.0);
}

TEST(AcDbArcTest, RunsCounterClockwiseAcrossAngleZero) {
    const AcDbArc arc({0.0, 0.0, 0.0}, 1.0, 1.5 * kPi, 0.5 * kPi);
    EXPECT_NEAR(arc.totalAngle(), kPi, 1e-12);
    AcGePoint3d point;
    arc.getStartPoint(point);
    expectPoint(point, 0.0, -1.0, 0.0);
    arc.getEndPoint(point);
    expectPoint(point, 0.0, 1.0, 0.0);
    arc.getPointAtDist(kPi / 2.0, point);
    expectPoint(point, 1.0, 0.0, 0.0);
    AcDbExtents box;
    ASSERT_EQ(arc.getGeomExtents(box), Acad::eOk);
    expectBox(box, {0.0, -1.0, 0.0}, {1.0, 1.0, 0.0});
}

TEST(AcDbArcTest, AngleZeroFollowsTheArbitraryAxisOfItsNormal) {
    // Of the downward normal the X axis is (-1, 0, 0): world Y cross (0, 0, -1).
    const AcDbArc down({0.0, 0.0, 0.0}, {0.0, 0.0, -1.0}, 1.0, 0.0, kPi / 2.0);
    AcGePoint3d point;
    down.getStartPoint(point);
    expectPoint(point, -1.0, 0.0, 0.0);
    down.getEndPoint(point);
    expectPoint(point, 0.0, 1.0, 0.0);
    // Of the normal (1, 0, 0) it is world Z cross the normal: (0, 1, 0), and Y is (0, 0, 1).
    const AcDbArc side({5.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, 1.0, 0.0, kPi / 2.0);
    side.getStartPoint(point);
    expectPoint(point, 5.0, 1.0, 0.0);
    side.getEndPoint(point);
    expectPoint(point, 5.0, 0.0, 1.0);
}

TEST(AcDbArcTest, ClosestPoint) {
    const AcDbArc arc({0.0, 0.0, 0.0}, 2.0, 0.0, kPi / 2.0);
    AcGePoint3d point;
    arc.getClosestPointTo({3.0, 3.0, 5.0}, point);
    expectPoint(point, std::sqrt(2.0), std::sqrt(2.0), 0.0);
    arc.getClosestPointTo({0.0, 0.0, 0.0}, point);
    expectPoint(point, 2.0, 0.0, 0.0);
    arc.getClosestPointTo({-5e-11, 5e-11, 0.0}, point); // meets the centre
    expectPoint(point, 2.0, 0.0, 0.0);
    arc.getClosestPointTo({-1.0, 5.0, 0.0}, point);
    expectPoint(point, 0.0, 2.0, 0.0);
    arc.getClosestPointTo({-3.0, 0.0, 0.0}, point, Adesk::kTrue);
    expectPoint(point, -2.0, 0.0, 0.0);
}

TEST(AcDbCircleTest, EndsWhereItStarts) {
    const AcDbCircle circle({1.0, 1.0, 3.0}, {0.0, 0.0, 1.0}, 2.0);
    AcGePoint3d start;
    AcGePoint3d end;
    circle.getStartPoint(start);
    circle.getEndPoint(end);
    expectPoint(start, 3.0, 1.0, 3.0);
    EXPECT_EQ(start.x, end.x);
    EXPECT_EQ(start.y, end.y);
    EXPECT_EQ(circle.isClosed(), 1);
    EXPECT_NEAR(circle.curveLength(), 4.0 * kPi, 1e-12);
    AcDbExtents box;
    circle.getGeomExtents(box);
    expectBox(box, {-1.0, -1.0, 3.0}, {3.0, 3.0, 3.0});
}

TEST(AcDbEllipseTest, HasTrueEndsLengthAndExtents) {
    const AcDbEllipse whole({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, {2.0, 0.0, 0.0}, 0.5);
    // Circumference with half axes 2 and 1: 8 E(sqrt(3)/2), E from tables 1.2110560275684594.
    EXPECT_NEAR(whole.curveLength(), 8.0 * 1.2110560275684594, 1e-9);
    EXPECT_EQ(whole.isClosed(), 1);
    const AcDbEllipse quarter({1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 4.0, 0.0}, 0.25, 0.0,
                              kPi / 2.0);
    AcGePoint3d point;
    quarter.getStartPoint(point);
    expectPoint(point, 1.0, 4.0, 0.0);
    quarter.getEndPoint(point);
    expectPoint(point, 0.0, 0.0, 0.0);
    quarter.getClosestPointTo({1.0, 9.0, 0.0}, point);
    expectPoint(point, 1.0, 4.0, 0.0);
    // Turned by 45 degrees, half axes a = 2, b = 1: extent along x is sqrt((a*a + b*b) / 2).
    const double c = std::sqrt(2.0);
    const AcDbEllipse turned({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, {c, c, 0.0}, 0.5);
    AcDbExtents box;
    turned.getGeomExtents(box);
    const double reach = std::sqrt(2.5);
    expectBox(box, {-reach, -reach, 0.0}, {reach, reach, 0.0});
}

TEST(AcDbSplineTest, AClampedSplineRunsThroughItsFirstAndLastControlPoint) {
    // One Bezier piece: the parabola x = 2t, y = 4 t (1 - t).
    const AcDbSpline spline(host_db::NurbsCurve(2, {0.0, 0.0, 0.0, 1.0, 1.0, 1.0},
                                                {{0.0, 0.0, 0.0}, {1.0, 2.0, 0.0}, {2.0, 0.0, 0.0}},
                                                {}));
    AcGePoint3d point;
    spline.getStartPoint(point);
    expectPoint(point, 0.0, 0.0, 0.0);
    spline.getEndPoint(point);
    expectPoint(point, 2.0, 0.0, 0.0);
    ASSERT_EQ(spline.getPointAtParam(0.25, point), Acad::eOk);
    expectPoint(point, 0.5, 0.75, 0.0);
    AcDbExtents box;
    spline.getGeomExtents(box);
    expectBox(box, {0.0, 0.0, 0.0}, {2.0, 1.0, 0.0});
    // Arc length of y = 2x - x^2 over 0..2: sqrt(5) + asinh(2) / 2.
    EXPECT_NEAR(spline.curveLength(), std::sqrt(5.0) + std::asinh(2.0) / 2.0, 1e-7);
    spline.getClosestPointTo({1.0, 5.0, 0.0}, point);
    expectPoint(point, 1.0, 1.0, 0.0, 1e-6);
}

TEST(AcDbSplineTest, AnUnclampedSplineEndsInsideItsPolygon) {
    // Uniform quadratic: the ends are the middles of the first and the last leg.
    const AcDbSpline spline(host_db::NurbsCurve(
        2, {0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0},
        {{0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {2.0, 2.0, 0.0}, {4.0, 2.0, 0.0}}, {}));
    AcGePoint3d point;
    spline.getStartPoint(point);
    expectPoint(point, 1.0, 0.0, 0.0);
    spline.getEndPoint(point);
    expectPoint(point, 3.0, 2.0, 0.0);
}

TEST(AcDbSplineTest, WeightsMakeACircle) {
    const double w = std::sqrt(0.5);
    const AcDbSpline quarter(
        host_db::NurbsCurve(2, {0.0, 0.0, 0.0, 1.0, 1.0, 1.0},
                            {{1.0, 0.0, 0.0}, {1.0, 1.0, 0.0}, {0.0, 1.0, 0.0}}, {1.0, w, 1.0}));
    AcGePoint3d point;
    quarter.getPointAtParam(0.5, point);
    expectPoint(point, w, w, 0.0);
    EXPECT_NEAR(quarter.curveLength(), kPi / 2.0, 1e-7);
}

TEST(AcDbSplineTest, FitPointsServeWithoutControlPoints) {
    AcDbSpline spline;
    AcGePoint3d point;
    EXPECT_EQ(spline.getStartPoint(point), Acad::eDegenerateGeometry);
    spline.setFitPoints({{1.0, 1.0, 0.0}, {2.0, 5.0, 0.0}, {3.0, 1.0, 0.0}});
    spline.getStartPoint(point);
    expectPoint(point, 1.0, 1.0, 0.0);
    spline.getEndPoint(point);
    expectPoint(point, 3.0, 1.0, 0.0);
    // Knots that do not fit the points leave the fit points in force.
    spline.setNurbs(host_db::NurbsCurve(3, {0.0, 1.0}, {{9.0, 9.0, 9.0}}, {}));
    spline.getStartPoint(point);
    expectPoint(point, 1.0, 1.0, 0.0);
}

TEST(HeavyPolylineTest, FrameVerticesAreNotDrawn) {
    AcDb2dPolyline polyline;
    polyline.setElevation(4.0);
    polyline.appendVertex({{9.0, 9.0, 0.0}, 0.0, 0.0, 0.0, 16, 0});
    polyline.appendVertex({{0.0, 0.0, 0.0}, 0.0, 0.0, 0.0, 8, 0});
    polyline.appendVertex({{3.0, 4.0, 0.0}, 0.0, 0.0, 0.0, 8, 0});
    AcGePoint3d point;
    polyline.getStartPoint(point);
    expectPoint(point, 0.0, 0.0, 4.0);
    EXPECT_DOUBLE_EQ(polyline.curveLength(), 5.0);
    EXPECT_STREQ(polyline.dxfTypeName(), L"POLYLINE");
    EXPECT_EQ(AcDbCurve::cast(&polyline), &polyline);
}

TEST(HeavyPolylineTest, AClosedOneEndsWhereItStarts) {
    AcDb2dPolyline flat;
    AcDb3dPolyline space;
    for (const AcGePoint3d& point :
         {AcGePoint3d(0.0, 0.0, 0.0), AcGePoint3d(4.0, 0.0, 0.0), AcGePoint3d(4.0, 3.0, 0.0)}) {
        flat.appendVertex({point});
        space.appendVertex({point});
    }
    AcGePoint3d point;
    flat.getEndPoint(point);
    expectPoint(point, 4.0, 3.0, 0.0);
    flat.setClosed(1);
    space.setClosed(1);
    flat.getEndPoint(point);
    expectPoint(point, 0.0, 0.0, 0.0);
    space.getEndPoint(point);
    expectPoint(point, 0.0, 0.0, 0.0);
    EXPECT_DOUBLE_EQ(flat.curveLength(), 12.0);
    EXPECT_DOUBLE_EQ(space.curveLength(), 12.0);
}

TEST(HeavyPolylineTest, BulgesAreArcs) {
    AcDb2dPolyline polyline;
    polyline.appendVertex({{0.0, 0.0, 0.0}, 1.0, 0.0, 0.0, 0, 0});
    polyline.appendVertex({{2.0, 0.0, 0.0}});
    EXPECT_NEAR(polyline.curveLength(), kPi, 1e-12);
    AcDbExtents box;
    polyline.getGeomExtents(box);
    expectBox(box, {0.0, -1.0, 0.0}, {2.0, 0.0, 0.0});
}

TEST(CurveCloneTest, IsADeepCopyOutsideTheDatabase) {
    const AcDbLine line({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    const std::unique_ptr<AcRxObject> copy(line.clone());
    auto* copied = AcDbLine::cast(copy.get());
    ASSERT_NE(copied, nullptr);
    copied->setStartPoint({0.0, 0.0, 0.0});
    EXPECT_EQ(line.startPoint().x, 1.0);
    EXPECT_EQ(copied->endPoint().z, 6.0);
}

} // namespace
