// Pipes without length, entities on one place, and places as far out as numbers go.

#include "module/trust/BothWays.h"

#include <cmath>
#include <limits>

namespace module_tests {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

using ExtremePlaceTest = DrawingTest;

TEST_F(ExtremePlaceTest, APipeOfAtMostOneUnitIsNotThere) {
    for (const double length : {0.0, 1e-300, 0.5, 1.0}) {
        SCOPED_TRACE(length);
        drawing.startAnew();
        const ShortSewer sewer = addShortSewer(drawing);
        const AcDbObjectId stub =
            drawing.addPipe({20, 0, 0}, {20, length, 0}, {.startElevation = L"3"});
        GravitySearchObject network;
        EXPECT_EQ(searchSewer(network, stub), 0);
        EXPECT_EQ(network.wells.GetSize(), 0);
        EXPECT_EQ(searchSewer(network, sewer.first, stub), 0) << "no end to find a way from";
        Seg seg;
        EXPECT_EQ(GetSingleSeg(seg, stub), 0);
        EXPECT_EQ(seg.kind, 1);
        EXPECT_TRUE(seg.gravity.pipeIds.isEmpty());
        AcDbObjectIdArray stubs;
        stubs.append(stub);
        stubs.append(stub);
        CArray<Seg, Seg&> segs;
        EXPECT_EQ(GetSegsForCollideTest(segs, stubs, 1), 1);
        EXPECT_EQ(segs.GetSize(), 2) << "nothing to know them by as one";
        EXPECT_EQ(LowerHeightForCollideTest(stub, 1.0), 0);
        EXPECT_EQ(textOf(stub, L"起点标高"), L"3");
        const AcDbObjectId main = drawing.addPipe({0, 9, 0}, {length, 9, 0}, {.system = kSupply});
        PressureSegs none;
        EXPECT_EQ(searchMain(none, main), 0);
        EXPECT_EQ(none.GetSize(), 0);
    }
}

// The nearest end is looked for from 1e20 on, and where none is nearer the start counts as so far.
TEST_F(ExtremePlaceTest, APipeBeyondTheStartOfTheSearchForTheNearestCountsAsItsStart) {
    const AcDbObjectId root = drawing.addWell({0, 0, 0}, {.diameter = L"2e20"});
    const AcDbObjectId far = drawing.addWell({1e30, 5e20, 0});
    const AcDbObjectId pipe = drawing.addPipe({1e30, 0, 0}, {1e30, 5e20, 0});
    GravitySearchObject network;
    ASSERT_EQ(searchSewer(network, root), 1);
    ASSERT_EQ(network.wells.GetSize(), 2);
    EXPECT_EQ(network.wells[1].nodeEntity, far);
    ASSERT_EQ(network.segs.GetSize(), 1);
    EXPECT_EQ(idsOf(network.segs[0].pipeIds), Ids{pipe});
}

TEST_F(ExtremePlaceTest, AGapBeyondTheStartOfTheSearchForTheNearestIsBridgedFromTheStart) {
    drawing.setDwgScale(1e21); // pipes join over 4.4e20
    const AcDbObjectId root = drawing.addWell({0, 0, 0});
    drawing.addWell({1e30, 5e20, 0});
    const Ids pipes{drawing.addPipe({0, 0, 0}, {0, 10, 0}),
                    drawing.addPipe({1e30, 0, 0}, {1e30, 5e20, 0})};
    GravitySearchObject network;
    ASSERT_EQ(searchSewer(network, root), 1);
    ASSERT_EQ(network.wells.GetSize(), 2);
    ASSERT_EQ(network.segs.GetSize(), 1);
    EXPECT_EQ(idsOf(network.segs[0].pipeIds), pipes);
}

// A chain that comes back to the root closes a loop; so close to it there is no distance left.
TEST_F(ExtremePlaceTest, AnEndTooCloseToANodeForADistanceIsAtIt) {
    for (const double gap : {0.0, 1e-170, 1e-10}) {
        SCOPED_TRACE(gap);
        drawing.startAnew();
        const AcDbObjectId root = drawing.addWell({0, 0, 0}, {.diameter = L"0"});
        drawing.addPipe({0, 0, 0}, {-50, 0, 0});
        drawing.addTank({-60, -5, 0}, {-50, 5, 0});
        drawing.addArcPipe({0.005, 0, 0}, {10, 0, 0}, 0.5);
        drawing.addArcPipe({10, 0, 0}, {gap, 0, 0}, 0.5);
        GravitySearchObject network;
        EXPECT_EQ(searchSewer(network, root), gap < 1e-150 ? 0 : 1);
    }
}

TEST_F(ExtremePlaceTest, WellsOnOnePlaceAreOneNode) {
    const AcDbObjectId root = drawing.addWell({0, 0, 0});
    Ids onRoot;
    Ids onFar;
    for (int i = 0; i < 3; ++i) {
        onRoot.push_back(drawing.addWell({0, 0, 0}));
        onFar.push_back(drawing.addWell({20, 0, 0}));
    }
    drawing.addWell({0, 0, 0}, {.system = kStorm});
    drawing.addPipe({0, 0, 0}, {20, 0, 0});
    GravitySearchObject network;
    ASSERT_EQ(searchSewer(network, root), 1);
    ASSERT_EQ(network.wells.GetSize(), 2);
    EXPECT_EQ(idsOf(network.wells[0].mergedEntities), onRoot)
        << "the storm well is another system's";
    // 0.5 and 0.5 and no distance between make 0.5 again.
    EXPECT_EQ(network.wells[0].nodeRadius, 0.5);
    EXPECT_TRUE(samePoint(network.wells[0].nodePoint, {0, 0, 0}));
    EXPECT_EQ(network.wells[1].nodeEntity, onFar[0]) << "the first in drawing order";
    EXPECT_EQ(idsOf(network.wells[1].mergedEntities), (Ids{onFar[1], onFar[2]}));
}

TEST_F(ExtremePlaceTest, APipeThatLiesOnAnotherClosesASewer) {
    const ShortSewer sewer = addShortSewer(drawing);
    drawing.addPipe({0, 0, 0}, {20, 0, 0});
    GravitySearchObject network;
    // The second leads from the far well back to the root.
    EXPECT_EQ(searchSewer(network, sewer.first), 0);
    EXPECT_EQ(network.segs.GetSize(), 1);
}

TEST_F(ExtremePlaceTest, AMainThatLiesOnAnotherIsMergedBackOntoItsBegin) {
    const AcDbObjectId main = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
    const AcDbObjectId same = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
    PressureSegs segs;
    // The second hangs on the first one's end with its own end, and goes on in the same line.
    EXPECT_EQ(searchMain(segs, main), 1);
    ASSERT_EQ(segs.GetSize(), 1);
    EXPECT_EQ(idsOf(segs[0].pipeIds), (Ids{main, same}));
    EXPECT_TRUE(samePoint(segs[0].startPoint, {0, 0, 0}));
    EXPECT_TRUE(samePoint(segs[0].endPoint, {0, 0, 0}));
    EXPECT_EQ(segs[0].GetLength(), 0.0);
}

TEST_F(ExtremePlaceTest, FittingsOnOnePlaceStandInDrawingOrder) {
    const AcDbObjectId main = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
    Ids meters;
    for (int i = 0; i < 3; ++i) {
        meters.push_back(drawing.addBlock({30, 0, 0}, L"VLT_WELL_15",
                                          {{L"管井系统", kSupply}, {L"井的直径", L"1"}}));
    }
    PressureSegs segs;
    ASSERT_EQ(searchMain(segs, main), 1);
    EXPECT_EQ(idsOf(segs[0].meterIds), meters);
}

TEST_F(ExtremePlaceTest, ASewerReachesAsFarAsLengthsCanBeReckoned) {
    for (const double far : {1e9, 1e15, 1e100, 1e153}) {
        SCOPED_TRACE(far);
        drawing.startAnew();
        const AcDbObjectId root = drawing.addWell({0, 0, 0});
        const AcDbObjectId end = drawing.addWell({far, 0, 0});
        const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {far, 0, 0}, {.startElevation = L"2"});
        GravitySearchObject network;
        ASSERT_EQ(searchSewer(network, root, end), 1);
        ASSERT_EQ(network.wells.GetSize(), 2);
        EXPECT_EQ(network.wells[1].nodeEntity, end);
        EXPECT_EQ(network.wells[1].nodePoint.x, far);
        EXPECT_EQ(intsOf(network.pathWells), (std::vector<int>{1, 0}));
        EXPECT_DOUBLE_EQ(network.segs[0].length, far);
        Seg seg;
        EXPECT_EQ(GetSingleSeg(seg, pipe), 1);
        EXPECT_EQ(LowerHeightForCollideTest(pipe, 0.5), 1);
        EXPECT_EQ(textOf(pipe, L"起点标高"), L"1.5");
        GravitySearchObject* found = &network;
        EXPECT_EQ(DeleteSeg(found, 0), 1);
        EXPECT_EQ(network.wells.GetSize(), 1);
    }
}

