// Cutting arcs. A piece of a cut arc has the right circle and the right ends, but its arc goes the
// long way round over the old far end, and everything afterwards works on that arc.

#include "module/pressure/PressureTest.h"

#include <cmath>

namespace module_tests {

namespace {

/// The upper half of the circle about (0, 0) with radius 10, from (10, 0) to (-10, 0).
class SplitArcTest : public PressureTest {
protected:
    AcDbObjectId upperHalf() { return drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0); }
    AcDbObjectId branchAtTop() { return drawing.main({0, 10, 0}, {0, 20, 0}); }

    /// The pool of a drawing is left as it was drawn.
    void expectUncut(const Ids& ids) {
        const auto search = prepared(ids.front());
        const std::vector<const _Pipe*> pool = present(search->pipePool);
        ASSERT_EQ(pool.size(), ids.size());
        for (std::size_t i = 0; i < ids.size(); ++i) {
            EXPECT_EQ(pool[i]->id, ids[i]);
            EXPECT_EQ(pool[i]->orientationFlag, 1);
        }
    }
};

double lengthOf(const AcGeCircArc3d& arc) {
    return arc.length(arc.startAng(), arc.endAng());
}

} // namespace

/// Cut at the top, the first piece goes from (10, 0) below to (-10, 0) and on to the top, the
/// second from the top over (-10, 0) and below to (10, 0): three quarters of the circle each.
TEST_F(SplitArcTest, PiecesGoTheLongWayRound) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId branch = branchAtTop();
    const auto search = prepared(arc);
    ASSERT_TRUE(holds(search->pipePool, {{branch, {0, 10, 0}, {0, 20, 0}, 1},
                                         {arc, {10, 0, 0}, {0, 10, 0}, 0},
                                         {arc, {0, 10, 0}, {-10, 0, 0}, 0}}));
    const AcGeCircArc3d& first = present(search->pipePool)[1]->arc;
    EXPECT_TRUE(samePoint(first.center(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(first.startPoint(), {10, 0, 0}));
    EXPECT_TRUE(samePoint(first.endPoint(), {0, 10, 0}));
    EXPECT_NEAR(lengthOf(first), 15.0 * kPi, 1e-9);
    EXPECT_NEAR(first.distanceTo({0, -10, 0}), 0.0, 1e-9);
    EXPECT_GT(first.distanceTo({6, 8, 0}), 1.0) << "the piece itself is not on its arc";
    const AcGeCircArc3d& second = present(search->pipePool)[2]->arc;
    EXPECT_TRUE(samePoint(second.center(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(second.startPoint(), {0, 10, 0}));
    EXPECT_TRUE(samePoint(second.endPoint(), {10, 0, 0}));
    EXPECT_NEAR(lengthOf(second), 15.0 * kPi, 1e-9);
    EXPECT_NEAR(second.distanceTo({-6, 8, 0}), 0.0, 1e-9);
}

TEST_F(SplitArcTest, PiecesKeepTheWholeChord) {
    const AcDbObjectId arc = upperHalf();
    branchAtTop();
    const auto search = prepared(arc);
    for (const std::size_t piece : {1U, 2U}) {
        const _Pipe& pipe = *present(search->pipePool)[piece];
        EXPECT_EQ(pipe.isArc, 1);
        EXPECT_TRUE(samePoint(pipe.line.startPoint(), {10, 0, 0}));
        EXPECT_TRUE(samePoint(pipe.line.endPoint(), {-10, 0, 0}));
    }
}

/// (6, 8) stands at acos(0.6); the sweeps are what is left of the circle beyond the other piece.
TEST_F(SplitArcTest, SweepsFollowTheCut) {
    const AcDbObjectId arc = upperHalf();
    drawing.main({6, 8, 0}, {12, 16, 0});
    const auto search = prepared(arc);
    const double cut = std::acos(0.6);
    ASSERT_EQ(present(search->pipePool).size(), 3U);
    EXPECT_NEAR(lengthOf(present(search->pipePool)[1]->arc), 10.0 * (2.0 * kPi - cut), 1e-8);
    EXPECT_NEAR(lengthOf(present(search->pipePool)[2]->arc), 10.0 * (2.0 * kPi - cut), 1e-8);
}

TEST_F(SplitArcTest, LengthOfASegmentFollowsTheSweep) {
    const AcDbObjectId arc = upperHalf();
    branchAtTop();
    ASSERT_EQ(search(arc, {10, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(pipes(0), Ids{arc});
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {0, 10, 0}));
    EXPECT_NEAR(seg(0).GetLength(), 15.0 * kPi, 1e-9);
    EXPECT_EQ(pipes(2), Ids{arc});
    EXPECT_TRUE(samePoint(seg(2).GetSearchPoint(), {-10, 0, 0}));
    EXPECT_NEAR(seg(2).GetLength(), 15.0 * kPi, 1e-9);
}

/// The label of the first piece stands half way round its arc: 135 degrees clockwise from (10, 0).
TEST_F(SplitArcTest, LabelOfASegmentFollowsTheSweep) {
    const AcDbObjectId arc = upperHalf();
    branchAtTop();
    ASSERT_EQ(search(arc, {10, 0, 0}), 1);
    const double half = std::sqrt(0.5);
    EXPECT_TRUE(samePoint(seg(0).GetAnnoatePoint(), {-10 * half, -10 * half, 0}));
    EXPECT_TRUE(sameVector(seg(0).GetAnnnotateVector(), {half, -half, 0}));
}

/// The lower pipe crosses the circle where nothing is drawn. Uncut, the arc does not meet it.
TEST_F(SplitArcTest, PipeAcrossTheUndrawnPartOfTheCircleCutsThePieces) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId below = drawing.main({0, -12, 0}, {0, -8, 0});
    expectUncut({arc, below});
    const AcDbObjectId branch = branchAtTop();
    // The six cuts, with the sweep of each piece's arc in degrees counted from (10, 0):
    //   the arc by the branch    A (10,0)-(0,10) 0 to -270      B (0,10)-(-10,0) 90 to 360
    //   A by the lower pipe      C (10,0)-(0,-10) 0 to 270      D (0,-10)-(0,10) 270 to 0
    //   the lower pipe by A      at (0,-10)
    //   C by the branch          E (10,0)-(0,10) 0 to -270      F (0,10)-(0,-10) 90 to 360
    //   B by the lower pipe      G (0,10)-(0,-10) 90 to -90     H (0,-10)-(-10,0) 270 to 450
    //   E by the lower pipe      I (10,0)-(0,-10) 0 to 270      J (0,-10)-(0,10) 270 to 0
    // I sweeps over the branch again, but the branch has had its turn by then.
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{branch, {0, 10, 0}, {0, 20, 0}, 1},
                                                {arc, {0, -10, 0}, {0, 10, 0}, 0},
                                                {below, {0, -12, 0}, {0, -10, 0}, 0},
                                                {below, {0, -10, 0}, {0, -8, 0}, 0},
                                                {arc, {0, 10, 0}, {0, -10, 0}, 0},
                                                {arc, {0, 10, 0}, {0, -10, 0}, 0},
                                                {arc, {0, -10, 0}, {-10, 0, 0}, 0},
                                                {arc, {10, 0, 0}, {0, -10, 0}, 0},
                                                {arc, {0, -10, 0}, {0, 10, 0}, 0}}));
}

