// A segment and its only child become one where the child continues it.

#include "module/pressure/PressureTest.h"

#include <cmath>

namespace module_tests {

namespace {

const double kEighth = std::tan(kPi / 8.0); ///< the bulge of a quarter turn to the left

class PressureMergeTest : public PressureTest {
protected:
    /// Two segments end to end at (10, 0), the first from (0, 0): merged or not.
    void expectMerged(AcDbObjectId first, bool merged) {
        ASSERT_EQ(search(first, {0, 0, 0}), 1);
        EXPECT_EQ(count(), merged ? 1 : 2);
        EXPECT_EQ(seg(0).pipeIds.length(), merged ? 2 : 1);
    }
};

} // namespace

/// P --- --- ---
TEST_F(PressureMergeTest, StraightRunDrawnInWalkingDirectionIsOneSegment) {
    const Ids ids = {drawing.main({0, 0, 0}, {10, 0, 0}), drawing.main({10, 0, 0}, {20, 0, 0}),
                     drawing.main({20, 0, 0}, {30, 0, 0})};
    ASSERT_EQ(search(ids[0], {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), ids);
    EXPECT_EQ(intsOf(seg(0).orientationFlags), (std::vector<int>{1, 1, 1}));
    EXPECT_EQ(seg(0).children.GetSize(), 0);
    EXPECT_EQ(seg(0).reversed, 0);
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {30, 0, 0}));
    EXPECT_EQ(seg(0).GetLength(), 30.0);
}

/// The line runs from the far end to the begin point, and so does the label.
TEST_F(PressureMergeTest, LineOfAMergedSegmentPointsBackToTheBegin) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(search(first, {0, 0, 0}), 1);
    EXPECT_TRUE(sameVector(seg(0).GetAnnnotateVector(), {1, 0, 0}));
    drawing.main({10, 0, 0}, {20, 0, 0});
    ASSERT_EQ(search(first, {0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(seg(0).line.startPoint(), {20, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).line.endPoint(), {0, 0, 0}));
    EXPECT_TRUE(sameVector(seg(0).GetAnnnotateVector(), {-1, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetAnnoatePoint(), {10, 0, 0}));
}

TEST_F(PressureMergeTest, HowTheOthersOfTheRunAreDrawnDoesNotMatter) {
    const Ids ids = {drawing.main({0, 0, 0}, {10, 0, 0}), drawing.main({20, 0, 0}, {10, 0, 0}),
                     drawing.main({30, 0, 0}, {20, 0, 0})};
    ASSERT_EQ(search(ids[0], {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), ids);
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {30, 0, 0}));
}

TEST_F(PressureMergeTest, BendKeepsTwoSegments) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {20, 0.001, 0});
    expectMerged(first, false);
    EXPECT_EQ(seg(1).parent, 0);
}

/// Their directions agree, and nothing else is asked.
TEST_F(PressureMergeTest, ParallelPipesSideBySideMerge) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0.3, 0}, {20, 0.3, 0});
    expectMerged(first, true);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {20, 0.3, 0}));
    EXPECT_TRUE(samePoint(seg(0).line.startPoint(), {20, 0.3, 0}));
}

/// The second runs back beside the first, and the run is as short as the step between them.
TEST_F(PressureMergeTest, PipeThatRunsBackBesideTheFirstMerges) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0.3, 0}, {0, 0.3, 0});
    expectMerged(first, true);
    EXPECT_TRUE(samePoint(seg(0).endPoint, {0, 0.3, 0}));
    EXPECT_DOUBLE_EQ(seg(0).GetLength(), 0.3);
}

///          |
///   P ---- + ----
TEST_F(PressureMergeTest, AtAJunctionNothingMerges) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId straightOn = drawing.main({10, 0, 0}, {20, 0, 0});
    const AcDbObjectId branch = drawing.main({10, 0, 0}, {10, 10, 0});
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(pipes(1), Ids{straightOn});
    EXPECT_EQ(pipes(2), Ids{branch});
    EXPECT_EQ(intsOf(seg(0).children), (std::vector<int>{1, 2}));
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0}));
}

