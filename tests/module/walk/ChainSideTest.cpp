// A run that goes on into the side of another pipe, by crossing or overlap, and its length.

#include "module/support/HostTolerance.h"
#include "module/walk/WalkTest.h"

#include <cmath>

namespace module_tests {

/// The pipe under trace runs from (-20, 0) to the origin; the others cross or overlap it.
class ChainSideTest : public WalkTest {
protected:
    ChainSideTest() { first = drawing.addPipe({-20, 0, 0}, {0, 0, 0}); }

    int traceFirst() {
        collect();
        return traceOutOfEnd(first);
    }

    AcDbObjectId first;
};

TEST_F(ChainSideTest, CrossedPipeIsTriedTowardsItsStartFirst) {
    const AcDbObjectId crossed = drawing.addPipe({-40, 6, 0}, {20, -6, 0}); // over (-10, 0)
    const AcDbObjectId atStart = drawing.addWell({-40, 6, 0});
    drawing.addWell({20, -6, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, crossed}));
    EXPECT_EQ(target(), atStart);
}

TEST_F(ChainSideTest, ThenTowardsItsEnd) {
    drawing.addPipe({-40, 6, 0}, {20, -6, 0});
    const AcDbObjectId atEnd = drawing.addWell({20, -6, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), atEnd);
}

TEST_F(ChainSideTest, RaisedFlagAtTheStartKeepsItFromTheEnd) {
    drawing.addPipe({-40, 6, 0}, {20, -6, 0});
    const AcDbObjectId node = drawing.addWell({-40, 6, 0});
    drawing.addWell({20, -6, 0});
    collect();
    makeNode(node);
    EXPECT_EQ(traceOutOfEnd(first), 0);
    EXPECT_EQ(search->abortFlag, 1);
    EXPECT_EQ(chain(), Ids{first});
}

// The crossing at (-10, 0) is 0.98 from the start, below the metre.
TEST_F(ChainSideTest, CrossingWithinAMetreOfTheStartLeadsTowardsTheEndOnly) {
    drawing.addPipe({-10.96, 0.192, 0}, {20, -6, 0});
    drawing.addWell({-11.2, 0.192, 0});
    const AcDbObjectId atEnd = drawing.addWell({20, -6, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), atEnd);
}

// The lower half circle about (110, 0) has its lowest point, (110, -10), on the straight pipe and
// exactly a metre from where that begins; the well stands 0.4 beyond.
TEST_F(ChainSideTest, CrossingExactlyAMetreFromTheStartDoesNotLeadThere) {
    const AcDbObjectId arc = drawing.addArcPipe({100, 0, 0}, {120, 0, 0}, 1.0);
    const AcDbObjectId straight = drawing.addPipe({110, -9, 0}, {110, -30, 0});
    const AcDbObjectId well = drawing.addWell({110, -8.6, 0});
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 0);
    drawing.erase(straight);
    drawing.addPipe({110, -8.999, 0}, {110, -30, 0}); // a millimetre more
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 1);
    EXPECT_EQ(target(), well);
}

TEST_F(ChainSideTest, CrossingExactlyAMetreFromTheEndDoesNotLeadThere) {
    const AcDbObjectId arc = drawing.addArcPipe({100, 0, 0}, {120, 0, 0}, 1.0);
    const AcDbObjectId straight = drawing.addPipe({110, -30, 0}, {110, -9, 0});
    const AcDbObjectId well = drawing.addWell({110, -8.6, 0});
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 0);
    drawing.erase(straight);
    drawing.addPipe({110, -30, 0}, {110, -8.999, 0});
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 1);
    EXPECT_EQ(target(), well);
}

TEST_F(ChainSideTest, CrossingWithinAMetreOfTheEndDoesNotLeadThere) {
    drawing.addPipe({20, -6, 0}, {-10.96, 0.192, 0});
    drawing.addWell({-11.2, 0.192, 0});
    EXPECT_EQ(traceFirst(), 0);
}

