// What stands at the free end of a pipe: a known node, a well, a tank, or another pipe's end.

#include "module/walk/WalkTest.h"

#include <cmath>

namespace module_tests {

/// The pipe under trace runs from (-20, 0) to the origin, its free end.
class ChainEndTest : public WalkTest {
protected:
    ChainEndTest() { first = drawing.addPipe({-20, 0, 0}, {0, 0, 0}); }

    int traceFirst() {
        collect();
        return traceOutOfEnd(first);
    }

    /// The flag that a trace beside a lone known node leaves when the well `gone` was merged away.
    int flagBesideNode(const AcDbObjectId& node, const AcDbObjectId& gone) {
        collect();
        result.wells.RemoveAll();
        makeNode(node);
        search->wellPool.Remove(well(gone));
        EXPECT_EQ(traceOutOfEnd(first), 0);
        return search->abortFlag;
    }

    AcDbObjectId first;
};

TEST_F(ChainEndTest, WellReachIsAHundredthWiderThanItsRadius) {
    const AcDbObjectId well = drawing.addWell({1.0, 0, 0}, {.diameter = L"2"});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), well);
}

// The largest well of the pool tells how far around an end wells are looked for. Here it is 5 wide,
// and the next, far away, 0.5.
TEST_F(ChainEndTest, WellThatIsPutBackReachesAsFarAsBefore) {
    const AcDbObjectId large = drawing.addWell({4.0, 0, 0}, {.diameter = L"10"});
    drawing.addWell({500.0, 0, 0}, {.diameter = L"1"});
    mode = tkvlt::CandidateMode::kIndexed;
    collect();
    search->wellPool.Remove(well(large));
    EXPECT_EQ(traceOutOfEnd(first), 0);
    search->RestorePools();
    search->result = &result;
    EXPECT_EQ(traceOutOfEnd(first), 1);
    EXPECT_EQ(target(), large);
}

TEST_F(ChainEndTest, WellAtExactlyItsReachIsNoTarget) {
    drawing.addWell({1.01, 0, 0}, {.diameter = L"2"});
    EXPECT_EQ(traceFirst(), 0);
    EXPECT_TRUE(target().isNull());
}

TEST_F(ChainEndTest, SquareWellReachesToItsCorner) {
    const AcDbObjectId well =
        drawing.addWell({1.428, 0, 0}, {.diameter = L"2", .square = true}); // of 1.42814
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), well);
}

TEST_F(ChainEndTest, SquareWellBeyondItsCornerIsNoTarget) {
    drawing.addWell({1.4282, 0, 0}, {.diameter = L"2", .square = true});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainEndTest, TheSystemThatIsSearchedMayChangeBetweenQuestions) {
    const AcDbObjectId sewer = drawing.addWell({0, 0, 0});
    const AcDbObjectId storm = drawing.addWell({0, 0, 0}, {.system = kStorm});
    const AcDbObjectId nameless = drawing.addWell({0, 0, 0}, {.system = L""});
    collect();
    ASSERT_GE(well(nameless), 0);
    const AcGePoint3d place(0, 0, 0);
    EXPECT_EQ(search->WellAt(place), well(sewer));
    search->systemName = kStorm;
    EXPECT_EQ(search->WellAt(place), well(storm));
    search->systemName = L"of no well";
    EXPECT_EQ(search->WellAt(place), -1);
    search->systemName.Empty();
    EXPECT_EQ(search->WellAt(place), well(nameless));
    search->systemName = kSewer;
    EXPECT_EQ(search->WellAt(place), well(sewer));
    search->systemName += L"s"; // the same object with other characters
    EXPECT_EQ(search->WellAt(place), -1);
    search->systemName.Delete(search->systemName.GetLength() - 1);
    EXPECT_EQ(search->WellAt(place), well(sewer));
}

TEST_F(ChainEndTest, WellIsMeasuredInSpace) {
    drawing.addWell({0, 0, 2}, {.diameter = L"2"});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainEndTest, WellOfAnotherSystemIsNoTarget) {
    drawing.addWell({0, 0, 0}, {.system = kStorm});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainEndTest, FirstWellOfThePoolWins) {
    const AcDbObjectId earlier = drawing.addWell({0.9, 0, 0}, {.diameter = L"2"});
    drawing.addWell({0, 0, 0}, {.diameter = L"2"});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), earlier);
}

