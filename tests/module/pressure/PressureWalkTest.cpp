// The walk: which piece is the root, which pipes are in reach, and the order of the tree.

#include "module/pressure/PressureTest.h"

#include <cmath>

namespace module_tests {

class PressureWalkTest : public PressureTest {};

TEST_F(PressureWalkTest, SinglePipeIsOneSegment) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(rootSeg, 0);
    EXPECT_EQ(seg(0).parent, -1);
    EXPECT_EQ(seg(0).children.GetSize(), 0);
    EXPECT_EQ(pipes(0), Ids{picked});
    EXPECT_EQ(intsOf(seg(0).orientationFlags), std::vector<int>{1});
    EXPECT_TRUE(samePoint(seg(0).startPoint, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).line.startPoint(), {0, 0, 0}));
}

TEST_F(PressureWalkTest, EndNearerToThePickIsTheBeginPoint) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(search(picked, {4.999, 3, 0}), 1);
    EXPECT_EQ(seg(0).reversed, 0);
    ASSERT_EQ(search(picked, {5.001, 3, 0}), 1);
    EXPECT_NE(seg(0).reversed, 0);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {0, 0, 0})) << "the drawn ends are not swapped";
}

TEST_F(PressureWalkTest, MidwayBetweenTheEndsTheEndIsTheBeginPoint) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(search(picked, {5, 7, 0}), 1);
    EXPECT_NE(seg(0).reversed, 0);
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {10, 0, 0}));
}