TEST_F(ExtremePlaceTest, APipeWithoutAReckonableLengthIsNotThere) {
    // The square of such a length is infinite, and the length, which is a part of it, no number:
    // not above the shortest that counts.
    for (const double far : {1e200, 1e300}) {
        SCOPED_TRACE(far);
        drawing.startAnew();
        const AcDbObjectId root = drawing.addWell({0, 0, 0});
        drawing.addWell({far, 0, 0});
        const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {far, 0, 0}, {.startElevation = L"2"});
        GravitySearchObject network;
        EXPECT_EQ(searchSewer(network, root), 0);
        EXPECT_EQ(network.wells.GetSize(), 1);
        GravitySearchObject fromPipe;
        EXPECT_EQ(searchSewer(fromPipe, pipe), 0);
        Seg seg;
        EXPECT_EQ(GetSingleSeg(seg, pipe), 0);
        EXPECT_EQ(LowerHeightForCollideTest(pipe, 0.5), 0);
        EXPECT_EQ(textOf(pipe, L"起点标高"), L"2");
        const AcDbObjectId main = drawing.addPipe({0, 9, 0}, {far, 9, 0}, {.system = kSupply});
        PressureSegs segs;
        EXPECT_EQ(searchMain(segs, main), 0);
    }
}

/// From here on neighbouring numbers lie more than a well's width apart: only what is the very same
/// place is reached.
TEST_F(ExtremePlaceTest, ASewerFarOutJoinsWhereItsPlacesAreTheSame) {
    for (const double far : {1e17, 1e100, 1e300}) {
        SCOPED_TRACE(far);
        drawing.startAnew();
        const AcDbObjectId root = drawing.addWell({far, 0, 0});
        drawing.addWell({far, 20, 0});
        drawing.addWell({std::nextafter(far, kInfinity), 0, 0});
        drawing.addPipe({far, 0, 0}, {far, 10, 0});
        drawing.addPipe({far, 10.3, 0}, {far, 20, 0});
        GravitySearchObject network;
        ASSERT_EQ(searchSewer(network, root), 1);
        EXPECT_EQ(network.wells.GetSize(), 2);
        EXPECT_TRUE(network.wells[0].mergedEntities.isEmpty()) << "the third well is apart";
        EXPECT_EQ(network.segs[0].pipeIds.length(), 2);
    }
}

