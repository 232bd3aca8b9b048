#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

/// Bulge of a quarter of a circle: tan(pi / 8).
constexpr double kQuarter = 0.41421356237309503;
/// Length of a quarter of a circle of radius 10.
constexpr double kQuarterLength = 15.707963267948966;

class PipeRecord : public DrawingTest {};

/// What a record shows when its curve gave no direction.
void expectNoDirection(const _Pipe& pipe) {
    EXPECT_EQ(pipe.valid, 0);
    EXPECT_TRUE(sameVector(pipe.direction, {1, 0, 0}, 0.0));
    EXPECT_EQ(pipe.angle, 0.0);
}

void expectCurvesUnset(const _Pipe& pipe) {
    const AcGeLineSeg3d line;
    const AcGeCircArc3d arc;
    EXPECT_TRUE(samePoint(pipe.line.startPoint(), line.startPoint(), 0.0));
    EXPECT_TRUE(samePoint(pipe.line.endPoint(), line.endPoint(), 0.0));
    EXPECT_TRUE(samePoint(pipe.arc.startPoint(), arc.startPoint(), 0.0));
    EXPECT_TRUE(samePoint(pipe.arc.center(), arc.center(), 0.0));
    EXPECT_EQ(pipe.arc.radius(), arc.radius());
}

TEST_F(PipeRecord, DefaultsAreThoseOfTheTable) {
    const _Pipe pipe;
    EXPECT_TRUE(samePoint(pipe.startPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(pipe.endPoint, {0, 0, 0}, 0.0));
    expectCurvesUnset(pipe);
    expectNoDirection(pipe);
    EXPECT_EQ(pipe.isPolyline, 0);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_EQ(pipe.orientationFlag, 1);
    EXPECT_TRUE(pipe.id.isNull());
}

TEST_F(PipeRecord, LineIsReadAsAStraightPipe) {
    drawing.defineLayer(L"管线层");
    auto* line = new AcDbLine({1, 2, 3}, {4, 6, 15});
    line->setLayer(L"管线层");
    const AcDbObjectId id = drawing.addCurve(line);
    const _Pipe pipe(id, L"雨水");
    EXPECT_EQ(pipe.id, id);
    EXPECT_EQ(utf8(pipe.systemName), "雨水");
    EXPECT_EQ(utf8(pipe.layer), "管线层");
    EXPECT_TRUE(samePoint(pipe.startPoint, {1, 2, 3}, 0.0));
    EXPECT_TRUE(samePoint(pipe.endPoint, {4, 6, 15}, 0.0));
    EXPECT_TRUE(samePoint(pipe.line.startPoint(), {1, 2, 3}, 0.0));
    EXPECT_TRUE(samePoint(pipe.line.endPoint(), {4, 6, 15}, 0.0));
    // The difference is (3, 4, 12), 13 long.
    EXPECT_TRUE(sameVector(pipe.direction, {3.0 / 13, 4.0 / 13, 12.0 / 13}, 1e-15));
    EXPECT_EQ(pipe.isPolyline, 0);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_EQ(pipe.orientationFlag, 1);
    EXPECT_EQ(pipe.valid, 1);
}

TEST_F(PipeRecord, RecordLeavesTheEntityClosed) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const _Pipe pipe(id, kSewer);
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

TEST_F(PipeRecord, RecordDoesNotFollowTheDrawing) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    _Pipe pipe(id, kSewer);
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite), Acad::eOk);
    line->setEndPoint({99, 0, 0});
    line->close();
    EXPECT_TRUE(samePoint(pipe.endPoint, {10, 0, 0}, 0.0));
    EXPECT_DOUBLE_EQ(pipe.GetLength(), 10.0);
}

TEST_F(PipeRecord, AngleOfNegativeXDirectionIsPi) {
    const _Pipe pipe(drawing.addPipe({10, 0, 0}, {0, 0, 0}), kSewer);
    EXPECT_DOUBLE_EQ(pipe.angle, kPi);
}

TEST_F(PipeRecord, AngleDoesNotTellLeftFromRight) {
    const _Pipe left(drawing.addPipe({0, 0, 0}, {10, 10, 0}), kSewer);
    const _Pipe right(drawing.addPipe({0, 0, 0}, {10, -10, 0}), kSewer);
    EXPECT_NEAR(left.angle, kPi / 4, 1e-15);
    EXPECT_NEAR(right.angle, kPi / 4, 1e-15);
}

TEST_F(PipeRecord, AngleOfAnUprightPipeIsARightAngle) {
    const _Pipe pipe(drawing.addPipe({0, 0, 0}, {0, 0, 10}), kSewer);
    EXPECT_NEAR(pipe.angle, kPi / 2, 1e-15);
}

TEST_F(PipeRecord, ZeroLengthCurveIsNotValidAndHasNoLength) {
    _Pipe pipe(drawing.addPipe({5, 5, 0}, {5, 5, 0}), kSewer);
    expectNoDirection(pipe);
    EXPECT_TRUE(samePoint(pipe.startPoint, {5, 5, 0}, 0.0));
    EXPECT_EQ(pipe.GetLength(), 0.0);
}