TEST_F(PressureWalkTest, WhatHangsOnThePickedEndStaysOutside) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId left = drawing.main({0, 0, 0}, {0, 10, 0});
    const AcDbObjectId right = drawing.main({10, 0, 0}, {10, 10, 0});
    ASSERT_EQ(search(picked, {1, 0, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(pipes(1), Ids{right});
    ASSERT_EQ(search(picked, {9, 0, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(pipes(1), Ids{left});
}

TEST_F(PressureWalkTest, PipesOutOfReachAreDropped) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 2, 0}, {10, 12, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
}

/// 0.25 * 2 * 2 * 2 = 2 exactly.
TEST_F(PressureWalkTest, ReachIsFourBreakDistancesTimesTheScaleIncluded) {
    drawing.setBreakDist(0.25);
    drawing.setDwgScale(2.0);
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId inReach = drawing.main({10, 2, 0}, {10, 12, 0});
    drawing.main({10, -2.000001, 0}, {10, -12, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(pipes(1), Ids{inReach});
}

TEST_F(PressureWalkTest, WellAtTheSearchPointAddsItsRadiusToTheReach) {
    drawing.setBreakDist(0.5); // reach 2
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId inReach = drawing.main({10, 2.5, 0}, {10, 12, 0});
    drawing.main({10, -2.500001, 0}, {10, -12, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(count(), 1) << "outside any well the reach is 2";
    drawing.well({10.25, 0, 0}, L"1");
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(pipes(1), Ids{inReach});
}

/// The twenty-one wells stand in a row, the first of them nowhere; each adds its radius at the end
/// of one of twenty pairs of pipes, which join over 2.4 where 2 + 0.5 are allowed.
TEST_F(PressureWalkTest, WellWithoutAPositionHidesNoOther) {
    drawing.setBreakDist(0.5);
    drawing.well({std::nan(""), 0, 0});
    Ids ids;
    for (int i = 1; i <= 20; ++i) {
        const double x = 30.0 * i;
        drawing.well({x, 0, 0});
        ids.push_back(drawing.main({x, -10, 0}, {x, 0, 0}));
        drawing.main({x + 2.4, 0, 0}, {x + 10, 5, 0});
    }
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        SCOPED_TRACE(mode == Mode::kIndexed ? "index" : "plain scan");
        for (int i = 1; i <= 20; ++i) {
            ASSERT_EQ(search(ids[static_cast<std::size_t>(i) - 1], {30.0 * i, -10, 0}, mode), 1);
            EXPECT_EQ(count(), 2) << i;
        }
    }
}

TEST_F(PressureWalkTest, WellOfAnotherSystemAddsNothing) {
    drawing.setBreakDist(0.5);
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 2.5, 0}, {10, 12, 0});
    drawing.addWell({10, 0, 0}, {.system = kSewer});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
}

TEST_F(PressureWalkTest, FirstWellAtTheSearchPointCountsNotTheLargest) {
    drawing.setBreakDist(0.5);
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 3, 0}, {10, 12, 0});
    drawing.well({10.1, 0, 0}, L"1");
    drawing.well({10, 0, 0}, L"4");
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(count(), 1) << "3 - 0.5 is more than 2";
}

TEST_F(PressureWalkTest, SearchPointAtRadiusAndMarginIsInTheWell) {
    drawing.setBreakDist(0.5);
    const double rim = 0.5 + 0.0001;
    const AcDbObjectId picked = drawing.main({-10, 0, 0}, {0, 0, 0});
    drawing.main({0, 2.5, 0}, {0, 12, 0});
    const AcDbObjectId well = drawing.well({rim, 0, 0}, L"1");
    ASSERT_EQ(search(picked, {-10, 0, 0}), 1);
    EXPECT_EQ(count(), 2);
    drawing.erase(well);
    drawing.well({std::nextafter(rim, 1.0), 0, 0}, L"1");
    ASSERT_EQ(search(picked, {-10, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
}

/// A corner of the square well reaches 0.707 far, its radius 0.5.
TEST_F(PressureWalkTest, SquareWellCountsByItsRadius) {
    drawing.setBreakDist(0.5);
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 2.4, 0}, {10, 12, 0});
    drawing.addWell({10.4, 0.4, 0}, {.system = kSupply, .square = true}); // 0.566 away
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
}

TEST_F(PressureWalkTest, NearerEndIsTheBeginPointOfAChild) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0.2, 0}, {10, 10, 0});
    drawing.main({10, -10, 0}, {10, -0.2, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(seg(1).reversed, 0);
    EXPECT_TRUE(samePoint(seg(1).GetSearchPoint(), {10, 10, 0}));
    EXPECT_EQ(seg(2).reversed, 1);
    EXPECT_TRUE(samePoint(seg(2).GetSearchPoint(), {10, -10, 0}));
    EXPECT_TRUE(samePoint(seg(2).startPoint, {10, -10, 0}));
}

TEST_F(PressureWalkTest, WithBothEndsEquallyNearTheStartIsTheNearEnd) {
    drawing.setBreakDist(0.5);
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({11, 1, 0}, {11, -1, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(seg(1).reversed, 0);
    EXPECT_EQ(intsOf(seg(0).children), std::vector<int>{1});
}

/// Ends farther off than 1e19 count as 1e19 away: with a reach of 4e19 a pipe 5e19 away is adopted,
/// with one just below 1e19 it is not. The root is an arc, which merges with no straight pipe.
TEST_F(PressureWalkTest, NoEndCountsAsFartherThanTheBoundOfTheNearestEnd) {
    const double bound = 1e19;
    const AcDbObjectId picked = drawing.arc({0, 0, 0}, {10, 0, 0}, 1.0);
    const AcDbObjectId beyond = drawing.main({10, 5 * bound, 0}, {10, 6 * bound, 0});
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        SCOPED_TRACE(mode == Mode::kIndexed ? "index" : "plain scan");
        drawing.setBreakDist(bound / 4.0 * 0.99);
        ASSERT_EQ(search(picked, {0, 0, 0}, mode), 1);
        EXPECT_EQ(count(), 1);
        drawing.setBreakDist(bound);
        ASSERT_EQ(search(picked, {0, 0, 0}, mode), 1);
        ASSERT_EQ(count(), 2);
        EXPECT_EQ(pipes(1), Ids{beyond});
    }
}

namespace {

/// R ends at (10, 0); A at (14, 10), B at (15.5, 10); C starts between, 0.71 from A and 1.12 from
/// B, where 2 are allowed.
struct TwoInReach {
    AcDbObjectId root;
    AcDbObjectId a;
    AcDbObjectId b;
    AcDbObjectId c;
};

TwoInReach drawTwoInReach(PressureDrawing& drawing, bool aFirst) {
    TwoInReach ids;
    ids.root = drawing.main({0, 0, 0}, {10, 0, 0});
    ids.c = drawing.main({14.5, 10.5, 0}, {14.5, 20, 0});
    if (aFirst) {
        ids.a = drawing.main({10, 0, 0}, {14, 10, 0});
    }
    ids.b = drawing.main({10, 0, 0}, {15.5, 10, 0});
    if (!aFirst) {
        ids.a = drawing.main({10, 0, 0}, {14, 10, 0});
    }
    return ids;
}

} // namespace

TEST_F(PressureWalkTest, PipeInReachOfTwoGoesToTheOneWalkedFirst) {
    for (const bool aFirst : {true, false}) {
        PressureDrawing own;
        own.setBreakDist(0.5);
        const TwoInReach ids = drawTwoInReach(own, aFirst);
        ASSERT_EQ(search(ids.root, {0, 0, 0}), 1);
        ASSERT_EQ(count(), 4);
        EXPECT_EQ(pipes(1), Ids{aFirst ? ids.a : ids.b});
        EXPECT_EQ(pipes(2), Ids{aFirst ? ids.b : ids.a});
        EXPECT_EQ(pipes(3), Ids{ids.c});
        EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 1}));
        EXPECT_EQ(seg(2).children.GetSize(), 0);
    }
}

/// Children of one stand together, before what hangs on any of them, and in drawing order.
///
///     B1 ---+--- B2      y = -10
///           | B
///   R ------+            y = 0
///           | A
///     A1 ---+--- A2      y = 10
TEST_F(PressureWalkTest, ChildrenStandTogetherAndSubtreesFollowInOrder) {
    const AcDbObjectId b2 = drawing.main({10, -10, 0}, {20, -10, 0});
    const AcDbObjectId a1 = drawing.main({10, 10, 0}, {0, 10, 0});
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId a = drawing.main({10, 0, 0}, {10, 10, 0});
    const AcDbObjectId b1 = drawing.main({0, -10, 0}, {10, -10, 0});
    const AcDbObjectId b = drawing.main({10, -10, 0}, {10, 0, 0});
    const AcDbObjectId a2 = drawing.main({20, 10, 0}, {10, 10, 0});
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 7);
    const Ids expected = {root, a, b, a1, a2, b2, b1};
    for (int i = 0; i < count(); ++i) {
        EXPECT_EQ(pipes(i), Ids{expected[static_cast<std::size_t>(i)]}) << i;
    }
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 1, 1, 2, 2}));
    EXPECT_EQ(intsOf(seg(0).children), (std::vector<int>{1, 2}));
    EXPECT_EQ(intsOf(seg(1).children), (std::vector<int>{3, 4}));
    EXPECT_EQ(intsOf(seg(2).children), (std::vector<int>{5, 6}));
}