/// Not a second cut of the drawn arc, but of both pieces' long ways round: they overlap, and both
/// parts between the two branches end at the first one.
TEST_F(SplitArcTest, ArcWithTwoBranchesClosesOnItself) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId right = drawing.main({6, 8, 0}, {12, 16, 0});
    const AcDbObjectId left = drawing.main({-6, 8, 0}, {-12, 16, 0});
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{right, {6, 8, 0}, {12, 16, 0}, 1},
                                                {left, {-6, 8, 0}, {-12, 16, 0}, 1},
                                                {arc, {10, 0, 0}, {-6, 8, 0}, 0},
                                                {arc, {-6, 8, 0}, {6, 8, 0}, 0},
                                                {arc, {6, 8, 0}, {-6, 8, 0}, 0},
                                                {arc, {-6, 8, 0}, {-10, 0, 0}, 0}}));
    EXPECT_EQ(search(arc, {10, 0, 0}), 0);
    EXPECT_EQ(rootSeg, 0);
    EXPECT_EQ(count(), 6);
}

/// The first piece's arc runs over the old end, where the next pipe begins. A pipe in front of the
/// arc in the pool has had its turn by then; one behind it cuts the piece there.
TEST_F(SplitArcTest, LaterPipeAtTheFarEndCutsThePieceThatSweepsOverIt) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId branch = branchAtTop();
    const AcDbObjectId on = drawing.main({-10, 0, 0}, {-30, 0, 0});
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{branch, {0, 10, 0}, {0, 20, 0}, 1},
                                                {on, {-10, 0, 0}, {-30, 0, 0}, 1},
                                                {arc, {0, 10, 0}, {-10, 0, 0}, 0},
                                                {arc, {10, 0, 0}, {-10, 0, 0}, 0},
                                                {arc, {-10, 0, 0}, {0, 10, 0}, 0}}));
}

