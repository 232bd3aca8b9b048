// Scales of the drawing and break distances that no drawing should have: what comes out of each,
// and that something does.

#include "module/trust/BothWays.h"

#include <limits>

namespace module_tests {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

class ExtremeScaleTest : public DrawingTest {
protected:
    /// Searches from one of two wells whose pipe stops `gap` short of either centre.
    int searchShort(double gap, const wchar_t* diameter = L"1") {
        drawing.startAnew();
        wells = {drawing.addWell({0, 0, 0}, {.diameter = diameter}),
                 drawing.addWell({20, 0, 0}, {.diameter = diameter})};
        pipe = drawing.addPipe({gap, 0, 0}, {20 - gap, 0, 0}, {.startElevation = L"2"});
        network = std::make_unique<GravitySearchObject>();
        return searchSewer(*network, wells[0]);
    }

    /// The same over two pipes, the second beginning `gap` behind the first.
    int searchJoint(double gap) {
        drawing.startAnew();
        wells = {drawing.addWell({0, 0, 0}), drawing.addWell({20, 0, 0})};
        drawing.addPipe({0, 0, 0}, {10, 0, 0});
        drawing.addPipe({10 + gap, 0, 0}, {20, 0, 0});
        network = std::make_unique<GravitySearchObject>();
        return searchSewer(*network, wells[0]);
    }

    /// A main of 60 and a branch off its middle, which begins on it; gives the number of segments,
    /// -1 when the search fails.
    int searchBranch() {
        drawing.startAnew();
        const AcDbObjectId main = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
        drawing.addPipe({30, 0, 0}, {30, 40, 0}, {.system = kSupply});
        PressureSegs segs;
        return searchMain(segs, main) == 1 ? static_cast<int>(segs.GetSize()) : -1;
    }

    /// Two mains in a line, the second beginning `gap` behind the first, and a third across the end
    /// of the second, far away; gives the number of segments.
    int searchRow(double gap) {
        drawing.startAnew();
        const AcDbObjectId main = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
        drawing.addPipe({60 + gap, 0, 0}, {90, 0, 0}, {.system = kSupply});
        drawing.addPipe({500, 500, 0}, {500, 600, 0}, {.system = kSupply});
        PressureSegs segs;
        EXPECT_EQ(searchMain(segs, main), 1);
        pipesOfFirst = segs[0].pipeIds.length();
        return static_cast<int>(segs.GetSize());
    }

    /// How many lines there are after breaking: two that cross, or of which the second stops one
    /// unit short of the first.
    int brokenLines(double x) {
        drawing.startAnew();
        AcDbObjectIdArray lines;
        lines.append(drawing.addPipe({0, 0, 0}, {100, 0, 0}));
        lines.append(drawing.addPipe({50, -40, 0}, {50, x, 0}));
        PelBreakLine(lines);
        return lines.length();
    }

