// Which free wells a node takes into itself when the walk stands on it, and what becomes of it.

#include "module/walk/WalkTest.h"

namespace module_tests {

/// The node at the origin is a well of diameter 2, so of radius 1.
class MergeTest : public WalkTest {
protected:
    MergeTest() { root = drawing.addWell({0, 0, 0}, {.diameter = L"2"}); }

    const Well& walkFromRoot() {
        prepare(root);
        EXPECT_EQ(search->PlaceRootWell(), 1);
        EXPECT_EQ(search->WalkFromWell(0), 1);
        return result.wells[0];
    }

    AcDbObjectId root;
};

// Radii 1 and 1, and a gap of 10 millimetres: at draw scale 500, half a metre a unit, 0.02 units.
TEST_F(MergeTest, WellsMergeUpToRadiiAndGap) {
    drawing.setDrawScale(500.0);
    // The diameters are metres, so a radius of 1 unit is one of 0.5 metres.
    drawing.setText(root, L"井的直径", L"1");
    const AcDbObjectId inReach = drawing.addWell({2.02, 0, 0}, {.diameter = L"1"});
    const Well& node = walkFromRoot();
    EXPECT_EQ(idsOf(node.mergedEntities), Ids{inReach});
    EXPECT_TRUE(samePoint(node.nodePoint, {1.01, 0, 0}));
    EXPECT_DOUBLE_EQ(node.nodeRadius, (2.02 + 1.0 + 1.0) * 0.5);
    EXPECT_EQ(well(inReach), -1) << "a merged well leaves its pool";
    EXPECT_GE(well(root), 0);
}

TEST_F(MergeTest, WellsFartherThanRadiiAndGapStayFree) {
    const AcDbObjectId outOfReach = drawing.addWell({0, 2.0101, 0}, {.diameter = L"2"});
    const Well& node = walkFromRoot();
    EXPECT_TRUE(node.mergedEntities.isEmpty());
    EXPECT_TRUE(samePoint(node.nodePoint, {0, 0, 0}, 0.0));
    EXPECT_EQ(node.nodeRadius, 1.0);
    EXPECT_GE(well(outOfReach), 0);
}

// In plan the wells fall together; 3 apart in height they do not merge.
TEST_F(MergeTest, DistanceIsInSpace) {
    drawing.addWell({0, 0, 3}, {.diameter = L"2"});
    EXPECT_TRUE(walkFromRoot().mergedEntities.isEmpty());
}

TEST_F(MergeTest, NodePointMovesHalfWayInSpace) {
    drawing.addWell({0.6, 0, 0.8}, {.diameter = L"1"});
    const Well& node = walkFromRoot();
    EXPECT_TRUE(samePoint(node.nodePoint, {0.3, 0, 0.4}));
    EXPECT_NEAR(node.nodeRadius, (1.0 + 1.0 + 0.5) * 0.5, 1e-12);
}

TEST_F(MergeTest, WellsOfAnotherSystemDoNotMerge) {
    const AcDbObjectId storm = drawing.addWell({0.5, 0, 0}, {.system = kStorm});
    EXPECT_TRUE(walkFromRoot().mergedEntities.isEmpty());
    EXPECT_GE(well(storm), 0);
}

// A square well of radius 1 counts 1.414, so 2.414 + 0.01 is allowed.
TEST_F(MergeTest, SquareWellCountsToItsCorner) {
    drawing.addWell({2.42, 0, 0}, {.diameter = L"2", .square = true});
    const Well& node = walkFromRoot();
    EXPECT_EQ(node.mergedEntities.length(), 1);
    EXPECT_NEAR(node.nodeRadius, (2.42 + 1.0 + 1.414) * 0.5, 1e-12);
}

TEST_F(MergeTest, SquareWellBeyondItsCornerStaysFree) {
    drawing.addWell({2.4241, 0, 0}, {.diameter = L"2", .square = true});
    EXPECT_TRUE(walkFromRoot().mergedEntities.isEmpty());
}

TEST_F(MergeTest, NodesOwnShapePlaysNoPart) {
    const AcDbObjectId square = drawing.addWell({50, 0, 0}, {.diameter = L"2", .square = true});
    drawing.addWell({52.02, 0, 0}, {.diameter = L"2"});
    prepare(square);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    ASSERT_EQ(search->WalkFromWell(0), 1);
    EXPECT_TRUE(result.wells[0].mergedEntities.isEmpty());
}

// Grown by the second well the node would reach the first one too, but the scan is past it.
TEST_F(MergeTest, EarlierWellIsNotLookedAtAgain) {
    const AcDbObjectId early = drawing.addWell({3.5, 0, 0}, {.diameter = L"2"});
    const AcDbObjectId late = drawing.addWell({2, 0, 0}, {.diameter = L"2"});
    const Well& node = walkFromRoot();
    EXPECT_EQ(idsOf(node.mergedEntities), Ids{late});
    EXPECT_GE(well(early), 0);
}

TEST_F(MergeTest, LaterWellIsJudgedByTheGrownNode) {
    const AcDbObjectId second = drawing.addWell({2, 0, 0}, {.diameter = L"2"});
    // The node is at (1, 0) with radius 2 now; 2.5 from there.
    const AcDbObjectId third = drawing.addWell({3.5, 0, 0}, {.diameter = L"2"});
    const Well& node = walkFromRoot();
    EXPECT_EQ(idsOf(node.mergedEntities), (Ids{second, third}));
    EXPECT_TRUE(samePoint(node.nodePoint, {2.25, 0, 0}));
    EXPECT_DOUBLE_EQ(node.nodeRadius, (2.5 + 2.0 + 1.0) * 0.5);
}

TEST_F(MergeTest, NodesAlreadyReachedAreNotMerged) {
    const AcDbObjectId other = drawing.addWell({1.5, 0, 0}, {.diameter = L"2"});
    collect();
    makeNode(root);
    makeNode(other);
    EXPECT_EQ(search->WalkFromWell(0), 1);
    EXPECT_TRUE(result.wells[0].mergedEntities.isEmpty());
    EXPECT_TRUE(result.wells[1].mergedEntities.isEmpty());
}

TEST_F(MergeTest, TanksAreNeverMerged) {
    drawing.addTank({-1, -1, 0}, {1, 1, 0});
    EXPECT_TRUE(walkFromRoot().mergedEntities.isEmpty());
    EXPECT_EQ(search->tankPool.Size(), 1);
    EXPECT_TRUE(search->tankPool.Has(0));
}

// From a radius of 0: 1 + 0 + 0.01 reaches the root well, 0.9 away.
TEST_F(MergeTest, TankTakesWellsInToo) {
    const AcDbObjectId tank = drawing.addTankAt({0.9, 0, 0}, {0, 0, 0}, {4, 4, 0});
    drawing.addWell({100, 0, 0});
    prepare(tank);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    ASSERT_EQ(search->WalkFromWell(0), 1);
    EXPECT_EQ(idsOf(result.wells[0].mergedEntities), Ids{root});
    EXPECT_TRUE(samePoint(result.wells[0].nodePoint, {0.45, 0, 0}));
    EXPECT_DOUBLE_EQ(result.wells[0].nodeRadius, (0.9 + 0.0 + 1.0) * 0.5);
}

TEST_F(MergeTest, WalkStopsWhenTheLastWellWasMergedAway) {
    const AcDbObjectId tank = drawing.addTankAt({0.9, 0, 0}, {0, 0, 0}, {4, 4, 0});
    drawing.addTank({20, 0, 0}, {24, 4, 0});
    drawing.addPipe({4, 2, 0}, {20, 2, 0});
    prepare(tank);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(search->WalkFromWell(0), 0);
    EXPECT_TRUE(search->wellPool.IsEmpty());
    EXPECT_TRUE(result.segs.IsEmpty());
    EXPECT_EQ(search->abortFlag, 0);
}

// The only well is merged into the second tank, 0.4 away where 0.5 + 0 + 0.01 are allowed. With no
// free well left the walk does not go on from there to the third tank. That fails nothing, and the
// first tank's other pipe is followed.
//
//   T4
//   |
//   T1 --- T2,o   T3
TEST_F(MergeTest, LastWellMergedAwayEndsThatBranchAlone) {
    drawing.erase(root);
    const auto tankAt = [&](double x, double y) {
        return drawing.addTankAt({x, y, 0}, {x, y, 0}, {x + 4, y + 4, 0});
    };
    const AcDbObjectId first = tankAt(0, 0);
    const AcDbObjectId second = tankAt(20, 0);
    tankAt(40, 0);
    const AcDbObjectId fourth = tankAt(0, 20);
    const AcDbObjectId only = drawing.addWell({20.4, 0, 0});
    drawing.addPipe({4, 2, 0}, {20, 2, 0});
    const AcDbObjectId notFollowed = drawing.addPipe({24, 2, 0}, {40, 2, 0});
    drawing.addPipe({2, 4, 0}, {2, 20, 0});
    EXPECT_EQ(run(first), 1);
    EXPECT_EQ(nodes(), (Ids{first, second, fourth}));
    EXPECT_EQ(idsOf(result.wells[1].mergedEntities), Ids{only});
    EXPECT_TRUE(result.wells[1].outSegs.IsEmpty());
    EXPECT_GE(pipe(notFollowed), 0);
}

} // namespace module_tests
