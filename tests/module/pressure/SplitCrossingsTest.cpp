// Straight pipes are cut where others cross or touch them between their ends.

#include "module/pressure/PressureTest.h"
#include "module/support/HostTolerance.h"

namespace module_tests {

class SplitCrossingsTest : public PressureTest {
protected:
    /// Pipes that are there when the host's tolerance has changed between collecting and cutting.
    std::size_t pipesCutWithin(double equalPoint, Mode mode, AcDbObjectId picked) {
        const auto search = collected(picked, {}, mode);
        const HostTolerance tolerance(equalPoint);
        EXPECT_EQ(search->PreparePipes(), 1);
        return present(search->pipePool).size();
    }
};

/// The branch touches in mid-span.
TEST_F(SplitCrossingsTest, BranchCutsOnlyThePipeThatItTouches) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    const AcDbObjectId branch = drawing.main({10, 0, 0}, {10, 10, 0});
    const auto search = prepared(main);
    EXPECT_TRUE(holds(search->pipePool, {{branch, {10, 0, 0}, {10, 10, 0}, 1},
                                         {main, {0, 0, 0}, {10, 0, 0}, 0},
                                         {main, {10, 0, 0}, {30, 0, 0}, 0}}));
    const std::vector<const _Pipe*> pipes = present(search->pipePool);
    EXPECT_TRUE(samePoint(pipes[1]->line.startPoint(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(pipes[1]->line.endPoint(), {10, 0, 0}));
    EXPECT_TRUE(samePoint(pipes[2]->line.startPoint(), {10, 0, 0}));
    EXPECT_TRUE(samePoint(pipes[2]->line.endPoint(), {30, 0, 0}));
    EXPECT_NE(search->FindPickedPipe(), 0);
}

/// It is the same with the branch in front in the drawing.
TEST_F(SplitCrossingsTest, BranchInFrontInThePoolCutsToo) {
    const AcDbObjectId branch = drawing.main({10, 10, 0}, {10, 0, 0});
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    const auto search = prepared(main);
    EXPECT_TRUE(holds(search->pipePool, {{branch, {10, 10, 0}, {10, 0, 0}, 1},
                                         {main, {0, 0, 0}, {10, 0, 0}, 0},
                                         {main, {10, 0, 0}, {30, 0, 0}, 0}}));
}

TEST_F(SplitCrossingsTest, PiecesKeepTheRecordOfTheirEntity) {
    const AcDbObjectId main = drawing.main({30, 0, 0}, {0, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    const auto search = prepared(main);
    for (const std::size_t piece : {1U, 2U}) {
        const _Pipe& pipe = *present(search->pipePool)[piece];
        EXPECT_EQ(pipe.id, main);
        EXPECT_EQ(utf8(pipe.systemName), "给水");
        EXPECT_EQ(utf8(pipe.layer), "0");
        EXPECT_EQ(pipe.valid, 1);
        EXPECT_EQ(pipe.isArc, 0);
        EXPECT_TRUE(sameVector(pipe.direction, {-1, 0, 0}));
        EXPECT_NEAR(pipe.angle, kPi, 1e-12);
    }
}

/// Of two that cross, the later one's pieces stand first.
TEST_F(SplitCrossingsTest, CrossingPipesAreBothCutTheLaterOneFirst) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {30, 0, 0});
    const AcDbObjectId second = drawing.main({10, -5, 0}, {10, 5, 0});
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{second, {10, -5, 0}, {10, 0, 0}, 0},
                                                  {second, {10, 0, 0}, {10, 5, 0}, 0},
                                                  {first, {0, 0, 0}, {10, 0, 0}, 0},
                                                  {first, {10, 0, 0}, {30, 0, 0}, 0}}));
}

TEST_F(SplitCrossingsTest, CrossingIsAConnection) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {30, 0, 0});
    const AcDbObjectId second = drawing.main({10, -5, 0}, {10, 5, 0});
    ASSERT_EQ(search(first, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 4);
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 0}));
    EXPECT_EQ(pipes(1), Ids{second});
    EXPECT_EQ(seg(1).reversed, 1);
    EXPECT_EQ(pipes(2), Ids{second});
    EXPECT_EQ(pipes(3), Ids{first});
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(intsOf(seg(i).orientationFlags), std::vector<int>{0});
    }
}

