#include "database/AcDbPolyline.h"

#include "host/database/DatabaseFixture.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

/// A half turn below the chord, a leg to the right, a quarter turn.
class Sample : public AcDbPolyline {
public:
    Sample() {
        addVertexAt(0, {0.0, 0.0}, 1.0);
        addVertexAt(1, {2.0, 0.0});
        addVertexAt(2, {5.0, 0.0}, std::tan(kPi / 8.0));
        addVertexAt(3, {6.0, 1.0});
    }
};

TEST(AcDbPolylineTest, SegmentTypes) {
    Sample polyline;
    EXPECT_EQ(polyline.numVerts(), 4U);
    EXPECT_EQ(polyline.segType(0), AcDbPolyline::kArc);
    EXPECT_EQ(polyline.segType(1), AcDbPolyline::kLine);
    EXPECT_EQ(polyline.segType(3), AcDbPolyline::kPoint);
    EXPECT_EQ(polyline.segType(4), AcDbPolyline::kEmpty);
    polyline.setClosed(1);
    EXPECT_EQ(polyline.segType(3), AcDbPolyline::kLine);
    polyline.setPointAt(1, {0.0, 0.0});
    EXPECT_EQ(polyline.segType(0), AcDbPolyline::kCoincident);
    EXPECT_EQ(AcDbPolyline::kLine, 0);
    EXPECT_EQ(AcDbPolyline::kArc, 1);
    EXPECT_EQ(AcDbPolyline().segType(0), AcDbPolyline::kEmpty);
}

TEST(AcDbPolylineTest, AnArcRunsFromItsFirstToItsSecondVertex) {
    AcGeCircArc3d arc;
    ASSERT_EQ(Sample().getArcSegAt(0, arc), Acad::eOk);
    expectPoint(arc.center(), 1.0, 0.0, 0.0);
    EXPECT_NEAR(arc.radius(), 1.0, 1e-12);
    expectPoint(arc.startPoint(), 0.0, 0.0, 0.0, 0.0);
    expectPoint(arc.endPoint(), 2.0, 0.0, 0.0, 0.0);
    EXPECT_NEAR(arc.normal().z, 1.0, 1e-12);
    EXPECT_EQ(arc.startAng(), 0.0);
    EXPECT_NEAR(arc.endAng(), kPi, 1e-12);
    expectPoint(arc.evalPoint(kPi / 2.0), 1.0, -1.0, 0.0);
}

TEST(AcDbPolylineTest, ANegativeBulgeFlipsTheNormal) {
    AcDbPolyline polyline;
    polyline.setElevation(7.0);
    polyline.addVertexAt(0, {0.0, 0.0}, -1.0);
    polyline.addVertexAt(1, {2.0, 0.0});
    AcGeCircArc3d arc;
    ASSERT_EQ(polyline.getArcSegAt(0, arc), Acad::eOk);
    EXPECT_NEAR(arc.normal().z, -1.0, 1e-12);
    expectPoint(arc.startPoint(), 0.0, 0.0, 7.0, 0.0);
    expectPoint(arc.evalPoint(kPi / 2.0), 1.0, 1.0, 7.0);
    EXPECT_NEAR(arc.endAng(), kPi, 1e-12);
}

TEST(AcDbPolylineTest, SegmentsOfTheWrongTypeAreRefused) {
    AcGeCircArc3d arc;
    AcGeLineSeg3d line;
    EXPECT_EQ(Sample().getArcSegAt(1, arc), Acad::eInvalidInput);
    EXPECT_EQ(Sample().getLineSegAt(0, line), Acad::eInvalidInput);
    EXPECT_EQ(Sample().getArcSegAt(9, arc), Acad::eInvalidIndex);
    ASSERT_EQ(Sample().getLineSegAt(1, line), Acad::eOk);
    expectPoint(line.startPoint(), 2.0, 0.0, 0.0);
    expectPoint(line.endPoint(), 5.0, 0.0, 0.0);
}

TEST(AcDbPolylineTest, LengthParametersAndExtents) {
    const Sample polyline;
    EXPECT_NEAR(polyline.curveLength(), kPi + 3.0 + kPi / 2.0, 1e-12);
    AcGePoint3d point;
    ASSERT_EQ(polyline.getPointAtParam(0.5, point), Acad::eOk);
    expectPoint(point, 1.0, -1.0, 0.0);
    ASSERT_EQ(polyline.getPointAtParam(1.5, point), Acad::eOk);
    expectPoint(point, 3.5, 0.0, 0.0);
    double value = 0.0;
    ASSERT_EQ(polyline.getEndParam(value), Acad::eOk);
    EXPECT_DOUBLE_EQ(value, 3.0);
    ASSERT_EQ(polyline.getParamAtPoint({3.5, 0.0, 0.0}, value), Acad::eOk);
    EXPECT_NEAR(value, 1.5, 1e-12);
    ASSERT_EQ(polyline.getDistAtParam(2.0, value), Acad::eOk);
    EXPECT_NEAR(value, kPi + 3.0, 1e-12);
    EXPECT_EQ(polyline.getPointAtParam(3.5, point), Acad::eInvalidInput);
    AcDbExtents box;
    ASSERT_EQ(polyline.getGeomExtents(box), Acad::eOk);
    expectBox(box, {0.0, -1.0, 0.0}, {6.0, 1.0, 0.0});
}