TEST_F(ChainEndTest, TankOfAnySystemIsATargetInPlan) {
    const AcDbObjectId tank = drawing.addTank({-1, -1, 50}, {1, 1, 60}, {.system = kStorm});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), tank);
    EXPECT_EQ(search->targetKind, tkvlt::kTankTarget);
}

TEST_F(ChainEndTest, TankCountsUpToAMillimetreBesideIt) {
    drawing.addTank({0.0011, -1, 0}, {2, 1, 0});
    const AcDbObjectId tank = drawing.addTank({0.0009, -1, 0}, {2, 1, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), tank);
}

TEST_F(ChainEndTest, WellWinsOverTank) {
    drawing.addTank({-1, -1, 0}, {1, 1, 0});
    const AcDbObjectId well = drawing.addWell({0.4, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), well);
    EXPECT_EQ(search->targetKind, tkvlt::kWellTarget);
}

TEST_F(ChainEndTest, TargetWinsOverAJoiningPipe) {
    drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addWell({20, 0, 0});
    const AcDbObjectId tank = drawing.addTank({-1, -1, 0}, {1, 1, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), tank);
    EXPECT_EQ(chain(), Ids{first});
}

// Bounds included: the node is exactly at the reach of the one well in the pool.
TEST_F(ChainEndTest, KnownNodeAtExactlyTheReachStopsTheTrace) {
    const AcDbObjectId node = drawing.addWell({1.01, 0, 0}, {.diameter = L"2"});
    collect();
    makeNode(node);
    EXPECT_EQ(traceOutOfEnd(first), 0);
    EXPECT_EQ(search->abortFlag, 1);
}

TEST_F(ChainEndTest, KnownNodeBeyondTheReachDoesNot) {
    const AcDbObjectId node = drawing.addWell({1.0101, 0, 0}, {.diameter = L"2"});
    collect();
    makeNode(node);
    EXPECT_EQ(traceOutOfEnd(first), 0);
    EXPECT_EQ(search->abortFlag, 0);
}

// Its reach of 1.515 would hold the node at 1.5, that of the node itself is 0.505.
TEST_F(ChainEndTest, LargestWellThatWasMergedAwayDecidesNoLonger) {
    const AcDbObjectId node = drawing.addWell({1.5, 0, 0}, {.diameter = L"1"});
    const AcDbObjectId large = drawing.addWell({500, 0, 0}, {.diameter = L"3"});
    for (const auto each : {tkvlt::CandidateMode::kIndexed, tkvlt::CandidateMode::kPlainScan}) {
        mode = each;
        EXPECT_EQ(flagBesideNode(node, large), 0);
    }
}

// Of two as large as one another either may go.
TEST_F(ChainEndTest, OtherWellOfTheLargestReachGoesOnDeciding) {
    const AcDbObjectId node = drawing.addWell({1.5, 0, 0}, {.diameter = L"1"});
    const Ids large = {drawing.addWell({500, 0, 0}, {.diameter = L"3"}),
                       drawing.addWell({600, 0, 0}, {.diameter = L"3"})};
    for (const AcDbObjectId& gone : large) {
        EXPECT_EQ(flagBesideNode(node, gone), 1);
    }
}

TEST_F(ChainEndTest, ChainThatComesToAKnownNodeIsToldToWhoAsks) {
    const AcDbObjectId second = drawing.addPipe({-50, 0, 0}, {-20, 0, 0});
    const AcDbObjectId node = drawing.addWell({1.01, 0, 0}, {.diameter = L"2"});
    collect();
    makeNode(node);
    std::vector<tkvlt::ClosedChain> closed;
    search->closedChains = &closed;
    EXPECT_EQ(traceOutOfEnd(second), 0);
    ASSERT_EQ(closed.size(), 1U);
    EXPECT_EQ(closed[0].pipes, (std::vector<int>{pipe(second), pipe(first)}));
    EXPECT_EQ(closed[0].node, 0);
    EXPECT_TRUE(samePoint(closed[0].freeEnd, {0, 0, 0}, 0.0));
}