TEST_F(ExtremePlaceTest, MainsReachAsFarAsLengthsCanBeReckoned) {
    struct Case {
        double far;
        int result;
        int segs;
    };
    // Four halves about the crossing. At 1e100 the crossing cannot be reckoned, so that the first
    // main stays whole and alone; beyond 1e154 the mains have no length.
    for (const Case& each : {Case{1e6, 1, 4}, Case{1e9, 1, 4}, Case{1e12, 1, 4}, Case{1e100, 1, 1},
                             Case{1e200, 0, 0}, Case{1e300, 0, 0}}) {
        SCOPED_TRACE(each.far);
        drawing.startAnew();
        const AcDbObjectId main =
            drawing.addPipe({-each.far, 0, 0}, {each.far, 0, 0}, {.system = kSupply});
        drawing.addPipe({0, -each.far, 0}, {0, each.far, 0}, {.system = kSupply});
        PressureSegs segs;
        EXPECT_EQ(searchMain(segs, main, {-each.far, 0, 0}), each.result);
        EXPECT_EQ(segs.GetSize(), each.segs);
    }
}

TEST_F(ExtremePlaceTest, LinesAreBrokenAsFarAsCrossingsCanBeReckoned) {
    struct Case {
        double far;
        int lines;
    };
    // The crossing is reckoned from fourth powers of lengths, which are infinite from 1e77 on.
    for (const Case& each : {Case{1e6, 4}, Case{1e9, 4}, Case{1e12, 4}, Case{1e15, 4},
                             Case{1e100, 2}, Case{1e153, 2}, Case{1e200, 2}, Case{1e300, 2}}) {
        drawing.startAnew();
        AcDbObjectIdArray lines;
        lines.append(drawing.addPipe({-each.far, 0, 0}, {each.far, 0, 0}));
        lines.append(drawing.addPipe({0, -each.far, 0}, {0, each.far, 0}));
        PelBreakLine(lines);
        EXPECT_EQ(lines.length(), each.lines) << each.far;
    }
}

