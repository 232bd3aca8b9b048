#include "host/editor/CommandFixture.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

class BreakCommandTest : public CommandFixture {};

TEST_F(BreakCommandTest, ALineIsPartedAndTheNewPieceComesLast) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId other = addLine({0, 5, 0}, {1, 5, 0});
    EXPECT_EQ(breakAt(line, {3, 0, 0}, {7, 0, 0}), RTNORM);
    ASSERT_EQ(entities().size(), 3U);
    EXPECT_EQ(entities()[0], line);
    EXPECT_EQ(entities()[1], other);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    expectLine(entities()[2], {7, 0, 0}, {10, 0, 0});
}

TEST_F(BreakCommandTest, TheOrderOfThePointsIsOfNoAccountOnALine) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(breakAt(line, {7, 0, 0}, {3, 0, 0}), RTNORM);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    expectLine(entities()[1], {7, 0, 0}, {10, 0, 0});
}

TEST_F(BreakCommandTest, PointsCountAtTheNearestPlace) {
    const AcDbObjectId line = addLine({0, 0, 2}, {10, 0, 2});
    EXPECT_EQ(breakAt(line, {3, 4, 0}, {7, -9, 5}), RTNORM);
    expectLine(line, {0, 0, 2}, {3, 0, 2});
    expectLine(entities()[1], {7, 0, 2}, {10, 0, 2});
}

TEST_F(BreakCommandTest, APointBeyondTheEndTakesTheEndAway) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(breakAt(line, {6, 0, 0}, {20, 0, 0}), RTNORM);
    EXPECT_EQ(entities().size(), 1U);
    expectLine(line, {0, 0, 0}, {6, 0, 0});
    EXPECT_EQ(breakAt(line, {-3, 0, 0}, {2, 0, 0}), RTNORM);
    EXPECT_EQ(entities().size(), 1U);
    expectLine(line, {2, 0, 0}, {6, 0, 0});
}

TEST_F(BreakCommandTest, NothingMayBeLeftOfNothing) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const auto before = dumpOf(database());
    EXPECT_EQ(breakAt(line, {-1, 0, 0}, {11, 0, 0}), RTERROR);
    EXPECT_EQ(breakAt(line, {10, 0, 0}, {10, 0, 0}), RTERROR);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(BreakCommandTest, OnePlaceTwicePartsTheLineThere) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcGePoint3d at(4, 0, 0);
    EXPECT_EQ(acedCommand(RTSTR, L"_.BREAK", RTENAME, Name(line).name, RTPOINT, asDblArray(at),
                          RTSTR, L"@", 0),
              RTNORM);
    expectLine(line, {0, 0, 0}, {4, 0, 0});
    expectLine(entities()[1], {4, 0, 0}, {10, 0, 0});
}

TEST_F(BreakCommandTest, ASetOfOneNamesTheObject) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId other = addLine({0, 1, 0}, {10, 1, 0});
    const AcGePoint3d first(3, 0, 0);
    const AcGePoint3d second(7, 0, 0);
    const Set one{line};
    const Set two{line, other};
    const Set none{};
    EXPECT_EQ(acedCommand(RTSTR, L"break", RTPICKS, two.name, RTPOINT, asDblArray(first), RTPOINT,
                          asDblArray(second), 0),
              RTERROR);
    EXPECT_EQ(acedCommand(RTSTR, L"break", RTPICKS, none.name, RTPOINT, asDblArray(first), RTPOINT,
                          asDblArray(second), 0),
              RTERROR);
    EXPECT_EQ(entities().size(), 2U);
    EXPECT_EQ(acedCommand(RTSTR, L"break", RTPICKS, one.name, RTPOINT, asDblArray(first), RTPOINT,
                          asDblArray(second), 0),
              RTNORM);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
}

TEST_F(BreakCommandTest, APickGivesTheFirstPointUnlessFirstFollows) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcGePoint3d pick(3, 0, 0);
    const AcGePoint3d second(7, 0, 0);
    EXPECT_EQ(acedCommand(RTSTR, L"break", RTLB, RTENAME, Name(line).name, RTPOINT,
                          asDblArray(pick), RTLE, RTPOINT, asDblArray(second), 0),
              RTNORM);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    const AcDbObjectId rest = entities()[1];
    const AcGePoint3d first(8, 0, 0);
    const AcGePoint3d last(9, 0, 0);
    EXPECT_EQ(acedCommand(RTSTR, L"break", RTLB, RTENAME, Name(rest).name, RTPOINT,
                          asDblArray(second), RTLE, RTSTR, L"_F", RTPOINT, asDblArray(first),
                          RTPOINT, asDblArray(last), 0),
              RTNORM);
    expectLine(rest, {7, 0, 0}, {8, 0, 0});
    expectLine(entities()[2], {9, 0, 0}, {10, 0, 0});
}

