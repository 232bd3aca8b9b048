// The path from the end entity to the root, and the order of the heights.

#include "module/walk/WalkTest.h"

namespace module_tests {

/// Root and far well 40 apart with two more in a row behind.
class EndPathTest : public WalkTest {
protected:
    EndPathTest() {
        for (int i = 0; i < 4; ++i) {
            wells.push_back(drawing.addWell({40.0 * i, 0, 0}));
        }
        for (int i = 0; i < 3; ++i) {
            pipes.push_back(
                drawing.addPipe({40.0 * i + 0.5, 0, 0}, {40.0 * i + 39.5, 0, 0}, {.flow = L"SE"}));
        }
    }

    Ids wells;
    Ids pipes;
};

TEST_F(EndPathTest, WithoutAnEndBothPathsStayEmpty) {
    EXPECT_EQ(run(wells[0]), 1);
    EXPECT_EQ(result.rootWell, 0);
    EXPECT_TRUE(result.pathWells.IsEmpty());
    EXPECT_TRUE(result.pathSegs.IsEmpty());
}

TEST_F(EndPathTest, RootIsTheFirstNodeWhateverStoodThere) {
    ASSERT_EQ(run(wells[0]), 1);
    result.rootWell = 2;
    EXPECT_EQ(search->TraceEndPath(), 1);
    EXPECT_EQ(result.rootWell, 0);
}

TEST_F(EndPathTest, LoneNodeIsNoResult) {
    const AcDbObjectId lone = drawing.addWell({500, 0, 0});
    EXPECT_EQ(run(lone), 0);
    EXPECT_EQ(nodes(), Ids{lone}) << "what was built stays";
}

TEST_F(EndPathTest, PathRunsFromTheEndWellToTheRoot) {
    EXPECT_EQ(run(wells[0], wells[2]), 1);
    EXPECT_EQ(intsOf(result.pathWells), (std::vector<int>{2, 1, 0}));
    EXPECT_EQ(intsOf(result.pathSegs), (std::vector<int>{1, 0}));
}

TEST_F(EndPathTest, EndPipeOnTheFirstSegmentGivesThatSegment) {
    EXPECT_EQ(run(wells[0], pipes[0]), 1);
    EXPECT_EQ(intsOf(result.pathWells), (std::vector<int>{1, 0}));
    EXPECT_EQ(intsOf(result.pathSegs), std::vector<int>{0});
}

TEST_F(EndPathTest, EndTankIsFoundAsANode) {
    const AcDbObjectId tank = drawing.addTank({160, -4, 0}, {168, 4, 0});
    drawing.addPipe({120.5, 0, 0}, {161, 0, 0});
    EXPECT_EQ(run(wells[0], tank), 1);
    EXPECT_EQ(intsOf(result.pathWells), (std::vector<int>{4, 3, 2, 1, 0}));
}

TEST_F(EndPathTest, WellOnABrokenBranchFailsTheSearch) {
    const AcDbObjectId beyond = drawing.addWell({200, 0, 0});
    drawing.addPipe({120.5, 0, 0}, {160, 0, 0});
    EXPECT_EQ(run(wells[0], beyond), 0);
    EXPECT_EQ(result.wells.GetSize(), 4);
}

TEST_F(EndPathTest, PipeThatNoSegmentTookFailsTheSearch) {
    const AcDbObjectId broken = drawing.addPipe({120.5, 0, 0}, {160, 0, 0});
    EXPECT_EQ(run(wells[0], broken), 0);
}

// Of two merged wells the first takes over; the old entity goes to the end of the list.
TEST_F(EndPathTest, MergedEndTakesOverAsTheNodesEntity) {
    const AcDbObjectId first = drawing.addWell({40, 0.5, 0});
    const AcDbObjectId second = drawing.addWell({40, -0.5, 0});
    EXPECT_EQ(run(wells[0], first), 1);
    EXPECT_EQ(intsOf(result.pathWells), (std::vector<int>{1, 0}));
    EXPECT_EQ(result.wells[1].nodeEntity, first);
    EXPECT_EQ(idsOf(result.wells[1].mergedEntities), (Ids{second, wells[1]}));
    EXPECT_EQ(result.wells[1].id, wells[1]) << "the block is still that of the first well";
    EXPECT_EQ(result.segs[0].endEntity, wells[1]);
}

TEST_F(EndPathTest, EndMergedIntoTheRootIsNotFound) {
    const AcDbObjectId merged = drawing.addWell({0, 0.5, 0});
    EXPECT_EQ(run(wells[0], merged), 0);
    ASSERT_EQ(result.wells.GetSize(), 4);
    EXPECT_EQ(idsOf(result.wells[0].mergedEntities), Ids{merged});
    EXPECT_TRUE(result.pathWells.IsEmpty());
}

TEST_F(EndPathTest, PathsAreAppendedTo) {
    result.pathWells.Add(7);
    result.pathSegs.Add(9);
    EXPECT_EQ(run(wells[0], wells[1]), 1);
    EXPECT_EQ(intsOf(result.pathWells), (std::vector<int>{7, 1, 0}));
    EXPECT_EQ(intsOf(result.pathSegs), (std::vector<int>{9, 0}));
}

class FilledObjectTest : public WalkTest {};

TEST_F(FilledObjectTest, SecondSearchWalksFromTheFirstNodeOfAll) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    ASSERT_EQ(run(first), 0) << "a lone node, which stays";
    const AcDbObjectId other = drawing.addWell({40, 0, 0});
    const AcDbObjectId second = drawing.addWell({500, 0, 0});
    drawing.addPipe({0.5, 0, 0}, {39.5, 0, 0});
    EXPECT_EQ(run(second, other), 1);
    EXPECT_EQ(nodes(), (Ids{first, second, other}));
    EXPECT_EQ(result.rootWell, 0);
    ASSERT_EQ(result.segs.GetSize(), 1);
    EXPECT_EQ(result.segs[0].startWell, 0);
    EXPECT_EQ(result.segs[0].endWell, 2);
    EXPECT_EQ(intsOf(result.pathWells), (std::vector<int>{2, 0}));
    EXPECT_EQ(intsOf(result.pathSegs), std::vector<int>{0});
}