TEST(AcDbPolylineTest, AClosedOneEndsWhereItStarts) {
    Sample polyline;
    AcGePoint3d point;
    polyline.getEndPoint(point);
    expectPoint(point, 6.0, 1.0, 0.0);
    polyline.setClosed(1);
    polyline.getEndPoint(point);
    expectPoint(point, 0.0, 0.0, 0.0);
}

TEST(AcDbPolylineTest, VerticesStandInItsOwnPlane) {
    AcDbPolyline polyline;
    polyline.setNormal({0.0, 0.0, -3.0});
    polyline.setElevation(2.0);
    polyline.addVertexAt(0, {5.0, 1.0});
    polyline.addVertexAt(1, {6.0, 1.0});
    AcGePoint3d point;
    ASSERT_EQ(polyline.getPointAt(0, point), Acad::eOk);
    expectPoint(point, -5.0, 1.0, -2.0);
    AcGePoint2d own;
    ASSERT_EQ(polyline.getPointAt(0, own), Acad::eOk);
    EXPECT_EQ(own.x, 5.0);
    EXPECT_EQ(own.y, 1.0);
}

// As the matrix of its plane has it, which is the identity: nought has no sign, and what is not
// finite spoils the other coordinates.
TEST(AcDbPolylineTest, VerticesInPlanAreThoseThatTheIdentityGives) {
    constexpr double boundless = std::numeric_limits<double>::infinity();
    for (const AcGePoint3d& vertex :
         {AcGePoint3d(-0.0, -0.0, -0.0), AcGePoint3d(3.0, -4.5, 7.0),
          AcGePoint3d(boundless, 1.0, 2.0), AcGePoint3d(1.0, -boundless, 2.0),
          AcGePoint3d(1.0, 2.0, boundless)}) {
        AcDbPolyline polyline(1);
        polyline.addVertexAt(0, AcGePoint2d(vertex.x, vertex.y));
        polyline.setElevation(vertex.z);
        AcGePoint3d point;
        ASSERT_EQ(polyline.getPointAt(0, point), Acad::eOk);
        const AcGePoint3d expected = AcGeMatrix3d::kIdentity * vertex;
        const double of[] = {point.x, point.y, point.z};
        const double wanted[] = {expected.x, expected.y, expected.z};
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(std::isnan(of[i]), std::isnan(wanted[i])) << i;
            EXPECT_TRUE(std::isnan(of[i]) || of[i] == wanted[i]) << i;
            EXPECT_TRUE(std::isnan(of[i]) || std::signbit(of[i]) == std::signbit(wanted[i])) << i;
        }
    }
}

TEST(AcDbPolylineTest, VerticesAreInsertedChangedAndRemoved) {
    Sample polyline;
    EXPECT_EQ(polyline.addVertexAt(9, {0.0, 0.0}), Acad::eInvalidIndex);
    ASSERT_EQ(polyline.addVertexAt(1, {1.0, 5.0}, 0.5, 0.2, -4.0), Acad::eOk);
    EXPECT_EQ(polyline.numVerts(), 5U);
    double bulge = 0.0;
    ASSERT_EQ(polyline.getBulgeAt(1, bulge), Acad::eOk);
    EXPECT_EQ(bulge, 0.5);
    double start = 0.0;
    double end = 9.0;
    ASSERT_EQ(polyline.getWidthsAt(1, start, end), Acad::eOk);
    EXPECT_EQ(start, 0.2);
    EXPECT_EQ(end, 0.0);
    ASSERT_EQ(polyline.removeVertexAt(0), Acad::eOk);
    EXPECT_EQ(polyline.removeVertexAt(4), Acad::eInvalidIndex);
    AcGePoint3d point;
    polyline.getStartPoint(point);
    expectPoint(point, 1.0, 5.0, 0.0);
    polyline.reset(1, 2);
    EXPECT_EQ(polyline.numVerts(), 2U);
    polyline.reset(0, 0);
    EXPECT_EQ(polyline.getStartPoint(point), Acad::eDegenerateGeometry);
    AcDbExtents box;
    EXPECT_EQ(polyline.getGeomExtents(box), Acad::eInvalidExtents);
}

} // namespace