// The reach is that of any well of the drawing, of whatever system, and not the node's own.
TEST_F(ChainEndTest, LargestWellOfTheDrawingDecidesHowNearAKnownNodeIs) {
    const AcDbObjectId node = drawing.addWell({1.5, 0, 0}, {.diameter = L"1"});
    drawing.addWell({500, 0, 0}, {.diameter = L"3", .system = kStorm});
    collect();
    makeNode(node);
    EXPECT_EQ(traceOutOfEnd(first), 0);
    EXPECT_EQ(search->abortFlag, 1);
}

TEST_F(ChainEndTest, KnownNodeWinsOverAWellAtTheEnd) {
    drawing.addWell({0, 0, 0});
    const AcDbObjectId node = drawing.addWell({0.3, 0, 0});
    collect();
    makeNode(node);
    EXPECT_EQ(traceOutOfEnd(first), 0);
    EXPECT_TRUE(target().isNull());
    EXPECT_EQ(search->abortFlag, 1);
}

TEST_F(ChainEndTest, WithoutNodesOrResultNothingIsKnown) {
    const AcDbObjectId well = drawing.addWell({0.4, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    collect(kSewer, false);
    EXPECT_EQ(traceOutOfEnd(first), 1);
    EXPECT_EQ(target(), well);
    EXPECT_EQ(search->abortFlag, 0);
}

// Snap distance 1 x 0.1 x 4.4 = 0.44.
TEST_F(ChainEndTest, EndsJoinBelowTheSnapDistance) {
    const AcDbObjectId next = drawing.addPipe({0.4399, 0, 0}, {20, 0, 0});
    const AcDbObjectId well = drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, next}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainEndTest, EndsAtTheSnapDistanceDoNotJoin) {
    drawing.addPipe({0.4401, 0, 0}, {20, 0, 0});
    drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 0);
}

// The start of the next pipe stands exactly at the snap distance, to the last bit, then one step of
// rounding nearer.
TEST_F(ChainEndTest, SnapDistanceItselfIsTooFar) {
    const double snap = 1.0 * 0.1 * 2.0 * 1.1 * 2.0;
    const AcDbObjectId far = drawing.addPipe({snap, 0, 0}, {20, 0, 0});
    const AcDbObjectId well = drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 0);
    EXPECT_TRUE(target().isNull());
    drawing.erase(far);
    const AcDbObjectId near = drawing.addPipe({std::nextafter(snap, 0.0), 0, 0}, {20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, near}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainEndTest, SnapDistanceFollowsScaleAndBreakDistance) {
    drawing.addPipe({1.7, 0, 0}, {20, 0, 0});
    drawing.addWell({20, 0, 0});
    drawing.setDwgScale(2.0);
    drawing.setBreakDist(0.2); // 2 x 0.2 x 4.4 = 1.76
    EXPECT_EQ(traceFirst(), 1);
    drawing.setBreakDist(0.19); // 1.672
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainEndTest, JoinedPipeIsLeftByItsOtherEnd) {
    const AcDbObjectId next = drawing.addPipe({20, 0, 0}, {0.1, 0, 0}); // its end joins
    const AcDbObjectId well = drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, next}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainEndTest, PipeOfAnotherSystemNeverContinues) {
    drawing.addPipe({0, 0, 0}, {20, 0, 0}, {.system = kStorm});
    drawing.addWell({20, 0, 0});
    EXPECT_EQ(traceFirst(), 0);
}

// 0.3 to either side: the near end is the start, so the run leaves by the end.
TEST_F(ChainEndTest, EndsEquallyNearTakeTheStart) {
    drawing.setBreakDist(0.2); // 0.88
    drawing.addPipe({0.6, 0, 0.3}, {-0.6, 0, 0.3});
    collect();
    EXPECT_EQ(traceOutOfEnd(first), 0);
    drawing.addWell({0.6, 0, 0.7}, {.diameter = L"0.9"});
    EXPECT_EQ(traceFirst(), 0);
    const AcDbObjectId atEnd = drawing.addWell({-0.6, 0, 0.7}, {.diameter = L"0.9"});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(target(), atEnd);
}

