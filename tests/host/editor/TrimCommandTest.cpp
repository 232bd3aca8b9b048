#include "host/editor/CommandFixture.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

class TrimCommandTest : public CommandFixture {};

TEST_F(TrimCommandTest, ALineThroughACircleLosesThePartWithinAndBecomesTwo) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId circle = addCircle({5, 0, 0}, 2.0);
    EXPECT_EQ(trimAt(circle, line, {5, 0, 0}), RTNORM);
    ASSERT_EQ(entities().size(), 3U);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    expectLine(entities()[2], {7, 0, 0}, {10, 0, 0});
    EXPECT_NE(host_db::peek<AcDbCircle>(circle), nullptr);
}

TEST_F(TrimCommandTest, ALineThatEndsInACircleStopsAtItsRim) {
    const AcDbObjectId ending = addLine({0, 0, 0}, {6, 0, 0});
    const AcDbObjectId starting = addLine({5, 1, 0}, {5, 9, 0});
    const AcDbObjectId circle = addCircle({5, 0, 0}, 2.0);
    EXPECT_EQ(trimAt(circle, ending, {5, 0, 0}), RTNORM);
    EXPECT_EQ(trimAt(circle, starting, {5, 0, 0}), RTNORM);
    EXPECT_EQ(entities().size(), 3U);
    expectLine(ending, {0, 0, 0}, {3, 0, 0});
    expectLine(starting, {5, 2, 0}, {5, 9, 0});
}

TEST_F(TrimCommandTest, CutsAreSeenInPlanAndTheLineKeepsItsSlope) {
    // Falls from 10 to 0 over the circle, which lies at height 50: cut at x 3 and 7.
    const AcDbObjectId line = addLine({0, 0, 10}, {10, 0, 0});
    const AcDbObjectId circle = addCircle({5, 0, 50}, 2.0);
    EXPECT_EQ(trimAt(circle, line, {5, 0, 50}), RTNORM);
    expectLine(line, {0, 0, 10}, {3, 0, 7});
    expectLine(entities()[2], {7, 0, 3}, {10, 0, 0});
}

TEST_F(TrimCommandTest, PlanIsThatOfTheUserCoordinateSystem) {
    // Seen along the world's Y axis the circle at another Y cuts the line.
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({0, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId circle =
        add(std::make_unique<AcDbCircle>(AcGePoint3d(5, 70, 0), AcGeVector3d(0, -1, 0), 2.0));
    EXPECT_EQ(trimAt(circle, line, {5, 0, 0}), RTNORM);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    expectLine(entities()[2], {7, 0, 0}, {10, 0, 0});
}

TEST_F(TrimCommandTest, OnlyTheNearestCutsOnEitherSideCount) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId a = addLine({2, -1, 0}, {2, 1, 0});
    const AcDbObjectId b = addLine({4, -1, 0}, {4, 1, 0});
    const AcDbObjectId c = addLine({6, -1, 0}, {6, 1, 0});
    const Set edges{a, b, c};
    const AcGePoint3d at(5, 0, 0);
    EXPECT_EQ(acedCommand(RTSTR, L"TRIM", RTPICKS, edges.name, RTSTR, L"", RTLB, RTENAME,
                          Name(line).name, RTPOINT, asDblArray(at), RTLE, RTSTR, L"", 0),
              RTNORM);
    expectLine(line, {0, 0, 0}, {4, 0, 0});
    expectLine(entities()[4], {6, 0, 0}, {10, 0, 0});
}

TEST_F(TrimCommandTest, WithoutEdgesEveryEntityCuts) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    addLine({4, -1, 0}, {4, 1, 0});
    const AcGePoint3d at(9, 0, 0);
    EXPECT_EQ(acedCommand(RTSTR, L"trim", RTSTR, L"", RTLB, RTENAME, Name(line).name, RTPOINT,
                          asDblArray(at), RTLE, RTSTR, L"", 0),
              RTNORM);
    expectLine(line, {0, 0, 0}, {4, 0, 0});
    EXPECT_EQ(entities().size(), 2U);
}

TEST_F(TrimCommandTest, SeveralPicksAreTakenOneAfterTheOther) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId edge = addLine({4, -1, 0}, {4, 1, 0});
    const AcDbObjectId second = addLine({0, 0.5, 0}, {10, 0.5, 0});
    const AcGePoint3d right(9, 0, 0);
    EXPECT_EQ(acedCommand(RTSTR, L"trim", RTENAME, Name(edge).name, RTSTR, L"", RTLB, RTENAME,
                          Name(line).name, RTPOINT, asDblArray(right), RTLE, RTLB, RTPOINT,
                          asDblArray(right), RTENAME, Name(second).name, RTLE, RTSTR, L"", 0),
              RTNORM);
    expectLine(line, {0, 0, 0}, {4, 0, 0});
    expectLine(second, {0, 0.5, 0}, {4, 0.5, 0});
}