/// The first child's grandchildren come before the second child's children.
TEST_F(PressureWalkTest, SubtreeOfTheFirstChildIsWholeBeforeThatOfTheSecond) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId a = drawing.main({10, 0, 0}, {10, 10, 0});
    const AcDbObjectId b = drawing.main({10, 0, 0}, {10, -10, 0});
    const AcDbObjectId underB = drawing.main({10, -10, 0}, {20, -10, 0});
    const AcDbObjectId underA = drawing.main({10, 10, 0}, {20, 10, 0});
    const AcDbObjectId lowest = drawing.main({20, 10, 0}, {20, 20, 0});
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 6);
    EXPECT_EQ(pipes(1), Ids{a});
    EXPECT_EQ(pipes(2), Ids{b});
    EXPECT_EQ(pipes(3), Ids{underA});
    EXPECT_EQ(pipes(4), Ids{lowest});
    EXPECT_EQ(pipes(5), Ids{underB});
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 1, 3, 2}));
}

/// The pieces meet at (10, 0); the first in the pool is the one from the entity's start.
TEST_F(PressureWalkTest, PieceNearestToThePickIsTheRoot) {
    const AcDbObjectId cut = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    ASSERT_EQ(search(cut, {25, 1, 0}), 1);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {30, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {30, 0, 0}));
    EXPECT_EQ(count(), 3);
    ASSERT_EQ(search(cut, {4, 1, 0}), 1);
    EXPECT_TRUE(samePoint(seg(0).endPoint, {10, 0, 0}));
}