TEST_F(BreakCommandTest, PointsAreInTheUserCoordinateSystem) {
    const AcDbObjectId line = addLine({100, 0, 0}, {100, 10, 0});
    // X runs along the world's Y from (100, 0).
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({100, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    EXPECT_EQ(breakAt(line, {3, 0, 0}, {7, 0, 0}), RTNORM);
    expectLine(line, {100, 0, 0}, {100, 3, 0});
    expectLine(entities()[1], {100, 7, 0}, {100, 10, 0});
}

TEST_F(BreakCommandTest, ACircleBecomesAnArcUnderItsOwnIdentity) {
    const AcDbObjectId circle = addCircle({5, 5, 1}, 2.0);
    const AcDbHandle handle = circle.handle();
    // From the right to the top goes, counter-clockwise: the arc runs from 90 degrees on to 0.
    EXPECT_EQ(breakAt(circle, {7, 5, 1}, {5, 7, 1}), RTNORM);
    EXPECT_EQ(entities(), std::vector<AcDbObjectId>{circle});
    EXPECT_EQ(circle.handle(), handle);
    expectArc(circle, {5, 5, 1}, 2.0, 90.0, 0.0);
    EXPECT_NEAR(host_db::peek<AcDbArc>(circle)->totalAngle(), 1.5 * kPi, 1e-9);
}

TEST_F(BreakCommandTest, TheOtherOrderTakesTheOtherPartOfACircle) {
    const AcDbObjectId circle = addCircle({0, 0, 0}, 2.0);
    EXPECT_EQ(breakAt(circle, {0, 2, 0}, {2, 0, 0}), RTNORM);
    expectArc(circle, {0, 0, 0}, 2.0, 0.0, 90.0);
}

TEST_F(BreakCommandTest, ACircleIsNotPartedAtOnePlace) {
    const AcDbObjectId circle = addCircle({0, 0, 0}, 2.0);
    const auto before = dumpOf(database());
    EXPECT_EQ(breakAt(circle, {0, 2, 0}, {0, 2, 0}), RTERROR);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(BreakCommandTest, AnArcIsParted) {
    const AcDbObjectId arc = addArc({0, 0, 0}, 1.0, 0.0, kPi);
    // At 60 and 120 degrees.
    const double half = std::sqrt(3.0) / 2.0;
    EXPECT_EQ(breakAt(arc, {0.5, half, 0}, {-0.5, half, 0}), RTNORM);
    expectArc(arc, {0, 0, 0}, 1.0, 0.0, 60.0);
    expectArc(entities()[1], {0, 0, 0}, 1.0, 120.0, 180.0);
}

TEST_F(BreakCommandTest, AnOpenPolylineIsPartedWithItsVertices) {
    const AcDbObjectId polyline = addPolyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_EQ(breakAt(polyline, {4, 0, 0}, {10, 5, 0}), RTNORM);
    expectVertices(polyline, {{0, 0, 0}, {4, 0, 0}});
    expectVertices(entities()[1], {{10, 5, 0}, {10, 10, 0}, {0, 10, 0}});
}

TEST_F(BreakCommandTest, AtAVertexNoShortSegmentsAreLeft) {
    const AcDbObjectId polyline = addPolyline({{0, 0}, {10, 0}, {10, 10}});
    EXPECT_EQ(breakAt(polyline, {10, 0, 0}, {10, 0, 0}), RTNORM);
    expectVertices(polyline, {{0, 0, 0}, {10, 0, 0}});
    expectVertices(entities()[1], {{10, 0, 0}, {10, 10, 0}});
}

TEST_F(BreakCommandTest, AClosedPolylineOpensAlongItsDirection) {
    const AcDbObjectId square = addPolyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
    EXPECT_EQ(breakAt(square, {4, 0, 0}, {6, 0, 0}), RTNORM);
    EXPECT_EQ(entities().size(), 1U);
    expectVertices(square, {{6, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}, {0, 0, 0}, {4, 0, 0}});
}

TEST_F(BreakCommandTest, TheOtherOrderLeavesTheOtherPartOfAClosedPolyline) {
    const AcDbObjectId square = addPolyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
    EXPECT_EQ(breakAt(square, {6, 0, 0}, {4, 0, 0}), RTNORM);
    expectVertices(square, {{4, 0, 0}, {6, 0, 0}});
}

TEST_F(BreakCommandTest, AClosedPolylineOpensAtOnePlace) {
    const AcDbObjectId square = addPolyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
    EXPECT_EQ(breakAt(square, {10, 5, 0}, {10, 5, 0}), RTNORM);
    expectVertices(square,
                   {{10, 5, 0}, {10, 10, 0}, {0, 10, 0}, {0, 0, 0}, {10, 0, 0}, {10, 5, 0}});
}

TEST_F(BreakCommandTest, BulgesAndWidthsOfAPartAreThoseOfThePart) {
    auto made = std::make_unique<AcDbPolyline>();
    // Half a circle about (1, 0), below the axis, that widens from 0 to 4.
    made->addVertexAt(0, {0, 0}, 1.0, 0.0, 4.0);
    made->addVertexAt(1, {2, 0}, 0.0, 4.0, 4.0);
    made->addVertexAt(2, {9, 0}, 0.0, 4.0, 4.0);
    const AcDbObjectId id = add(std::move(made));
    // The lowest point is the middle of the arc.
    EXPECT_EQ(breakAt(id, {1, -1, 0}, {4, 0, 0}), RTNORM);
    expectVertices(id, {{0, 0, 0}, {1, -1, 0}});
    const auto* arc = host_db::peek<AcDbPolyline>(id);
    double bulge = 0.0;
    double start = -1.0;
    double end = -1.0;
    arc->getBulgeAt(0, bulge);
    arc->getWidthsAt(0, start, end);
    // A quarter of a circle: the tangent of 22.5 degrees.
    EXPECT_NEAR(bulge, std::sqrt(2.0) - 1.0, 1e-12);
    EXPECT_NEAR(start, 0.0, 1e-12);
    EXPECT_NEAR(end, 2.0, 1e-12);
    expectVertices(entities()[1], {{4, 0, 0}, {9, 0, 0}});
}

TEST_F(BreakCommandTest, TheNewPieceHasWhatTheObjectHas) {
    acdbRegApp(L"管道系统");
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"管线");
    addRecord<AcDbLayerTable>(std::move(layer));
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    line->setLayer(L"管线");
    line->setColorIndex(3);
    line->setLinetype(L"Continuous");
    resbuf* chain = acutBuildList(1001, L"管道系统", 1000, L"污水", 0);
    line->setXData(chain);
    acutRelRb(chain);
    const AcDbObjectId id = add(std::move(line));
    EXPECT_EQ(breakAt(id, {3, 0, 0}, {7, 0, 0}), RTNORM);
    for (const AcDbObjectId piece : entities()) {
        const auto* entity = host_db::peek<AcDbLine>(piece);
        EXPECT_EQ(entity->layerId(), host_db::peek<AcDbLine>(id)->layerId());
        EXPECT_EQ(entity->colorIndex(), 3);
        ACHAR* linetype = entity->linetype();
        EXPECT_STREQ(linetype, L"Continuous");
        acutDelString(linetype);
        resbuf* data = entity->xData(L"管道系统");
        ASSERT_NE(data, nullptr);
        EXPECT_STREQ(data->rbnext->resval.rstring, L"污水");
        acutRelRb(data);
    }
    EXPECT_EQ(entities().size(), 2U);
}

TEST_F(BreakCommandTest, ACircleKeepsItsPropertiesAsAnArc) {
    acdbRegApp(L"OTHER");
    auto made = std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d(0, 0, 1), 2.0);
    made->setColorIndex(5);
    resbuf* chain = acutBuildList(1001, L"OTHER", 1000, L"x", 0);
    made->setXData(chain);
    acutRelRb(chain);
    const AcDbObjectId id = add(std::move(made));
    EXPECT_EQ(breakAt(id, {2, 0, 0}, {0, 2, 0}), RTNORM);
    const auto* arc = host_db::peek<AcDbArc>(id);
    ASSERT_NE(arc, nullptr);
    EXPECT_EQ(arc->colorIndex(), 5);
    EXPECT_EQ(arc->ownerId(), database().modelSpaceId());
    EXPECT_TRUE(arc->hasXdataOf(database().applications().find(L"OTHER")));
}

TEST_F(BreakCommandTest, OtherKindsOfEntitiesAndLockedLayersAreRefused) {
    const AcDbObjectId block = addBlock(L"WELL");
    const AcDbObjectId well = add(std::make_unique<AcDbBlockReference>(AcGePoint3d(), block));
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"LOCKED");
    layer->setIsLocked(true);
    addRecord<AcDbLayerTable>(std::move(layer));
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    line->setLayer(L"LOCKED");
    const AcDbObjectId locked = add(std::move(line));
    const auto before = dumpOf(database());
    EXPECT_EQ(breakAt(well, {3, 0, 0}, {7, 0, 0}), RTERROR);
    EXPECT_EQ(breakAt(locked, {3, 0, 0}, {7, 0, 0}), RTERROR);
    EXPECT_EQ(dumpOf(database()), before);
}

} // namespace