// At draw scale 500 the metre is two units, and 1.96 is within it.
TEST_F(ChainSideTest, MetreFollowsTheDrawingScale) {
    drawing.addPipe({-11.92, 0.384, 0}, {20, -6, 0});
    const AcDbObjectId atStart = drawing.addWell({-11.92, 0.384, 0}, {.diameter = L"0.3"});
    const AcDbObjectId atEnd = drawing.addWell({20, -6, 0}, {.diameter = L"0.3"});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), atStart);
    drawing.setDrawScale(500.0);
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), atEnd);
}

TEST_F(ChainSideTest, CrossingBeyondEighteenDegreesJoinsNothing) {
    drawing.addPipe({-20, 10, 0}, {0, -10, 0});
    drawing.addWell({-20, 10, 0});
    drawing.addWell({0, -10, 0});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainSideTest, PipesAtDifferentHeightsDoNotCross) {
    drawing.addPipe({-40, 6, 1}, {20, -6, 1});
    drawing.addWell({-40, 6, 1});
    EXPECT_EQ(traceFirst(), 0);
}

// The pipe under trace ends at (20, 0), 11 degrees off the upright one, which runs past there a
// fifth of a millionth to the right. At a height of a thousand million units coordinates are told
// apart by 2^-23; four of these, some 4.8e-7, are noise, and so the two meet. A well stands on the
// upright pipe's start.
TEST_F(ChainSideTest, PipesThatRoundingAloneKeepsApartCross) {
    constexpr double height = 1e9;
    const AcDbObjectId traced = drawing.addPipe({18, -10, height}, {20, 0, height});
    const AcDbObjectId upright = drawing.addPipe({20 + 2e-7, -30, height}, {20 + 2e-7, 10, height});
    const AcDbObjectId atStart = drawing.addWell({20, -30.25, height});
    for (const auto each : {tkvlt::CandidateMode::kIndexed, tkvlt::CandidateMode::kPlainScan}) {
        mode = each;
        collect();
        EXPECT_EQ(traceOutOfEnd(traced), 1);
        EXPECT_EQ(chain(), (Ids{traced, upright}));
        EXPECT_EQ(target(), atStart);
    }
}

TEST_F(ChainSideTest, CrossedPipeOfAnotherSystemJoinsNothing) {
    drawing.addPipe({-40, 6, 0}, {20, -6, 0}, {.system = kStorm});
    drawing.addWell({-40, 6, 0});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainSideTest, EndToEndWinsOverACrossingThatStandsEarlier) {
    drawing.addPipe({-40, 6, 0}, {20, -6, 0});
    drawing.addWell({-40, 6, 0});
    const AcDbObjectId joined = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    const AcDbObjectId well = drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, joined}));
    EXPECT_EQ(target(), well);
}

// The pipe begins 0.32 from the free end and is joined there, which leads away from the well to its
// far end and nowhere. It crosses the first at (-10, 0) as well, 10.3 from its start, and from
// there the way to its start would reach the well 0.4 beyond.
TEST_F(ChainSideTest, PipeThatEndsWithinTheSnapDistanceIsNotEnteredByItsSide) {
    drawing.addPipe({0.3, 0.1, 0}, {-30.6, -0.2, 0});
    drawing.addWell({0.7, 0.1, 0});
    EXPECT_EQ(traceFirst(), 0);
    EXPECT_TRUE(target().isNull());
}

TEST_F(ChainSideTest, OverlappingPipeIsLeftByTheEndThatLiesBeyond) {
    const AcDbObjectId over = drawing.addPipe({-5, 0, 0}, {20, 0, 0});
    const AcDbObjectId well = drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, over}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainSideTest, OverlappingPipeDrawnTheOtherWayToo) {
    drawing.addPipe({20, 0, 0}, {-5, 0, 0});
    const AcDbObjectId well = drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), well);
}

// Overlapping pipes may lie 1e-10 apart, however finely the host compares points by then: these lie
// 5e-11 apart, and the host is set to 1e-12.
TEST_F(ChainSideTest, OverlapHasAToleranceOfItsOwn) {
    const HostTolerance fine(1e-12);
    const AcDbObjectId start = drawing.addWell({-20.4, 0, 0});
    const AcDbObjectId far = drawing.addWell({20, 0, 0});
    const AcDbObjectId over = drawing.addPipe({-5, 5e-11, 0}, {20, 5e-11, 0});
    for (const auto way : {tkvlt::CandidateMode::kPlainScan, tkvlt::CandidateMode::kIndexed}) {
        SCOPED_TRACE(way == tkvlt::CandidateMode::kIndexed ? "index" : "plain scan");
        mode = way;
        result.wells.RemoveAll();
        result.segs.RemoveAll();
        EXPECT_EQ(run(start), 1);
        EXPECT_EQ(nodes(), (Ids{start, far}));
        ASSERT_EQ(result.segs.GetSize(), 1);
        EXPECT_EQ(idsOf(result.segs[0].pipeIds), (Ids{first, over}));
    }
}