TEST_F(PipeRecord, ChordOfExactlyOneIsValid) {
    const _Pipe pipe(drawing.addPipe({0, 0, 0}, {0, 1, 0}), kSewer);
    EXPECT_EQ(pipe.valid, 1);
    EXPECT_TRUE(sameVector(pipe.direction, {0, 1, 0}, 0.0));
}

TEST_F(PipeRecord, ChordBelowOneIsNotValidButItsPointsAreRead) {
    _Pipe pipe(drawing.addPipe({0, 0, 0}, {0, 0.999, 0}), kSewer);
    expectNoDirection(pipe);
    EXPECT_TRUE(samePoint(pipe.endPoint, {0, 0.999, 0}, 0.0));
    EXPECT_EQ(utf8(pipe.layer), "0");
    EXPECT_DOUBLE_EQ(pipe.GetLength(), 0.999);
}

TEST_F(PipeRecord, ClosedPolylineIsNotValid) {
    const AcDbObjectId id =
        drawing.addPolyline({{0, 0}, {10, 0}, {10, 10}}, {.system = kSewer}, true);
    const _Pipe pipe(id, kSewer);
    expectNoDirection(pipe);
    EXPECT_TRUE(samePoint(pipe.startPoint, pipe.endPoint, 0.0));
}

TEST_F(PipeRecord, CircleIsNotValid) {
    const _Pipe pipe(drawing.addCurve(new AcDbCircle({0, 0, 0}, {0, 0, 1}, 10)), kSewer);
    expectNoDirection(pipe);
}