TEST_F(PressureWalkTest, OfEquallyNearPiecesTheFirstInThePoolIsTheRoot) {
    const AcDbObjectId cut = drawing.main({30, 0, 0}, {0, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    ASSERT_EQ(search(cut, {10, -4, 0}), 1);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {30, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {10, 0, 0}));
    EXPECT_EQ(seg(0).reversed, 1);
}

/// Both pieces run round the same circle, so they lie equally near any pick on the half that both
/// cover, whatever rounding makes of it.
TEST_F(PressureWalkTest, OfTheRoundedPiecesOfACutArcTheFirstInThePoolIsTheRoot) {
    const AcDbObjectId cut = drawing.arc({510, 300, 0}, {490, 300, 0}, 1.0);
    drawing.main({506, 308, 0}, {530, 340, 0});
    for (const double angle : {3.3, 3.7, 4.1, 4.5, 4.9, 5.3, 5.7, 6.1}) {
        for (const double radius : {3.0, 7.3, 9.99, 10.01, 12.7, 40.1}) {
            const AcGePoint3d at(500 + radius * std::cos(angle), 300 + radius * std::sin(angle), 0);
            search(cut, at);
            ASSERT_GT(count(), 0);
            ASSERT_TRUE(samePoint(seg(0).startPoint, {510, 300, 0})) << angle << " " << radius;
            ASSERT_TRUE(samePoint(seg(0).endPoint, {506, 308, 0})) << angle << " " << radius;
        }
    }
}

/// The pick lies by one unit in the last place of its x beyond the cut, so on the second piece.
TEST_F(PressureWalkTest, DistancesToPiecesAreComparedAsTheyStand) {
    const AcDbObjectId cut = drawing.main({4000000, 0, 0}, {4000020, 0, 0});
    drawing.main({4000010, 0, 0}, {4000010, 15, 0});
    ASSERT_EQ(search(cut, {std::nextafter(4000010.0, 4000020.0), 0, 0}), 1);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {4000010, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {4000020, 0, 0}));
    EXPECT_EQ(seg(0).reversed, 0);
}

/// A flat arc far out on a large circle: both pieces run round all of it but the part between its
/// start and the cut, and so past the place nearest to the origin.
TEST_F(PressureWalkTest, OfThePiecesOfAFlatArcTheFirstInThePoolIsTheRoot) {
    const AcGePoint3d start(557.13341565256678, 4004.7470746807282, 0);
    const AcGePoint3d end(629.28317908111137, 4090.4681444411308, 0);
    constexpr double bulge = 0.01;
    const AcGeCircArc3d drawn = AcGeCircArc3d::fromBulge(start, end, bulge, {0, 0, 1});
    for (const double part : {0.1, 0.25, 0.4, 0.5, 0.6, 0.7247, 0.8, 0.9}) {
        PressureDrawing own;
        const AcDbObjectId cut = own.arc(start, end, bulge);
        // Across the arc at that part of its sweep, which is four times the bulge's arc tangent.
        AcGeVector3d arm = start - drawn.center();
        arm.rotateBy(part * 4.0 * std::atan(bulge), {0, 0, 1});
        const AcGePoint3d place = drawn.center() + arm;
        own.main(place - arm * 1e-3, place + arm * 1e-3);
        search(cut, {0, 0, 0});
        ASSERT_GT(count(), 0);
        EXPECT_TRUE(samePoint(seg(0).startPoint, start)) << part;
        EXPECT_TRUE(samePoint(seg(0).endPoint, place, 1e-6)) << part;
    }
}