TEST_F(PressureMergeTest, BehindAMergeTheTreeGoesOn) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {20, 0, 0});
    const AcDbObjectId bend = drawing.main({20, 0, 0}, {20, 10, 0});
    const AcDbObjectId bendOn = drawing.main({20, 10, 0}, {20, 20, 0});
    const AcDbObjectId last = drawing.main({20, 20, 0}, {30, 20, 0});
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(seg(0).pipeIds.length(), 2);
    EXPECT_EQ(intsOf(seg(0).children), std::vector<int>{1});
    EXPECT_EQ(pipes(1), (Ids{bend, bendOn}));
    EXPECT_EQ(intsOf(seg(1).children), std::vector<int>{2});
    EXPECT_EQ(pipes(2), Ids{last});
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 1}));
}

/// Each well reaches 0.5, and the pipes stop 0.4 short of its centre.
TEST_F(PressureMergeTest, WellOnTheJointDoesNotStopIt) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {9.6, 0, 0});
    drawing.main({10.4, 0, 0}, {20, 0, 0});
    drawing.well({10, 0, 0});
    for (const int mode : {0, 1, 2}) {
        drawing.setLengthMode(mode);
        ASSERT_EQ(search(first, {0, 0, 0}), 1);
        ASSERT_EQ(count(), 1) << mode;
        EXPECT_EQ(seg(0).pipeIds.length(), 2);
        EXPECT_EQ(seg(0).GetLength(), 20.0);
    }
}