TEST_F(SplitArcTest, EarlierPipeAtTheFarEndCutsNothing) {
    const AcDbObjectId on = drawing.main({-10, 0, 0}, {-30, 0, 0});
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId branch = branchAtTop();
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{on, {-10, 0, 0}, {-30, 0, 0}, 1},
                                                {branch, {0, 10, 0}, {0, 20, 0}, 1},
                                                {arc, {10, 0, 0}, {0, 10, 0}, 0},
                                                {arc, {0, 10, 0}, {-10, 0, 0}, 0}}));
}

/// The second piece's arc goes on to the old start.
TEST_F(SplitArcTest, LaterPipeAtTheStartCutsTheOtherPiece) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId branch = branchAtTop();
    const AcDbObjectId before = drawing.main({30, 0, 0}, {10, 0, 0});
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{branch, {0, 10, 0}, {0, 20, 0}, 1},
                                                {before, {30, 0, 0}, {10, 0, 0}, 1},
                                                {arc, {10, 0, 0}, {0, 10, 0}, 0},
                                                {arc, {0, 10, 0}, {10, 0, 0}, 0},
                                                {arc, {10, 0, 0}, {-10, 0, 0}, 0}}));
}

/// A meter where the arc is not drawn lies on the piece that sweeps over it.
TEST_F(SplitArcTest, MeterOnTheUndrawnPartOfTheCircleIsTaken) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId meter = drawing.meter({0, -10.25, 0});
    ASSERT_EQ(search(arc, {10, 0, 0}), 1);
    EXPECT_EQ(seg(0).meterIds.length(), 0);
    branchAtTop();
    ASSERT_EQ(search(arc, {10, 0, 0}), 1);
    EXPECT_EQ(idsOf(seg(0).meterIds), Ids{meter});
    EXPECT_EQ(seg(2).meterIds.length(), 0) << "the first segment took it";
}

/// A meter on the drawn piece is not on the first piece's arc; the second sweeps over neither.
TEST_F(SplitArcTest, MeterOnTheDrawnPieceIsMissed) {
    const AcDbObjectId arc = upperHalf();
    drawing.meter({6, 8, 0});
    ASSERT_EQ(search(arc, {10, 0, 0}), 1);
    EXPECT_EQ(seg(0).meterIds.length(), 1);
    branchAtTop();
    ASSERT_EQ(search(arc, {10, 0, 0}), 1);
    for (int i = 0; i < count(); ++i) {
        EXPECT_EQ(seg(i).meterIds.length(), 0) << i;
    }
}

TEST_F(SplitArcTest, StraightPipeAcrossAnArcOnceCutsBoth) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId line = drawing.main({0, 5, 0}, {0, 15, 0});
    const std::vector<Piece> pieces = {{line, {0, 5, 0}, {0, 10, 0}, 0},
                                       {line, {0, 10, 0}, {0, 15, 0}, 0},
                                       {arc, {10, 0, 0}, {0, 10, 0}, 0},
                                       {arc, {0, 10, 0}, {-10, 0, 0}, 0}};
    EXPECT_TRUE(holds(prepared(arc)->pipePool, pieces));
}