/// Half a circle from (10,0) over (0,10), where a main cuts it, to (-10,0), which moves to the well
/// half a unit off. Of the first piece's circle, which stays, the pick at the well is 10.404 - 10
/// away from the nearest place; the second piece ends at the pick.
TEST_F(PressureWalkTest, OfTheCirclesOfAPieceAndOfOneMovedToAWellTheNearerCounts) {
    drawing.setLengthMode(1);
    const AcDbObjectId cut = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    drawing.main({0, 10, 0}, {0, 20, 0});
    drawing.well({-10.4, -0.3, 0});
    search(cut, {-10.4, -0.3, 0});
    ASSERT_GT(count(), 0);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {0, 10, 0}, 1e-6));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {-10.4, -0.3, 0}, 0));
}

/// Two arcs of one entity about (1e6, 0), which run down from a little below the origin's height
/// and from just there; the pick is above both, so that the upper ends are nearest, at 5 + 2e-10
/// and at 5.
TEST_F(PressureWalkTest, PiecesOfAnArcAreToldApartByDistancesAsTheyStandToo) {
    const AcDbObjectId cut = drawing.arc({0, 0, 0}, {0, -10, 0}, 0.01);
    const auto search = collected(cut, {0, 5, 0});
    ASSERT_EQ(search->pipePool.Size(), 1);
    _Pipe whole;
    whole = search->pipePool[0];
    search->pipePool.Remove(0);
    constexpr double radius = 1e6;
    for (const double below : {2e-10, 0.0}) {
        auto piece = std::make_unique<_Pipe>(whole);
        // Angles run from the west to the south.
        piece->arc.set({radius, 0, 0}, {0, 0, 1}, {-1, 0, 0}, radius, below / radius, 1e-5);
        piece->startPoint = piece->arc.startPoint();
        piece->endPoint = piece->arc.endPoint();
        search->pipePool.Add(std::move(piece));
    }
    ASSERT_EQ(search->BuildSegments(), 1);
    ASSERT_GT(count(), 0);
    EXPECT_EQ(seg(0).arc.startAng(), 0.0);
}

/// The well's radius is 1e10 and the reach 1e10 - 1 below nought, so that pipes up to 1 away are
/// taken, and a little more where the difference of such large numbers loses it.
TEST_F(PressureWalkTest, ReachBelowNoughtIsWeighedAgainstALargeWell) {
    constexpr double radius = 1e10;
    drawing.setBreakDist((-radius + 1.0) / 4.0);
    const AcDbObjectId first = drawing.main({-50, 0, 0}, {0, 0, 0});
    for (const double more : {1e-11, 1e-10, 1e-8, 1e-7, 5e-7}) {
        drawing.main({1.0 + more, 0, 0}, {60, 10 + more * 1e9, 0});
    }
    drawing.main({1.5, 0, 0}, {60, -10, 0});
    drawing.well({0, radius, 0}, L"20000000000");
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        search(first, {-50, 0, 0}, mode);
        EXPECT_EQ(count(), 6);
    }
}

