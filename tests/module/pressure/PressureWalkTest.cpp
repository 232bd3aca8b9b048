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

} // namespace module_tests
