// Where a search begins: the picked well or tank, or one of the two targets of a picked pipe.

#include "module/walk/WalkTest.h"

namespace module_tests {

using RootWellTest = WalkTest;

TEST_F(RootWellTest, StartWellIsTheRootWhereverThePickLies) {
    const AcDbObjectId near = drawing.addWell({0, 0, 0});
    const AcDbObjectId start = drawing.addWell({50, 0, 2}, {.diameter = L"1.5", .number = L"W7"});
    for (const AcGePoint3d& pick : {AcGePoint3d(0, 0, 0), AcGePoint3d(50, 0, 0)}) {
        result.wells.RemoveAll();
        prepare(start, pick);
        ASSERT_EQ(search->PlaceRootWell(), 1);
        ASSERT_EQ(nodes(), Ids{start});
    }
    const Well& root = result.wells[0];
    EXPECT_EQ(result.rootWell, 0);
    EXPECT_EQ(root.isWell, 1);
    EXPECT_EQ(root.id, start);
    EXPECT_TRUE(samePoint(root.nodePoint, {50, 0, 2}));
    EXPECT_EQ(root.nodeRadius, 0.75);
    EXPECT_EQ(utf8(root.number), "W7");
    EXPECT_EQ(utf8(root.systemName), "污水");
    EXPECT_EQ(root.inSeg, -1);
    EXPECT_GE(well(start), 0) << "the root stays in its pool";
    EXPECT_GE(well(near), 0);
}

TEST_F(RootWellTest, StartTankIsTheRootWithoutRadiusAndNumber) {
    const AcDbObjectId tank = drawing.addTank({0, 0, 0}, {4, 2, 0});
    drawing.setText(tank, L"管井编号", L"T1");
    drawing.setText(tank, L"井的直径", L"3");
    prepare(tank, {100, 100, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    ASSERT_EQ(nodes(), Ids{tank});
    EXPECT_EQ(result.rootWell, 0);
    EXPECT_EQ(result.wells[0].isWell, 0);
    EXPECT_EQ(result.wells[0].nodeRadius, 0.0);
    EXPECT_TRUE(samePoint(result.wells[0].nodePoint, {2, 1, 0}));
    EXPECT_TRUE(result.wells[0].number.IsEmpty());
    EXPECT_TRUE(samePoint(result.wells[0].extents.maxPoint(), {4, 2, 0}));
}

TEST_F(RootWellTest, TankWithoutTheCollectionNameIsNoRoot) {
    const AcDbObjectId tank = drawing.addTank({0, 0, 0}, {4, 2, 0}, {.tank = nullptr});
    drawing.addWell({50, 0, 0});
    prepare(tank);
    EXPECT_EQ(search->startKind, tkvlt::kTankEntity);
    EXPECT_EQ(search->PlaceRootWell(), 0);
    EXPECT_TRUE(result.wells.IsEmpty());
    EXPECT_EQ(result.rootWell, -1);
}

TEST_F(RootWellTest, PipeWithOneWellStartsThereWhereverThePickLies) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId atStart = drawing.addPipe({0.5, 0, 0}, {20, 0, 0});
    const AcDbObjectId last = drawing.addWell({0, 10, 0});
    const AcDbObjectId atEnd = drawing.addPipe({20, 10, 0}, {0.5, 10, 0});
    for (const AcGePoint3d& pick : {AcGePoint3d(0, 0, 0), AcGePoint3d(20, 5, 0)}) {
        result.wells.RemoveAll();
        prepare(atStart, pick);
        ASSERT_EQ(search->PlaceRootWell(), 1);
        prepare(atEnd, pick);
        ASSERT_EQ(search->PlaceRootWell(), 1);
        EXPECT_EQ(nodes(), (Ids{first, last}));
    }
}

// A target that stands first in its pool is one like any other.
TEST_F(RootWellTest, TheOnlyWellOfTheDrawingMayStandBeyondThePipesEnd) {
    const AcDbObjectId only = drawing.addWell({20, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {19.5, 0, 0});
    prepare(pipe);
    ASSERT_EQ(well(only), 0);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{only});
}

TEST_F(RootWellTest, TheOnlyTankOfTheDrawingMayStandBeyondThePipesEnd) {
    const AcDbObjectId only = drawing.addTank({19, -1, 0}, {25, 1, 0});
    prepare(drawing.addPipe({0, 0, 0}, {19.5, 0, 0}));
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{only});
}

TEST_F(RootWellTest, PipeBetweenTwoWellsStartsAtTheOneNearerToThePick) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId last = drawing.addWell({20, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({0.5, 0, 0}, {19.5, 0, 0});
    prepare(pipe, {9.75, 3, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    prepare(pipe, {10.25, 3, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), (Ids{first, last}));
}

TEST_F(RootWellTest, EqualDistanceGoesToTheWellBeyondThePipesEnd) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId last = drawing.addWell({20, 0, 0});
    const AcDbObjectId forth = drawing.addPipe({0.5, 0, 0}, {19.5, 0, 0});
    const AcDbObjectId back = drawing.addPipe({19.5, 0, 0}, {0.5, 0, 0});
    prepare(forth, {10, 5, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{last});
    result.wells.RemoveAll();
    prepare(back, {10, 5, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{first});
}

// In plan the pick is nearer to the first well, but that one lies 30 deep.
TEST_F(RootWellTest, DistancesFromThePickAreInSpace) {
    drawing.addWell({0, 0, -30});
    const AcDbObjectId last = drawing.addWell({20, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({0.5, 0, -30}, {19.5, 0, 0});
    prepare(pipe, {0, 0, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{last});
}

TEST_F(RootWellTest, PipeIsFollowedOverOtherPipesOnBothSides) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId last = drawing.addWell({60, 0, 0});
    drawing.addPipe({0.5, 0, 0}, {20, 0, 0});
    const AcDbObjectId middle = drawing.addPipe({20, 0, 0}, {40, 0, 0});
    drawing.addPipe({40, 0, 0}, {59.5, 0, 0});
    prepare(middle, {29, 0, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    prepare(middle, {31, 0, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), (Ids{first, last}));
}

TEST_F(RootWellTest, TankOnOneSideMayBecomeTheRoot) {
    const AcDbObjectId tank = drawing.addTank({0, -1, 0}, {2, 1, 0});
    drawing.addWell({20, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({2, 0, 0}, {19.5, 0, 0});
    prepare(pipe, {5, 0, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{tank});
    EXPECT_EQ(result.wells[0].isWell, 0);
    EXPECT_EQ(result.wells[0].nodeRadius, 0.0);
}

// The tank lies beyond the pipe's end and the well beyond its start, 15 from the pick where the
// tank is 4.
TEST_F(RootWellTest, TankBeyondThePipesEndMayBecomeTheRoot) {
    const AcDbObjectId tank = drawing.addTank({0, -1, 0}, {2, 1, 0});
    drawing.addWell({20, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({19.5, 0, 0}, {2, 0, 0});
    prepare(pipe, {5, 0, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{tank});
    EXPECT_EQ(result.wells[0].isWell, 0);
}

TEST_F(RootWellTest, PipeThatWasDroppedForItsLengthIsNoStart) {
    drawing.addWell({0, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({0.25, 0, 0}, {1.25, 0, 0});
    prepare(pipe);
    EXPECT_EQ(this->pipe(pipe), -1);
    EXPECT_EQ(search->PlaceRootWell(), 0);
    EXPECT_TRUE(result.wells.IsEmpty());
}

TEST_F(RootWellTest, PipeThatLeadsNowhereIsNoStart) {
    drawing.addWell({0, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({10, 0, 0}, {20, 0, 0});
    prepare(pipe);
    EXPECT_EQ(search->PlaceRootWell(), 0);
    EXPECT_TRUE(result.wells.IsEmpty());
}

TEST_F(RootWellTest, OriginIsAPickLikeAnyOther) {
    drawing.addWell({-30, 0, 0});
    const AcDbObjectId near = drawing.addWell({10, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({9.5, 0, 0}, {-29.5, 0, 0});
    prepare(pipe, {0, 0, 0});
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(nodes(), Ids{near});
}

TEST_F(RootWellTest, PlacingTheRootTakesNothingFromThePools) {
    drawing.addWell({0, 0, 0});
    drawing.addWell({20, 0, 0});
    const AcDbObjectId start = drawing.addPipe({0.5, 0, 0}, {19.5, 0, 0});
    prepare(start);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_GE(pipe(start), 0);
    EXPECT_EQ(search->abortFlag, 0);
}

} // namespace module_tests