/// The last two pipes lie side by side, a unit apart, and merge into a run that goes on from the
/// third as straight as a line. That counts only when the third is walked from again, as what hangs
/// on a run of two is.
TEST_F(PressureWalkTest, WhatComesToContinueItsParentIsMergedWhenItIsWalkedFromAgain) {
    drawing.setBreakDist(0.5); // reach 2
    const AcDbObjectId alone = drawing.main({0, -20, 0}, {0, 0, 0});
    drawing.main({0, 0, 0}, {100, 0, 0});
    const AcDbObjectId rising = drawing.main({100, 0, 0}, {110, 1, 0});
    const AcDbObjectId beside = drawing.main({110, -1, 0}, {120, 0, 0});
    ASSERT_EQ(search(alone, {0, -20, 0}), 1);
    ASSERT_EQ(count(), 3) << "nothing has merged above";
    EXPECT_TRUE(samePoint(seg(2).startPoint, {100, 0, 0}));
    EXPECT_TRUE(samePoint(seg(2).endPoint, {120, 0, 0}));
    drawing.main({0, -40, 0}, {0, -20, 0});
    const AcDbObjectId first = drawing.main({0, -60, 0}, {0, -40, 0});
    ASSERT_EQ(search(first, {0, -60, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(seg(0).pipeIds.length(), 3);
    ASSERT_EQ(seg(1).pipeIds.length(), 3);
    EXPECT_EQ(seg(1).pipeIds.at(1), rising);
    EXPECT_EQ(seg(1).pipeIds.at(2), beside);
    EXPECT_TRUE(samePoint(seg(1).startPoint, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(1).endPoint, {120, 0, 0}));
    EXPECT_EQ(seg(1).parent, 0);
    EXPECT_EQ(seg(1).children.GetSize(), 0);
}

/// As above, but that the run of two has a second child, which forks.
class LateMergeTest : public PressureWalkTest {
protected:
    LateMergeTest() {
        drawing.setBreakDist(0.5);
        first = drawing.main({0, -40, 0}, {0, -20, 0});
        drawing.main({0, -20, 0}, {0, 0, 0});
        drawing.main({0, 0, 0}, {100, 0, 0});
        drawing.main({100, 0, 0}, {110, 1, 0});
        drawing.main({110, -1, 0}, {120, 0, 0});
        drawing.main({0, 0, 0}, {-50, 10, 0});
        up = drawing.main({-50, 10, 0}, {-60, 40, 0});
        down = drawing.main({-50, 10, 0}, {-60, -30, 0});
    }

    /// The run, its two children, of which the first took in two more, and the fork's two. The
    /// merge takes a segment from the middle of the list: what stands behind it moves up, and the
    /// fork's entries stay.
    void expectRunsThatMovedUp() {
        EXPECT_EQ(seg(1).pipeIds.length(), 3);
        EXPECT_EQ(seg(3).pipeIds.at(0), up);
        EXPECT_EQ(seg(4).pipeIds.at(0), down);
        EXPECT_EQ(seg(3).parent, 2);
        ASSERT_EQ(seg(2).children.GetSize(), 2);
        EXPECT_EQ(seg(2).children.GetAt(0), 4);
        EXPECT_EQ(seg(2).children.GetAt(1), 5);
        for (int i = 0; i < count(); ++i) {
            EXPECT_EQ(utf8(seg(i).systemName), utf8(kSupply)) << i;
        }
    }

    AcDbObjectId first;
    AcDbObjectId up;
    AcDbObjectId down;
};

TEST_F(LateMergeTest, EntriesOfChildrenStayWhenSegmentsMoveUp) {
    const AcDbObjectId behind = drawing.main({-60, 40, 0}, {-90, 50, 0});
    ASSERT_EQ(search(first, {0, -40, 0}), 1);
    ASSERT_EQ(count(), 6);
    expectRunsThatMovedUp();
    EXPECT_EQ(seg(5).pipeIds.at(0), behind);
    EXPECT_EQ(seg(5).parent, 4) << "where the other branch stands now";
}

TEST_F(LateMergeTest, EntryThatLeadsToNothingAnyMoreThrows) {
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        EXPECT_THROW(search(first, {0, -40, 0}, mode), CInvalidArgException);
        ASSERT_EQ(count(), 5);
        expectRunsThatMovedUp();
    }
}

} // namespace module_tests