TEST_F(ExtremePlaceTest, UtilitiesTakeAnyPlace) {
    const AcGePoint3d origin;
    EXPECT_EQ(PelGetPolarPoint({1, 2, 3}, {0, 0, 0}, 1e300), AcGePoint3d(1, 2, 3))
        << "no direction";
    EXPECT_EQ(PelGetPolarPoint({1, 2, 3}, {0, 0, 5}, -1e300), AcGePoint3d(1, 2, -1e300));
    AcGePoint3d low(0, -1e300, 0);
    AcGePoint3d high(1e300, 1e300, 0);
    EXPECT_EQ(PelTopLeftPoint(low, high), high);

    AcGePoint3dArray points;
    points.append({1e300, 0, 0}); // infinitely far, since its square is
    EXPECT_EQ(PelFindClosetPointWithDirection(origin, {1, 0, 0}, points), -1);
    points.append({1e13, 0, 0});
    points.append({-1e12, 0, 0});
    EXPECT_EQ(PelFindClosetPointWithDirection(origin, {1, 0, 0}, points), 2);
    // Without a direction of its own the sine is 0 towards anything.
    EXPECT_EQ(PelFindClosetPointWithDirection(origin, origin, points), 2);

    AcGePoint3d q1(5, 0, 0);
    AcGePoint3d q2(5, 0, 0);
    // Lines without length: beside one another's middles at a distance of 0, which is not less than
    // the mean of their lengths.
    EXPECT_EQ(PelSeeIfCould({5, 0, 0}, {5, 0, 0}, q1, q2), 0);
    // A point on a line lies within it.
    EXPECT_EQ(PelSeeIfCould({0, 0, 0}, {10, 0, 0}, q1, q2), 1);
}

TEST_F(ExtremePlaceTest, ACircleOfNoSizeCutsNothing) {
    for (const double radius : {0.0, -5.0, 1e300, kInfinity, std::nan("")}) {
        SCOPED_TRACE(radius);
        drawing.startAnew();
        const AcDbObjectId line = drawing.addPipe({0, 0, 0}, {100, 0, 0});
        EXPECT_EQ(PelBlockTrimLine(line, AcGePoint3d(50, 0, 0), radius), Acad::eOk);
        AcDbLine* opened = nullptr;
        ASSERT_EQ(acdbOpenObject(opened, line, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(opened->startPoint(), AcGePoint3d(0, 0, 0));
        EXPECT_EQ(opened->endPoint(), AcGePoint3d(100, 0, 0));
        opened->close();
    }
}

TEST_F(ExtremePlaceTest, APolylineOfOnePlaceIsSplitLikeAnyOther) {
    const AcDbObjectId polyline = drawing.addPolyline({{5, 5}, {5, 5}, {5, 5}, {5, 5}});
    EXPECT_EQ(PelMultiPL2DblPl(polyline), 1);
    GravitySearchObject network;
    EXPECT_EQ(searchSewer(network, polyline), 0) << "it is erased";
    ads_name all;
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, all), RTNORM);
    Adesk::Int32 count = 0;
    acedSSLength(all, &count);
    acedSSFree(all);
    EXPECT_EQ(count, 3);
}

// The distance to such a well is no number, and so is not greater than the wells reach together.
TEST_F(ExtremePlaceTest, AWellWhosePlaceIsNoNumberMergesWithTheFirstThatAsks) {
    const double none = std::nan("");
    for (const AcGePoint3d& place : {AcGePoint3d(none, 50, 0), {50, none, 0}, {50, 50, none}}) {
        drawing.startAnew();
        const ShortSewer sewer = addShortSewer(drawing);
        const AcDbObjectId odd = drawing.addWell(place);
        GravitySearchObject network;
        EXPECT_EQ(searchSewer(network, sewer.first), 1);
        ASSERT_EQ(network.wells.GetSize(), 2);
        EXPECT_EQ(idsOf(network.wells[0].mergedEntities), Ids{odd});
        EXPECT_EQ(network.wells[1].nodeEntity, sewer.second);
    }
}

TEST_F(ExtremePlaceTest, AWellWhosePlaceIsNoNumberMergesWithEveryOther) {
    for (const AcGePoint3d& place : {AcGePoint3d(0, std::nan(""), 0), {0, 0, std::nan("")}}) {
        drawing.startAnew();
        const AcDbObjectId odd = drawing.addWell(place);
        const AcDbObjectId far = drawing.addWell({20, 0, 0});
        GravitySearchObject network;
        searchSewer(network, odd);
        ASSERT_EQ(network.wells.GetSize(), 1);
        EXPECT_EQ(idsOf(network.wells[0].mergedEntities), Ids{far});
    }
}

// Infinity less infinity is no number.
TEST_F(ExtremePlaceTest, WellsAtAnInfiniteHeightAreOneNode) {
    const AcDbObjectId root = drawing.addWell({0, 0, kInfinity});
    const AcDbObjectId far = drawing.addWell({500, 0, kInfinity});
    GravitySearchObject network;
    searchSewer(network, root);
    ASSERT_EQ(network.wells.GetSize(), 1);
    EXPECT_EQ(idsOf(network.wells[0].mergedEntities), Ids{far});
}

TEST_F(ExtremePlaceTest, ASearchThatFindsNoRootNeedsNoResult) {
    AcDbObjectId lonely = drawing.addPipe({0, 0, 0}, {50, 0, 0});
    AcDbObjectId none;
    AcGePoint3d pick;
    EXPECT_EQ(GetGravityNetwork(nullptr, lonely, none, pick), 0);
}

} // namespace
} // namespace module_tests