TEST_F(SplitCrossingsTest, MeetingOfEndsCutsNeither) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId second = drawing.main({10, 0, 0}, {10, 10, 0});
    const AcDbObjectId third = drawing.main({9.995, 10, 0}, {9.995, -0.005, 0}); // just across
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{first, {0, 0, 0}, {10, 0, 0}, 1},
                                                  {second, {10, 0, 0}, {10, 10, 0}, 1},
                                                  {third, {9.995, 10, 0}, {9.995, -0.005, 0}, 1}}));
}

TEST_F(SplitCrossingsTest, CrossingAtTheEndOfOneCutsOnlyTheOther) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId second = drawing.main({5, -0.005, 0}, {5, 10, 0});
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{second, {5, -0.005, 0}, {5, 10, 0}, 1},
                                                  {first, {0, 0, 0}, {5, 0, 0}, 0},
                                                  {first, {5, 0, 0}, {10, 0, 0}, 0}}));
}

/// With a draw scale of 10 a meeting at an end is nearer than exactly one unit.
TEST_F(SplitCrossingsTest, EndToleranceItselfIsTooFarForAMeeting) {
    drawing.setDrawScale(10.0);
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId second = drawing.main({5, -1, 0}, {5, 10, 0});
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{second, {5, -1, 0}, {5, 0, 0}, 0},
                                                  {second, {5, 0, 0}, {5, 10, 0}, 0},
                                                  {first, {0, 0, 0}, {5, 0, 0}, 0},
                                                  {first, {5, 0, 0}, {10, 0, 0}, 0}}));
    drawing.setDrawScale(9.9);
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{second, {5, -1, 0}, {5, 10, 0}, 1},
                                                  {first, {0, 0, 0}, {5, 0, 0}, 0},
                                                  {first, {5, 0, 0}, {10, 0, 0}, 0}}));
}

TEST_F(SplitCrossingsTest, DrawScaleZeroCutsNothing) {
    drawing.setDrawScale(0.0);
    const AcDbObjectId first = drawing.main({0, 0, 0}, {30, 0, 0});
    const AcDbObjectId second = drawing.main({10, -5, 0}, {10, 5, 0});
    EXPECT_TRUE(holds(prepared(first)->pipePool,
                      {{first, {0, 0, 0}, {30, 0, 0}, 1}, {second, {10, -5, 0}, {10, 5, 0}, 1}}));
}

TEST_F(SplitCrossingsTest, ParallelAndColinearPipesAreNotCut) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId over = drawing.main({5, 0, 0}, {15, 0, 0});
    const AcDbObjectId inside = drawing.main({8, 0, 0}, {2, 0, 0});
    const AcDbObjectId beside = drawing.main({0, 1e-11, 0}, {10, 1e-11, 0});
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{first, {0, 0, 0}, {10, 0, 0}, 1},
                                                  {over, {5, 0, 0}, {15, 0, 0}, 1},
                                                  {inside, {8, 0, 0}, {2, 0, 0}, 1},
                                                  {beside, {0, 0, 0}, {10, 0, 0}, 1}}));
}

TEST_F(SplitCrossingsTest, PipesAtDifferentHeightsDoNotCross) {
    const AcDbObjectId low = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId high = drawing.main({5, -5, 0.001}, {5, 5, 0.001});
    EXPECT_TRUE(holds(prepared(low)->pipePool,
                      {{low, {0, 0, 0}, {10, 0, 0}, 1}, {high, {5, -5, 0.001}, {5, 5, 0.001}, 1}}));
}