TEST_F(ChainSideTest, PipeWhollyOnTheOtherJoinsNothing) {
    drawing.addPipe({-15, 0, 0}, {-5, 0, 0});
    drawing.addWell({-15, 0, 0});
    drawing.addWell({-5, 0, 0});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainSideTest, PipeThatCoversTheOtherJoinsNothing) {
    drawing.addPipe({-40, 0, 0}, {20, 0, 0});
    drawing.addWell({-40, 0, 0});
    drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 0);
}

// The half circle below the line from (-14, 8) to (6, 8), centre (-4, 8), radius 10, meets the line
// y = 0 at x = -10 and x = 2: once on the pipe.
TEST_F(ChainSideTest, ArcThatIsCutOnceIsEntered) {
    const AcDbObjectId arc = drawing.addArcPipe({-14, 8, 0}, {6, 8, 0}, 1.0);
    const AcDbObjectId atStart = drawing.addWell({-14, 8, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, arc}));
    EXPECT_EQ(target(), atStart);
}

// Moved six to the west both places lie on the pipe.
TEST_F(ChainSideTest, ArcThatIsCutTwiceIsPassedOver) {
    drawing.addArcPipe({-20, 8, 0}, {0, 8, 0}, 1.0);
    drawing.addWell({-20, 8, 0});
    drawing.addWell({0, 8, 0});
    EXPECT_EQ(traceFirst(), 0);
}

// The chord of the arc rises by 45 degrees.
TEST_F(ChainSideTest, CrossedArcIsJudgedByItsChord) {
    drawing.addArcPipe({-14, 8, 0}, {0, -6, 0}, 0.5);
    drawing.addWell({-14, 8, 0});
    drawing.addWell({0, -6, 0});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainSideTest, ArcEntersAStraightPipeAtAnyAngle) {
    // From (100, 0) through (110, -10) to (120, 0); the line x = 110 is cut once.
    const AcDbObjectId arc = drawing.addArcPipe({100, 0, 0}, {120, 0, 0}, 1.0);
    const AcDbObjectId straight = drawing.addPipe({110, -2, 0}, {110, -30, 0});
    const AcDbObjectId well = drawing.addWell({110, -30, 0});
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 1);
    EXPECT_EQ(chain(), (Ids{arc, straight}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainSideTest, ArcEntersAnArc) {
    // The first is the lower half of the circle about (110, 0), the second lies on the circle about
    // (122, -12), both of radius 10. The circles meet on the line between them, x - y = 122: with
    // x = 116 + t, y = -6 + t it is (6 + t)^2 + (t - 6)^2 = 100, so t^2 = 14 and the places are
    // (119.74, -2.26) and (112.26, -9.74), at 103 and 167 degrees on the second circle. The arc
    // from 0 to 110 degrees has the first of them only.
    const AcDbObjectId arc = drawing.addArcPipe({100, 0, 0}, {120, 0, 0}, 1.0);
    const double end = kPi * 110.0 / 180.0;
    const AcDbObjectId other =
        drawing.addArcPipe({132, -12, 0}, {122 + 10 * std::cos(end), -12 + 10 * std::sin(end), 0},
                           std::tan(end / 4.0));
    const AcDbObjectId well = drawing.addWell({132, -12, 0});
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 1);
    EXPECT_EQ(chain(), (Ids{arc, other}));
    EXPECT_EQ(target(), well);
}

// Measured from where the run enters a pipe to where it leaves it: 20 - 10 on the first, then from
// the crossing (-10, 0) to the start, sqrt(30^2 + 6^2), and from there to the well, 0.3.
TEST_F(ChainSideTest, LengthModeOneCountsTheParts) {
    drawing.setLengthMode(1);
    drawing.addPipe({-40, 6, 0}, {20, -6, 0});
    drawing.addWell({-40, 6, 0.3});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_NEAR(search->chainLength, 10.0 + std::sqrt(936.0) + 0.3, 1e-9);
}