TEST_F(PipeRecord, ArcEntityIsItsStraightChord) {
    // From (10, 0) to (0, 10).
    _Pipe pipe(drawing.addCurve(new AcDbArc({0, 0, 0}, 10, 0, kPi / 2)), kSewer);
    EXPECT_EQ(pipe.isPolyline, 0);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_EQ(pipe.valid, 1);
    EXPECT_TRUE(samePoint(pipe.startPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(pipe.endPoint, {0, 10, 0}));
    EXPECT_NEAR(pipe.GetLength(), 14.142135623730951, 1e-9);
}

TEST_F(PipeRecord, PolylineThatBeginsStraightIsTheChordOfAllItsVertices) {
    _Pipe pipe(drawing.addPolyline({{0, 0}, {10, 0}, {10, 10}}), kSewer);
    EXPECT_EQ(pipe.isPolyline, 1);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_TRUE(samePoint(pipe.line.endPoint(), {10, 10, 0}, 0.0));
    EXPECT_NEAR(pipe.GetLength(), 14.142135623730951, 1e-12);
}

TEST_F(PipeRecord, OnlyTheFirstSegmentMakesAnArc) {
    const _Pipe pipe(drawing.addPolyline({{0, 0}, {10, 0, kQuarter}, {20, 10}}), kSewer);
    EXPECT_EQ(pipe.isPolyline, 1);
    EXPECT_EQ(pipe.isArc, 0);
}

TEST_F(PipeRecord, PolylineThatBeginsWithAnArcKeepsThatArcAndTheWholeChord) {
    const _Pipe pipe(drawing.addPolyline({{10, 0, kQuarter}, {0, 10}, {-5, 10}}), kSewer);
    EXPECT_EQ(pipe.isPolyline, 1);
    EXPECT_EQ(pipe.isArc, 1);
    EXPECT_EQ(pipe.valid, 1);
    EXPECT_TRUE(samePoint(pipe.startPoint, {10, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(pipe.endPoint, {-5, 10, 0}, 0.0));
    EXPECT_TRUE(samePoint(pipe.line.startPoint(), {10, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(pipe.line.endPoint(), {-5, 10, 0}, 0.0));
    EXPECT_TRUE(samePoint(pipe.arc.center(), {0, 0, 0}));
    EXPECT_NEAR(pipe.arc.radius(), 10.0, 1e-12);
    EXPECT_TRUE(samePoint(pipe.arc.startPoint(), {10, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(pipe.arc.endPoint(), {0, 10, 0}, 0.0));
}

TEST_F(PipeRecord, HeavyPolylineIsItsStraightChord) {
    auto polyline = std::make_unique<AcDb2dPolyline>();
    polyline->appendVertex({.point = {10, 0, 0}, .bulge = kQuarter});
    polyline->appendVertex({.point = {0, 10, 0}});
    _Pipe pipe(drawing.addCurve(polyline.release()), kSewer);
    EXPECT_EQ(pipe.isPolyline, 0);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_NEAR(pipe.GetLength(), 14.142135623730951, 1e-9);
}

TEST_F(PipeRecord, ErasedEntityLeavesTheDefaults) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    drawing.erase(id);
    _Pipe pipe(id, L"雨水");
    EXPECT_EQ(pipe.id, id);
    EXPECT_EQ(utf8(pipe.systemName), "雨水");
    EXPECT_TRUE(pipe.layer.IsEmpty());
    expectCurvesUnset(pipe);
    EXPECT_TRUE(samePoint(pipe.endPoint, {0, 0, 0}, 0.0));
    expectNoDirection(pipe);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_EQ(pipe.orientationFlag, 1);
    EXPECT_EQ(pipe.GetLength(), 0.0);
}

TEST_F(PipeRecord, CurveThatIsBeingWrittenLeavesTheDefaults) {
    const AcDbObjectId id = drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter);
    AcDbPolyline* writer = nullptr;
    ASSERT_EQ(acdbOpenObject(writer, id, AcDb::kForWrite), Acad::eOk);
    const _Pipe pipe(id, kSewer);
    writer->close();
    expectNoDirection(pipe);
    expectCurvesUnset(pipe);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_TRUE(pipe.layer.IsEmpty());
    EXPECT_EQ(_Pipe(id, kSewer).valid, 1);
}

TEST_F(PipeRecord, PolylineWithoutVerticesHasALayerAndNoLength) {
    drawing.defineLayer(L"管线层");
    auto* polyline = new AcDbPolyline();
    polyline->setLayer(L"管线层");
    _Pipe pipe(drawing.addCurve(polyline), kSewer);
    expectNoDirection(pipe);
    EXPECT_EQ(pipe.isPolyline, 1);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_EQ(utf8(pipe.layer), "管线层");
    EXPECT_EQ(pipe.GetLength(), 0.0);
}

TEST_F(PipeRecord, BulgeBetweenVerticesAtOnePlaceMakesNoArc) {
    const _Pipe pipe(drawing.addPolyline({{0, 0, kQuarter}, {0, 0}, {10, 0}}), kSewer);
    EXPECT_EQ(pipe.isPolyline, 1);
    EXPECT_EQ(pipe.isArc, 0);
    EXPECT_EQ(pipe.valid, 1);
}

TEST_F(PipeRecord, EntityThatIsNoCurveLeavesTheDefaults) {
    const AcDbObjectId id = drawing.addBlock({7, 8, 0}, L"VLT_WELL_01");
    const _Pipe pipe(id, kSewer);
    expectNoDirection(pipe);
    EXPECT_TRUE(samePoint(pipe.startPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(pipe.layer.IsEmpty());
}

TEST_F(PipeRecord, NullIdLeavesTheDefaults) {
    const _Pipe pipe(AcDbObjectId::kNull, kSewer);
    expectNoDirection(pipe);
    EXPECT_TRUE(pipe.id.isNull());
}

void expectSamePipe(const _Pipe& actual, const _Pipe& expected) {
    EXPECT_EQ(actual.id, expected.id);
    EXPECT_EQ(utf8(actual.layer), utf8(expected.layer));
    EXPECT_EQ(utf8(actual.systemName), utf8(expected.systemName));
    EXPECT_EQ(actual.valid, expected.valid);
    EXPECT_TRUE(samePoint(actual.startPoint, expected.startPoint, 0.0));
    EXPECT_TRUE(samePoint(actual.endPoint, expected.endPoint, 0.0));
    EXPECT_TRUE(sameVector(actual.direction, expected.direction, 0.0));
    EXPECT_EQ(actual.angle, expected.angle);
    EXPECT_EQ(actual.isPolyline, expected.isPolyline);
    EXPECT_EQ(actual.isArc, expected.isArc);
    EXPECT_TRUE(samePoint(actual.line.startPoint(), expected.line.startPoint(), 0.0));
    EXPECT_TRUE(samePoint(actual.line.endPoint(), expected.line.endPoint(), 0.0));
    EXPECT_TRUE(samePoint(actual.arc.startPoint(), expected.arc.startPoint(), 0.0));
    EXPECT_TRUE(samePoint(actual.arc.center(), expected.arc.center(), 0.0));
    EXPECT_EQ(actual.orientationFlag, expected.orientationFlag);
}

TEST_F(PipeRecord, CopyConstructorKeepsAUsableArc) {
    _Pipe pipe(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    pipe.orientationFlag = 0;
    _Pipe copy(pipe);
    expectSamePipe(copy, pipe);
    EXPECT_NEAR(copy.GetLength(), kQuarterLength, 1e-9);
}

TEST_F(PipeRecord, AssignmentCopiesEveryField) {
    _Pipe pipe(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    pipe.orientationFlag = 0;
    _Pipe assigned(drawing.addPipe({1, 1, 0}, {5, 1, 0}), kStorm);
    assigned = pipe;
    expectSamePipe(assigned, pipe);
    EXPECT_NEAR(assigned.GetLength(), kQuarterLength, 1e-9);
}

TEST_F(PipeRecord, SelfAssignmentChangesNothing) {
    _Pipe pipe(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    _Pipe before(pipe);
    const _Pipe& same = pipe;
    pipe = same;
    expectSamePipe(pipe, before);
}

} // namespace
} // namespace module_tests