TEST_F(FilledObjectTest, NodesOfTheSearchBeforeAreKnownOnes) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId other = drawing.addWell({40, 0, 0});
    const AcDbObjectId second = drawing.addWell({500, 0, 0});
    drawing.addPipe({0.5, 0, 0}, {39.5, 0, 0});
    ASSERT_EQ(run(first), 1);
    EXPECT_EQ(run(second), 0) << "the pipe leads to a node, as in a ring";
    EXPECT_EQ(nodes(), (Ids{first, other, second}));
    EXPECT_EQ(result.segs.GetSize(), 1);
}

TEST_F(FilledObjectTest, NodeThatNoSegmentReachesThrowsAndBothPathsHoldWhatWasPassed) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId second = drawing.addWell({100, 0, 0});
    const AcDbObjectId pipe = drawing.addPipe({80, 0, 0}, {99.7, 0, 0});
    ASSERT_EQ(run(first), 0);
    EXPECT_THROW(run(pipe, second), CInvalidArgException);
    EXPECT_EQ(nodes(), (Ids{first, second}));
    EXPECT_EQ(intsOf(result.pathWells), std::vector<int>{1});
    EXPECT_EQ(intsOf(result.pathSegs), std::vector<int>{-1});
}

TEST_F(EndPathTest, LowerHeightComesFirstAndTheFlowStays) {
    drawing.setText(pipes[0], L"起点标高", L"5");
    drawing.setText(pipes[0], L"终点标高", L"3");
    drawing.setText(pipes[1], L"起点标高", L"3");
    drawing.setText(pipes[1], L"终点标高", L"3");
    EXPECT_EQ(run(wells[0]), 1);
    EXPECT_EQ(result.segs[0].startElevation, 3.0);
    EXPECT_EQ(result.segs[0].endElevation, 5.0);
    EXPECT_EQ(result.segs[0].flowReversed, 0);
    EXPECT_TRUE(samePoint(result.segs[0].startPoint, {0, 0, 0}));
    EXPECT_EQ(result.segs[0].startWell, 0);
    EXPECT_EQ(result.segs[1].startElevation, 3.0);
    EXPECT_EQ(result.segs[1].endElevation, 3.0);
    EXPECT_EQ(result.segs[2].startElevation, 0.0) << "no heights at all";
    EXPECT_EQ(result.segs[2].endElevation, 0.0);
}

TEST_F(EndPathTest, HeightsStayAsReadWhenTheEndIsNotReached) {
    drawing.setText(pipes[0], L"起点标高", L"5");
    drawing.setText(pipes[0], L"终点标高", L"3");
    EXPECT_EQ(run(wells[0], drawing.addWell({500, 0, 0})), 0);
    EXPECT_EQ(result.segs[0].startElevation, 5.0);
    EXPECT_EQ(result.segs[0].endElevation, 3.0);
}

} // namespace module_tests