    Ids wells;
    AcDbObjectId pipe;
    std::unique_ptr<GravitySearchObject> network;
    int pipesOfFirst = 0;
};

TEST_F(ExtremeScaleTest, WithoutADrawScaleEveryWellReachesEverywhere) {
    drawing.setDrawScale(0.0);
    // A radius is 500 over 0. The far well merges into the root, whose point lies midway then, and
    // the chain that leaves it comes back to it.
    EXPECT_EQ(searchShort(0.5), 0);
    ASSERT_EQ(network->wells.GetSize(), 1);
    EXPECT_EQ(idsOf(network->wells[0].mergedEntities), Ids{wells[1]});
    EXPECT_TRUE(samePoint(network->wells[0].nodePoint, {10, 0, 0}));
    EXPECT_EQ(network->wells[0].nodeRadius, kInfinity);
}

TEST_F(ExtremeScaleTest, AWellWithoutSizeOrScaleMergesAndIsNeverReached) {
    drawing.setDrawScale(0.0);
    // A radius is 0 over 0, and no distance is greater than that, nor less: wells merge, every pipe
    // touches, and no chain ends.
    EXPECT_EQ(searchShort(0.5, L"0"), 0);
    ASSERT_EQ(network->wells.GetSize(), 1);
    EXPECT_EQ(idsOf(network->wells[0].mergedEntities), Ids{wells[1]});
    EXPECT_EQ(network->segs.GetSize(), 0);
}

TEST_F(ExtremeScaleTest, AtATinyDrawScaleEverythingIsOneNode) {
    drawing.setDrawScale(1e-9);
    EXPECT_EQ(searchShort(0.5), 0);
    ASSERT_EQ(network->wells.GetSize(), 1);
    EXPECT_EQ(idsOf(network->wells[0].mergedEntities), Ids{wells[1]});
    // Half of the distance and both radii, 5e11 each.
    EXPECT_NEAR(network->wells[0].nodeRadius, 5e11 + 10, 1.0);
}

TEST_F(ExtremeScaleTest, AtAHugeDrawScaleOnlyThePlaceItselfIsReached) {
    for (const double scale : {1e9, 1e300}) {
        SCOPED_TRACE(scale);
        drawing.setDrawScale(scale);
        EXPECT_EQ(searchShort(0.5), 0) << "the rim of before is far outside now";
        EXPECT_EQ(network->wells.GetSize(), 1);
        EXPECT_EQ(searchShort(0.0), 1);
        EXPECT_EQ(network->wells.GetSize(), 2);
    }
}

TEST_F(ExtremeScaleTest, ADrawScaleBelowZeroReachesNothing) {
    drawing.setDrawScale(-1000.0);
    EXPECT_EQ(searchShort(0.5), 0);
    EXPECT_EQ(searchShort(0.0), 0);
    EXPECT_EQ(network->wells.GetSize(), 1);
}

TEST_F(ExtremeScaleTest, AnInfiniteDrawScaleLeavesNothingButPoints) {
    drawing.setDrawScale(kInfinity);
    // Every reach is 0: the pipe touches the root at its very point, and the far well, which must
    // be nearer than its reach, is not met.
    EXPECT_EQ(searchShort(0.0), 0);
    EXPECT_EQ(network->wells.GetSize(), 1);
}

TEST_F(ExtremeScaleTest, SewersJoinBelowTheJoinDistanceWhateverItIs) {
    struct Case {
        double dwgScale;
        double breakDist;
        int acrossGap; ///< the result over a gap of 0.3
    };
    for (const Case& each :
         {Case{1, 0.1, 1}, Case{1, 0, 0}, Case{0, 0.1, 0}, Case{1e-9, 0.1, 0}, Case{-1, 0.1, 0},
          Case{-1, -0.1, 1}, Case{1, -0.1, 0}, Case{1e9, 0.1, 1}, Case{1e300, 0.1, 1},
          Case{1e300, 1e300, 1}, Case{kNoNumber, 0.1, 0}}) {
        SCOPED_TRACE(std::to_string(each.dwgScale) + " " + std::to_string(each.breakDist));
        drawing.setDwgScale(each.dwgScale);
        drawing.setBreakDist(each.breakDist);
        EXPECT_EQ(searchJoint(0.3), each.acrossGap);
        // Ends in one point lie one on the other, which joins them without any distance.
        EXPECT_EQ(searchJoint(0.0), 1);
    }
}

TEST_F(ExtremeScaleTest, MainsJoinUpToTheirReachWhateverItIs) {
    struct Case {
        double dwgScale;
        double breakDist;
        int touching;  ///< pipes in the first segment when the ends meet in one point
        int acrossGap; ///< the same over a gap of 0.3
        int segs;      ///< over the gap
    };
    // The far main hangs on the first one only where everything is in reach; then there are two
    // children, and none merges.
    for (const Case& each :
         {Case{1, 0.1, 2, 2, 1}, Case{1, 0, 2, 1, 1}, Case{0, 0.1, 2, 1, 1},
          Case{1e-9, 0.1, 2, 1, 1}, Case{-1, 0.1, 1, 1, 1}, Case{1, -0.1, 1, 1, 1},
          Case{-1, -0.1, 2, 2, 1}, Case{1e9, 0.1, 1, 1, 3}, Case{1e300, 0.1, 1, 1, 3},
          Case{1e300, 1e300, 1, 1, 3}, Case{kNoNumber, 0.1, 1, 1, 3}}) {
        SCOPED_TRACE(std::to_string(each.dwgScale) + " " + std::to_string(each.breakDist));
        drawing.setDwgScale(each.dwgScale);
        drawing.setBreakDist(each.breakDist);
        searchRow(0.0);
        EXPECT_EQ(pipesOfFirst, each.touching);
        EXPECT_EQ(searchRow(0.3), each.segs);
        EXPECT_EQ(pipesOfFirst, each.acrossGap);
    }
}

TEST_F(ExtremeScaleTest, MainsAreCutWhereTheCrossingIsNoEnd) {
    // Ten millimetres are this far: everything without a scale and at a tiny one, so nothing is
    // cut.
    for (const double scale : {0.0, 1e-9}) {
        drawing.setDrawScale(scale);
        EXPECT_EQ(searchBranch(), 1) << scale;
    }
    // And next to nothing at a huge one: the halves of the main and the branch.
    for (const double scale : {1000.0, 1e9, 1e300}) {
        drawing.setDrawScale(scale);
        EXPECT_EQ(searchBranch(), 3) << scale;
    }
}

TEST_F(ExtremeScaleTest, WhereNoPlaceCountsAsAnEndCuttingEndsAllTheSame) {
    // Pieces are cut again at their own ends, into pieces without length, whose search points are
    // those of their neighbours: the network closes on itself.
    for (const double scale : {-1000.0, -1e9, -1e-9, kNoNumber, kInfinity}) {
        drawing.setDrawScale(scale);
        EXPECT_EQ(searchBranch(), -1) << scale;
    }
}

TEST_F(ExtremeScaleTest, LinesBreakAcrossAGapUpToTheTolerance) {
    struct Case {
        double dwgScale;
        int crossing;
        int gap;
    };
    // At 1e9 both lines lie within the tolerance of one another with all ends, so they count as one
    // place; below the gap's width only what really crosses is broken.
    for (const Case& each :
         {Case{1, 4, 3}, Case{0.1, 4, 3}, Case{0.05, 4, 2}, Case{1e-9, 4, 2}, Case{0, 4, 2},
          Case{-1, 4, 2}, Case{1e9, 2, 2}, Case{1e300, 2, 2}, Case{kNoNumber, 4, 2}}) {
        drawing.setDwgScale(each.dwgScale);
        EXPECT_EQ(brokenLines(40), each.crossing) << each.dwgScale;
        EXPECT_EQ(brokenLines(-1), each.gap) << each.dwgScale;
    }
}

TEST_F(ExtremeScaleTest, TheBreakDistanceIsNothingToTheBreakingOfLines) {
    for (const double distance : {0.0, -1.0, 1e300, kNoNumber}) {
        drawing.setBreakDist(distance);
        EXPECT_EQ(brokenLines(40), 4) << distance;
        EXPECT_EQ(brokenLines(-1), 3) << distance;
    }
}

TEST_F(ExtremeScaleTest, StretchesAndLoweringFollowTheSameReaches) {
    struct Case {
        double drawScale;
        double gap;
        int result; ///< of the stretch
    };
    for (const Case& each : {Case{1000, 0.5, 1}, Case{0, 0.5, 1}, Case{1e-9, 0.5, 1},
                             Case{1e9, 0.5, 0}, Case{1e9, 0, 1}, Case{1e300, 0, 1},
                             Case{-1000, 0, 0}, Case{kInfinity, 0, 0}, Case{kNoNumber, 0, 0}}) {
        SCOPED_TRACE(each.drawScale);
        drawing.setDrawScale(each.drawScale);
        searchShort(each.gap);
        Seg seg;
        EXPECT_EQ(GetSingleSeg(seg, pipe), each.result);
        EXPECT_EQ(idsOf(seg.gravity.pipeIds), Ids{pipe});
        AcDbObjectIdArray twice;
        twice.append(pipe);
        twice.append(pipe);
        CArray<Seg, Seg&> segs;
        EXPECT_EQ(GetSegsForCollideTest(segs, twice, 1), 1);
        EXPECT_EQ(segs.GetSize(), each.result == 1 ? 1 : 2);
        // Lowered when there is a stretch and the network around it can be built.
        const bool isNetwork = each.drawScale != 0.0 && each.drawScale != 1e-9;
        EXPECT_EQ(LowerHeightForCollideTest(pipe, 0.5), each.result == 1 && isNetwork ? 1 : 0);
        EXPECT_EQ(textOf(pipe, L"起点标高"), each.result == 1 && isNetwork ? L"1.5" : L"2");
    }
}

// Infinity by infinity is no number, and no distance is greater than that.
TEST_F(ExtremeScaleTest, AWellWhoseRadiusIsNoNumberMergesWithTheFirstThatAsks) {
    drawing.setDrawScale(kInfinity);
    const AcDbObjectId root = drawing.addWell({0, 0, 0});
    const AcDbObjectId wide = drawing.addWell({50, 0, 0}, {.diameter = L"1e400"});
    GravitySearchObject network;
    searchSewer(network, root);
    ASSERT_EQ(network.wells.GetSize(), 1);
    EXPECT_EQ(idsOf(network.wells[0].mergedEntities), Ids{wide});
    EXPECT_EQ(network.wells[0].nodePoint.x, 25.0);
}

} // namespace
} // namespace module_tests