TEST_F(TrimCommandTest, ACurveThatNoEdgeCrossesIsPassedOver) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId far = addCircle({5, 50, 0}, 2.0);
    // An edge that meets the very end cuts nothing off.
    const AcDbObjectId end = addLine({10, -1, 0}, {10, 1, 0});
    const auto before = dumpOf(database());
    EXPECT_EQ(trimAt(far, line, {5, 0, 0}), RTNORM);
    EXPECT_EQ(trimAt(end, line, {5, 0, 0}), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(TrimCommandTest, ATouchCutsOnce) {
    const AcDbObjectId line = addLine({0, 2, 0}, {10, 2, 0});
    const AcDbObjectId circle = addCircle({5, 0, 0}, 2.0);
    EXPECT_EQ(trimAt(circle, line, {9, 2, 0}), RTNORM);
    expectLine(line, {0, 2, 0}, {5, 2, 0});
    EXPECT_EQ(entities().size(), 2U);
}

TEST_F(TrimCommandTest, ACircleBecomesTheArcOutsideThePick) {
    const AcDbObjectId circle = addCircle({0, 0, 0}, 5.0);
    const AcDbObjectId edge = addLine({-9, 0, 0}, {9, 0, 0});
    EXPECT_EQ(trimAt(edge, circle, {0, 5, 0}), RTNORM);
    expectArc(circle, {0, 0, 0}, 5.0, 180.0, 0.0);
    EXPECT_EQ(entities(), (std::vector<AcDbObjectId>{circle, edge}));
}

TEST_F(TrimCommandTest, AClosedCurveTakesTwoCuts) {
    const AcDbObjectId circle = addCircle({0, 0, 0}, 5.0);
    const AcDbObjectId edge = addLine({0, 0, 0}, {9, 0, 0});
    const auto before = dumpOf(database());
    EXPECT_EQ(trimAt(edge, circle, {0, 5, 0}), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(TrimCommandTest, AnArcIsCutByACircle) {
    // Circles of radius 5 about (0, 0) and (6, 0) meet at (3, 4) and (3, -4).
    const AcDbObjectId arc = addArc({0, 0, 0}, 5.0, 0.0, kPi);
    const AcDbObjectId circle = addCircle({6, 0, 0}, 5.0);
    EXPECT_EQ(trimAt(circle, arc, {5, 0, 0}), RTNORM);
    const auto* left = host_db::peek<AcDbArc>(arc);
    EXPECT_NEAR(left->startAngle(), std::atan2(4.0, 3.0), 1e-12);
    EXPECT_EQ(left->endAngle(), kPi);
    EXPECT_EQ(entities().size(), 2U);
}

TEST_F(TrimCommandTest, APolylineIsCutInTheMiddle) {
    const AcDbObjectId polyline = addPolyline({{0, 0}, {10, 0}, {10, 10}});
    const AcDbObjectId circle = addCircle({10, 0, 0}, 3.0);
    EXPECT_EQ(trimAt(circle, polyline, {10, 0, 0}), RTNORM);
    expectVertices(polyline, {{0, 0, 0}, {7, 0, 0}});
    expectVertices(entities()[2], {{10, 3, 0}, {10, 10, 0}});
}

TEST_F(TrimCommandTest, ABlockCutsByItsDefinition) {
    const AcDbObjectId block = addBlock(L"WELL");
    addTo(block, std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d(0, 0, 1), 1.0));
    auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(5, 0, 0), block);
    reference->setScaleFactors({2.0, 2.0, 2.0});
    const AcDbObjectId well = add(std::move(reference));
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(trimAt(well, line, {5, 0, 0}), RTNORM);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    expectLine(entities()[2], {7, 0, 0}, {10, 0, 0});
}

TEST_F(TrimCommandTest, LockedLayersAndOtherEntitiesArePassedOver) {
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"LOCKED");
    layer->setIsLocked(true);
    addRecord<AcDbLayerTable>(std::move(layer));
    auto made = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    made->setLayer(L"LOCKED");
    const AcDbObjectId locked = add(std::move(made));
    const AcDbObjectId circle = addCircle({5, 0, 0}, 2.0);
    const AcDbObjectId block = addBlock(L"WELL");
    const AcDbObjectId well = add(std::make_unique<AcDbBlockReference>(AcGePoint3d(), block));
    const auto before = dumpOf(database());
    EXPECT_EQ(trimAt(circle, locked, {5, 0, 0}), RTNORM);
    EXPECT_EQ(trimAt(circle, well, {5, 0, 0}), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
}

} // namespace