/// (10, 0) cuts 1 and 0 first; what is left of 0 on the right meets 2 when 2 comes up.
///
///        1    2
///   0 ---+----+---
TEST_F(SplitCrossingsTest, PipeCrossedByTwoIsCutTwice) {
    const Ids p = {drawing.main({0, 0, 0}, {30, 0, 0}), drawing.main({10, -5, 0}, {10, 5, 0}),
                   drawing.main({20, -5, 0}, {20, 5, 0})};
    EXPECT_TRUE(holds(prepared(p[0])->pipePool, {{p[1], {10, -5, 0}, {10, 0, 0}, 0},
                                                 {p[1], {10, 0, 0}, {10, 5, 0}, 0},
                                                 {p[0], {0, 0, 0}, {10, 0, 0}, 0},
                                                 {p[0], {10, 0, 0}, {20, 0, 0}, 0},
                                                 {p[0], {20, 0, 0}, {30, 0, 0}, 0},
                                                 {p[2], {20, -5, 0}, {20, 0, 0}, 0},
                                                 {p[2], {20, 0, 0}, {20, 5, 0}, 0}}));
}

/// 0 touches 1 from above, and 2 crosses 0: after the cut of 1 the next in its place is 2.
TEST_F(SplitCrossingsTest, AfterACutTheNextPipeInThatPlaceIsTried) {
    const Ids p = {drawing.main({10, 0, 0}, {10, 5, 0}), drawing.main({0, 0, 0}, {30, 0, 0}),
                   drawing.main({8, 3, 0}, {12, 3, 0})};
    EXPECT_TRUE(holds(prepared(p[0])->pipePool, {{p[1], {0, 0, 0}, {10, 0, 0}, 0},
                                                 {p[1], {10, 0, 0}, {30, 0, 0}, 0},
                                                 {p[2], {8, 3, 0}, {10, 3, 0}, 0},
                                                 {p[2], {10, 3, 0}, {12, 3, 0}, 0},
                                                 {p[0], {10, 0, 0}, {10, 3, 0}, 0},
                                                 {p[0], {10, 3, 0}, {10, 5, 0}, 0}}));
}

TEST_F(SplitCrossingsTest, TwoBranchesOnOnePipeMakeThreePieces) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    const AcDbObjectId right = drawing.main({20, 0, 0}, {20, 10, 0});
    const AcDbObjectId left = drawing.main({10, 0, 0}, {10, 10, 0});
    EXPECT_TRUE(holds(prepared(main)->pipePool, {{right, {20, 0, 0}, {20, 10, 0}, 1},
                                                 {left, {10, 0, 0}, {10, 10, 0}, 1},
                                                 {main, {20, 0, 0}, {30, 0, 0}, 0},
                                                 {main, {0, 0, 0}, {10, 0, 0}, 0},
                                                 {main, {10, 0, 0}, {20, 0, 0}, 0}}));
}

TEST_F(SplitCrossingsTest, PipeOfAnotherSystemCutsNothing) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.addPipe({10, -5, 0}, {10, 5, 0}, {.system = kSewer});
    EXPECT_TRUE(holds(prepared(main)->pipePool, {{main, {0, 0, 0}, {30, 0, 0}, 1}}));
}

TEST_F(SplitCrossingsTest, WellsDoNotCut) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.well({10, 0, 0});
    drawing.setLengthMode(1);
    EXPECT_TRUE(holds(prepared(main)->pipePool, {{main, {0, 0, 0}, {30, 0, 0}, 1}}));
}

/// The branch ends 0.2 short of the main. They meet on the main, farther than a hundredth from all
/// ends, so that both are cut there.
TEST_F(SplitCrossingsTest, PipesMeetWithinTheToleranceThatTheHostHasWhenTheyAreCut) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.main({10, 0.2, 0}, {10, 10, 0});
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        EXPECT_EQ(pipesCutWithin(0.3, mode, main), 4U) << (mode == Mode::kIndexed);
        EXPECT_EQ(pipesCutWithin(0.1, mode, main), 2U) << (mode == Mode::kIndexed);
    }
}

TEST_F(SplitCrossingsTest, PipesThatTouchMeetWhateverTheTolerance) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        for (const double tolerance : {0.0, -0.1, -1e9}) {
            EXPECT_EQ(pipesCutWithin(tolerance, mode, main), 3U)
                << (mode == Mode::kIndexed) << ' ' << tolerance;
        }
    }
}

} // namespace module_tests