/// The same with the straight one in front, where the later one, the arc, is cut first.
TEST_F(SplitArcTest, ArcBehindAStraightPipeIsCutFirst) {
    const AcDbObjectId line = drawing.main({0, 5, 0}, {0, 15, 0});
    const AcDbObjectId arc = upperHalf();
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{arc, {10, 0, 0}, {0, 10, 0}, 0},
                                                {arc, {0, 10, 0}, {-10, 0, 0}, 0},
                                                {line, {0, 5, 0}, {0, 10, 0}, 0},
                                                {line, {0, 10, 0}, {0, 15, 0}, 0}}));
}

TEST_F(SplitArcTest, StraightPipeAcrossAnArcTwiceCutsNeither) {
    expectUncut({upperHalf(), drawing.main({-15, 5, 0}, {15, 5, 0})});
}

TEST_F(SplitArcTest, ArcBehindAStraightPipeThatItCrossesTwiceIsNotCut) {
    expectUncut({drawing.main({-15, 5, 0}, {15, 5, 0}), upperHalf()});
}

TEST_F(SplitArcTest, PipesThatMeetTwiceDoNotConnect) {
    const AcDbObjectId line = drawing.main({-15, 5, 0}, {15, 5, 0});
    upperHalf();
    ASSERT_EQ(search(line, {-15, 5, 0}), 1);
    EXPECT_EQ(count(), 1);
}

/// Circles of radius 10 about (0, 0) and (0, 8) meet at (-+ sqrt(84), 4).
TEST_F(SplitArcTest, ArcsThatCrossTwiceAreNotCut) {
    expectUncut({upperHalf(), drawing.arc({-10, 8, 0}, {10, 8, 0}, 1.0)});
}

TEST_F(SplitArcTest, ArcsThatCrossTwiceDoNotConnect) {
    const AcDbObjectId first = upperHalf();
    const AcDbObjectId second = drawing.arc({-10, 8, 0}, {10, 8, 0}, 1.0);
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), Ids{first});
    ASSERT_EQ(search(second, {-10, 8, 0}), 1);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), Ids{second});
}

/// Circles of radius 10 about (0, 0) and (12, 0) meet at (6, 8) and (6, -8); of each the upper half
/// is drawn. Each piece goes round the lower half too, so that any two of them meet at both places
/// and are left alone.
TEST_F(SplitArcTest, ArcsThatCrossOnceAreBothCutOnce) {
    const AcDbObjectId first = upperHalf();
    const AcDbObjectId second = drawing.arc({22, 0, 0}, {2, 0, 0}, 1.0);
    EXPECT_TRUE(holds(prepared(first)->pipePool, {{second, {22, 0, 0}, {6, 8, 0}, 0},
                                                  {second, {6, 8, 0}, {2, 0, 0}, 0},
                                                  {first, {10, 0, 0}, {6, 8, 0}, 0},
                                                  {first, {6, 8, 0}, {-10, 0, 0}, 0}}));
}

TEST_F(SplitArcTest, ArcsOnOneCircleDoNotCutEachOther) {
    expectUncut({upperHalf(), drawing.arc({0, 10, 0}, {0, -10, 0}, 1.0)});
}

/// The straight pipe touches the arc at its top, in one place.
TEST_F(SplitArcTest, TangentContactIsACrossing) {
    const AcDbObjectId arc = upperHalf();
    const AcDbObjectId line = drawing.main({-5, 10, 0}, {5, 10, 0});
    EXPECT_TRUE(holds(prepared(arc)->pipePool, {{line, {-5, 10, 0}, {0, 10, 0}, 0},
                                                {line, {0, 10, 0}, {5, 10, 0}, 0},
                                                {arc, {10, 0, 0}, {0, 10, 0}, 0},
                                                {arc, {0, 10, 0}, {-10, 0, 0}, 0}}));
}

TEST_F(SplitArcTest, EndToEndWithAnArcCutsNeither) {
    expectUncut({upperHalf(), drawing.main({10, 0, 0}, {10, -10, 0}),
                 drawing.main({-10, -10, 0}, {-10, 0, 0})});
}

} // namespace module_tests