// 18 degrees: a slope of 0.3249.
TEST_F(ChainEndTest, StraightPipesJoinWithinEighteenDegrees) {
    drawing.addPipe({0, 0, 0}, {20, 20 * 0.324, 0});
    drawing.addWell({20, 20 * 0.324, 0});
    EXPECT_EQ(traceFirst(), 1);
}

TEST_F(ChainEndTest, StraightPipesBeyondEighteenDegreesDoNot) {
    drawing.addPipe({0, 0, 0}, {20, 20 * 0.326, 0});
    drawing.addWell({20, 20 * 0.326, 0});
    EXPECT_EQ(traceFirst(), 0);
}

TEST_F(ChainEndTest, AntiparallelPipesJoin) {
    drawing.addPipe({-20, 0.3, 0}, {0, 0.3, 0}); // back beside the first
    drawing.addWell({-20, 0.7, 0});
    EXPECT_EQ(traceFirst(), 1);
}

// A quarter circle from the origin on, whose chord rises by 45 degrees.
TEST_F(ChainEndTest, ArcJoinsAStraightPipeByItsChord) {
    drawing.addArcPipe({0, 0, 0}, {10, 10, 0}, std::tan(kPi / 8.0));
    drawing.addWell({10, 10, 0});
    EXPECT_EQ(traceFirst(), 0);
    const AcDbObjectId flat = drawing.addArcPipe({0, 0, 0}, {20, 5, 0}, 1.0);
    drawing.addWell({20, 5, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, flat}));
}

TEST_F(ChainEndTest, ArcIsContinuedAtAnyAngle) {
    const AcDbObjectId arc = drawing.addArcPipe({100, 0, 0}, {110, 10, 0}, 1.0);
    const AcDbObjectId next = drawing.addPipe({110, 10, 0}, {110, -10, 0});
    const AcDbObjectId well = drawing.addWell({110, -10, 0});
    collect();
    EXPECT_EQ(traceOutOfEnd(arc), 1);
    EXPECT_EQ(chain(), (Ids{arc, next}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainEndTest, FirstFitOfThePoolIsTriedFirst) {
    const AcDbObjectId farther = drawing.addPipe({0.3, 0, 0}, {20, 2, 0});
    drawing.addPipe({0, 0, 0}, {20, -2, 0});
    const AcDbObjectId well = drawing.addWell({20, 2, 0});
    drawing.addWell({20, -2, 0});
    EXPECT_EQ(traceFirst(), 1);
    EXPECT_EQ(chain(), (Ids{first, farther}));
    EXPECT_EQ(target(), well);
}

TEST_F(ChainEndTest, FailedTraceLeavesMarksListAndLengthAsTheyWere) {
    const AcDbObjectId next = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addPipe({20, 0, 0}, {40, 0, 0});
    EXPECT_EQ(traceFirst(), 0);
    EXPECT_EQ(chain(), Ids{first});
    EXPECT_EQ(search->chainLength, 0.0);
    EXPECT_EQ(search->pipeMarks.GetAt(pipe(first)), 1);
    EXPECT_EQ(search->pipeMarks.GetAt(pipe(next)), 0);
    EXPECT_EQ(search->pipeMarks.GetSize(), 3);
}

TEST_F(ChainEndTest, MarkedPipeIsNotEnteredAgain) {
    const AcDbObjectId next = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addWell({20, 0, 0});
    collect();
    search->ResetChain(pipe(first));
    search->pipeMarks.SetAt(pipe(next), 1);
    EXPECT_EQ(search->TraceChain(pipe(first), 0, {-20, 0, 0}), 0);
}

// Two ways on: the first meets a known node, so the second is not tried.
TEST_F(ChainEndTest, RaisedFlagEndsTheTrace) {
    drawing.addPipe({0, 0, 0}, {20, 2, 0});
    drawing.addPipe({0, 0, 0}, {20, -2, 0});
    const AcDbObjectId node = drawing.addWell({20, 2, 0});
    drawing.addWell({20, -2, 0});
    collect();
    makeNode(node);
    EXPECT_EQ(traceOutOfEnd(first), 0);
    EXPECT_EQ(search->abortFlag, 1);
    EXPECT_EQ(chain(), Ids{first});
    EXPECT_EQ(search->chainLength, 0.0);
}

} // namespace module_tests