TEST_F(PressureMergeTest, ValuesOfTheFirstPipeStayAndTheOthersAreDropped) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0},
                                            {.diameter = L"200",
                                             .flow = L"SE",
                                             .slope = L"0.1",
                                             .startElevation = L"10",
                                             .endElevation = L"9",
                                             .material = L"PE"});
    drawing.main({10, 0, 0}, {20, 0, 0},
                 {.diameter = L"100",
                  .flow = L"ES",
                  .slope = L"0.2",
                  .startElevation = L"9",
                  .endElevation = L"7",
                  .material = L"PVC"});
    ASSERT_EQ(search(first, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(seg(0).diameter, 200);
    EXPECT_EQ(utf8(seg(0).flowText), "SE");
    EXPECT_EQ(seg(0).slope, 0.1);
    EXPECT_EQ(seg(0).startElevation, 10.0);
    EXPECT_EQ(seg(0).endElevation, 9.0) << "that of the first pipe's far end, not of the run's";
    EXPECT_EQ(utf8(seg(0).material), "PE");
}

/// The picked pipe runs from (10, 0) to (0, 0). It comes out turned round, and the walk looks
/// around the picked end, where nothing is; the third pipe is not reached.
///
///   P <--- ---- ----
TEST_F(PressureMergeTest, RunThatBeginsWithAReversedRootIsTurnedRound) {
    const AcDbObjectId first = drawing.main({10, 0, 0}, {0, 0, 0});
    const AcDbObjectId second = drawing.main({10, 0, 0}, {20, 0, 0});
    drawing.main({20, 0, 0}, {30, 0, 0});
    ASSERT_EQ(search(first, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), (Ids{first, second}));
    EXPECT_NE(seg(0).reversed, 0);
    EXPECT_TRUE(samePoint(seg(0).startPoint, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {20, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {20, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).line.startPoint(), {20, 0, 0}));
}

///   | left
///   P <--- ---- ----
TEST_F(PressureMergeTest, FromATurnedRootThePipesAtThePickedEndAreAdopted) {
    const AcDbObjectId first = drawing.main({10, 0, 0}, {0, 0, 0});
    drawing.main({10, 0, 0}, {20, 0, 0});
    drawing.main({20, 0, 0}, {30, 0, 0});
    const AcDbObjectId left = drawing.main({0, 0, 0}, {0, 10, 0});
    ASSERT_EQ(search(first, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(seg(0).pipeIds.length(), 2);
    EXPECT_EQ(pipes(1), Ids{left});
    EXPECT_EQ(seg(1).parent, 0);
}

/// Turned to the left end, the run merges with what continues it there, which turns it back to the
/// right end; there the third pipe is merged, which turns it to the left again.
///
///   ---- P <--- ---- ----
TEST_F(PressureMergeTest, TurnedRootMergesFromSideToSide) {
    const AcDbObjectId first = drawing.main({10, 0, 0}, {0, 0, 0});
    const AcDbObjectId second = drawing.main({10, 0, 0}, {20, 0, 0});
    const AcDbObjectId third = drawing.main({20, 0, 0}, {30, 0, 0});
    const AcDbObjectId left = drawing.main({-10, 0, 0}, {0, 0, 0});
    ASSERT_EQ(search(first, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), (Ids{first, second, left, third}));
    EXPECT_TRUE(samePoint(seg(0).startPoint, {-10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {30, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {-10, 0, 0}));
}

/// A is drawn against the walk, and B continues it. A's search point comes to be its old begin
/// point, which is where the root ends: two segments end at one place.
///
///        <--- ----
///        | A    B
///        P
TEST_F(PressureMergeTest, TurnedRoundBeyondTheRootTheNetworkCountsAsClosed) {
    const AcDbObjectId root = drawing.main({0, -10, 0}, {0, 0, 0});
    const AcDbObjectId a = drawing.main({10, 0, 0}, {0, 0, 0});
    const AcDbObjectId b = drawing.main({10, 0, 0}, {20, 0, 0});
    drawing.main({20, 0, 0}, {20, 10, 0});
    EXPECT_EQ(search(root, {0, -10, 0}), 0);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(pipes(1), (Ids{a, b}));
    EXPECT_TRUE(samePoint(seg(1).GetBeginPoint(), {20, 0, 0}));
    EXPECT_TRUE(samePoint(seg(1).GetSearchPoint(), {0, 0, 0}));
}

/// The same with a step of 1.5 between the root and A, where 2 are allowed.
TEST_F(PressureMergeTest, TurnedRoundAcrossAWideGapTheNetworkStaysOpen) {
    drawing.setBreakDist(0.5);
    const AcDbObjectId root = drawing.main({0, -10, 0}, {0, 0, 0});
    drawing.main({11.5, 0, 0}, {1.5, 0, 0});
    drawing.main({11.5, 0, 0}, {21.5, 0, 0});
    drawing.main({21.5, 0, 0}, {21.5, 10, 0});
    ASSERT_EQ(search(root, {0, -10, 0}), 1);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(seg(1).pipeIds.length(), 2);
    EXPECT_TRUE(samePoint(seg(1).GetSearchPoint(), {1.5, 0, 0}));
    EXPECT_EQ(seg(1).children.GetSize(), 0) << "what lies beyond the run is not reached";
}

TEST_F(PressureMergeTest, ArcAndStraightPipeNeverMerge) {
    const AcDbObjectId straight = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.arc({10, 0, 0}, {20, 10, 0}, kEighth); // leaves (10, 0) in the same direction
    expectMerged(straight, false);
    const AcDbObjectId arc = drawing.arc({0, 50, 0}, {10, 40, 0}, kEighth);
    drawing.main({10, 40, 0}, {20, 40, 0});
    ASSERT_EQ(search(arc, {0, 50, 0}), 1);
    EXPECT_EQ(count(), 2);
}

/// Two quarters of the circle about (0, 0) with radius 10, from (10, 0) over (0, 10).
TEST_F(PressureMergeTest, ArcsOnOneCircleBecomeOneArcFromTheFarEndToTheBegin) {
    const AcDbObjectId first = drawing.arc({10, 0, 0}, {0, 10, 0}, kEighth);
    const AcDbObjectId second = drawing.arc({0, 10, 0}, {-10, 0, 0}, kEighth);
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(pipes(0), (Ids{first, second}));
    EXPECT_TRUE(samePoint(seg(0).startPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).endPoint, {-10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).arc.startPoint(), {-10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).arc.endPoint(), {10, 0, 0}));
    EXPECT_NEAR(seg(0).GetLength(), 10.0 * kPi, 1e-9);
    EXPECT_TRUE(samePoint(seg(0).GetAnnoatePoint(), {0, 10, 0}));
    EXPECT_TRUE(sameVector(seg(0).GetAnnnotateVector(), {-1, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).line.startPoint(), {10, 0, 0})) << "the chord stays";
    EXPECT_TRUE(samePoint(seg(0).line.endPoint(), {0, 10, 0}));
}

/// Its through point is the old search point, read before the ends are written; with the new one
/// there would be no circle.
TEST_F(PressureMergeTest, ReversedArcIsTurnedRoundOnItsCircle) {
    const AcDbObjectId first = drawing.arc({0, 10, 0}, {10, 0, 0}, -kEighth);
    drawing.arc({0, 10, 0}, {-10, 0, 0}, kEighth);
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_NE(seg(0).reversed, 0);
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {-10, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {10, 0, 0}));
    EXPECT_NEAR(seg(0).GetLength(), 10.0 * kPi, 1e-9);
    EXPECT_TRUE(samePoint(seg(0).GetAnnoatePoint(), {0, 10, 0}));
}

TEST_F(PressureMergeTest, ArcsOfDifferentRadiiAboutOneCentreMerge) {
    const AcDbObjectId first = drawing.arc({10, 0, 0}, {0, 10, 0}, kEighth);
    drawing.arc({0, 10.3, 0}, {-10.3, 0, 0}, kEighth);
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(samePoint(seg(0).arc.startPoint(), {-10.3, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).arc.endPoint(), {10, 0, 0}));
    EXPECT_NE(seg(0).PtOnSeg({0, 10, 0}), 0) << "the arc runs through the old search point";
}

/// Half circles: (10, 0) over (0, 10) to (-10, 0) about (0, 0), then below about a centre on the
/// x axis.
TEST_F(PressureMergeTest, ArcsWithCentresLessThanOneApartMerge) {
    const AcDbObjectId first = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    const AcDbObjectId second = drawing.arc({-10, 0, 0}, {8, 0, 0}, 1.0); // about (-1, 0)
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    EXPECT_EQ(count(), 2) << "exactly one apart";
    drawing.erase(second);
    drawing.arc({-10, 0, 0}, {8.25, 0, 0}, 1.0); // about (-0.875, 0)
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(seg(0).pipeIds.length(), 2);
}

/// The same two: begin, search point and far end are on one line, so the arc cannot be made and
/// stays the first one's, while the ends are those of the run.
TEST_F(PressureMergeTest, ArcThatCannotBeMadeStaysAsItWas) {
    const AcDbObjectId first = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    drawing.arc({-10, 0, 0}, {8.25, 0, 0}, 1.0);
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(samePoint(seg(0).endPoint, {8.25, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).arc.startPoint(), {10, 0, 0}));
    EXPECT_NEAR(seg(0).GetLength(), 10.0 * kPi, 1e-9);
}

/// A merged run of 20 and what hangs behind it: the second look around finds nothing new.
TEST_F(PressureMergeTest, RepeatedWalkAfterAMergeHasNoEffect) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {20, 0, 0});
    drawing.main({20, 0, 0}, {20, 10, 0});
    drawing.main({20, 0, 0}, {20, -10, 0});
    drawing.main({20, 10, 0}, {20, 20, 0});
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(intsOf(seg(0).children), (std::vector<int>{1, 2}));
    EXPECT_EQ(seg(1).pipeIds.length(), 2);
    EXPECT_EQ(seg(1).children.GetSize(), 0);
    EXPECT_EQ(seg(2).children.GetSize(), 0);
}

} // namespace module_tests