TEST_F(ChainSideTest, LengthModeZeroCountsWholePipes) {
    drawing.setLengthMode(0);
    drawing.addPipe({-40, 6, 0}, {20, -6, 0});
    drawing.addWell({-40, 6, 0.3});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_NEAR(search->chainLength, 20.0 + std::sqrt(60.0 * 60.0 + 12.0 * 12.0), 1e-9);
}

// The first pipe is left at the next one's start, 0.3 short of its own end and 0.1 beside it: 19.7
// and 0.1. The next is entered there too, so its 30 count as they are.
TEST_F(ChainSideTest, LengthIsMeasuredToWhereTheNextPipeBegins) {
    drawing.setLengthMode(1);
    const double angle = kPi / 12.0;
    const AcGePoint3d joint(-0.3, 0.1, 0);
    const AcGePoint3d end = joint + AcGeVector3d(std::cos(angle), std::sin(angle), 0) * 30.0;
    drawing.addPipe(joint, end);
    drawing.addWell(end);
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_NEAR(search->chainLength, 19.7 + 0.1 + 30.0, 1e-9);
}

// Behind the second pipe the first way on is a dead end, 0.22 beside the joint: the 20 of the
// second that were counted with it are taken off again, those of the first stay. Then each pipe
// counts once: 20, 20 and the last, 29.6 along and 4 across.
TEST_F(ChainSideTest, DeadEndTakesOffWhatItAddedAndNoMore) {
    drawing.setLengthMode(0);
    const AcDbObjectId second = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addPipe({20.2, 0.1, 0}, {50, 0.3, 0});
    const AcDbObjectId last = drawing.addPipe({20, 0, 0}, {49.6, -4, 0});
    const AcDbObjectId well = drawing.addWell({50, -4, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, second, last}));
    EXPECT_EQ(target(), well);
    EXPECT_NEAR(search->chainLength, 20.0 + 20.0 + std::sqrt(29.6 * 29.6 + 4.0 * 4.0), 1e-9);
}

TEST_F(ChainSideTest, AnyOtherLengthModeCountsNothing) {
    drawing.setLengthMode(3);
    drawing.addPipe({-40, 6, 0}, {20, -6, 0});
    drawing.addWell({-40, 6, 0.3});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(search->chainLength, 0.0);
}

TEST_F(ChainSideTest, TankEndIsMeasuredToThePipesOwnEnd) {
    drawing.setLengthMode(1);
    drawing.addTank({-1, -1, 0}, {5, 5, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_DOUBLE_EQ(search->chainLength, 20.0);
}

TEST_F(ChainSideTest, UndoTakesTheLastPipeOffAgain) {
    const AcDbObjectId second = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    collect();
    search->ResetChain(pipe(first));
    EXPECT_EQ(search->AddChainLink(pipe(first), pipe(second), {-20, 0, 0}, {0, 0, 0}), 1);
    EXPECT_EQ(chain(), (Ids{first, second}));
    EXPECT_DOUBLE_EQ(search->chainLength, 20.0);
    EXPECT_EQ(search->pipeMarks.GetAt(pipe(second)), 1);
    EXPECT_EQ(search->UndoChainLink(pipe(second), 0.0), 1);
    EXPECT_EQ(chain(), Ids{first});
    EXPECT_EQ(search->chainLength, 0.0);
    EXPECT_EQ(search->pipeMarks.GetAt(pipe(second)), 0);
}

TEST_F(ChainSideTest, ResetBeginsAFreshChain) {
    const AcDbObjectId second = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(search->ResetChain(pipe(second)), 1);
    EXPECT_EQ(chain(), Ids{second});
    EXPECT_EQ(search->targetIndex, -1);
    EXPECT_EQ(search->chainLength, 0.0);
    EXPECT_EQ(search->pipeMarks.GetAt(pipe(first)), 0);
    EXPECT_EQ(search->pipeMarks.GetAt(pipe(second)), 1);
}

} // namespace module_tests
