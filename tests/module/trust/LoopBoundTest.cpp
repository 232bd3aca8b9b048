// Loops whose end follows from geometry, where rounding or a damaged network takes the geometry
// away: their bounds hold, and are wide enough for what geometry allows.

#include "gravity/GravityNetworkSearch.h"
#include "module/trust/BothWays.h"
#include "utilities/BreakLines.h"

namespace module_tests {
namespace {

using tkvlt::CandidateMode;

class LoopBoundTest : public PressureTest {
protected:
    /// Lines that are all tangents of one parabola, so that any two cross, each pair at a place of
    /// its own: tangents i and j at x = (i + j) step / 2.
    void addTangents(int count, double step) {
        for (int i = 0; i < count; ++i) {
            const double a = i * step;
            const double left = -step;
            const double right = (count + 1) * step;
            const auto height = [&](double x) { return (2 * a * x - a * a) / step; };
            tangents.push_back(drawing.main({left, height(left), 0}, {right, height(right), 0}));
        }
    }

    AcDbObjectIdArray listOf(const Ids& ids) {
        AcDbObjectIdArray list;
        for (const AcDbObjectId& id : ids) {
            list.append(id);
        }
        return list;
    }

    /// Cuts the pipes in both ways, which must come to the same number of pieces, and to no more.
    void expectAtMost(std::size_t pieces, AcDbObjectId picked) {
        const auto plain = prepared(picked, {}, CandidateMode::kPlainScan);
        const auto indexed = prepared(picked, {}, CandidateMode::kIndexed);
        EXPECT_LE(present(plain->pipePool).size(), pieces);
        EXPECT_EQ(present(indexed->pipePool).size(), present(plain->pipePool).size());
    }

    /// A well and pipes, of which everything joins everything, so that there are more ways through
    /// them than could ever be tried. Gives the well.
    AcDbObjectId addPipesThatAllJoin() {
        drawing.setDwgScale(1e9);
        const AcDbObjectId root = drawing.addWell({0, 0, 0});
        for (int i = 0; i < 40; ++i) {
            drawing.addPipe({0.0 + 3 * i, 0.1 * i, 0}, {2.0 + 3 * i, 0.1 * i, 0});
        }
        return root;
    }

    int searchIndexed(GravitySearchObject& network, AcDbObjectId root) {
        AcDbObjectId none;
        AcGePoint3d pick;
        tkvlt::GravityNetworkSearch search(&network, root, none, pick, CandidateMode::kIndexed);
        return search.Run();
    }

    Ids tangents;
};

TEST_F(LoopBoundTest, LinesThatAllCrossComeToAsManyPiecesAsThereCanBe) {
    for (const CandidateMode mode : {CandidateMode::kPlainScan, CandidateMode::kIndexed}) {
        drawing.startAnew();
        tangents.clear();
        addTangents(8, 100.0);
        AcDbObjectIdArray lines = listOf(tangents);
        tkvlt::BreakLines(lines, mode);
        // Seven crossings on each of eight lines make eight pieces of it.
        EXPECT_EQ(lines.length(), 64);
    }
}

TEST_F(LoopBoundTest, MainsThatAllCrossAreCutAtEveryCrossing) {
    addTangents(8, 100.0);
    const auto search = prepared(tangents[0]);
    EXPECT_EQ(present(search->pipePool).size(), 64U);
}

TEST_F(LoopBoundTest, BreakingEndsWhereRoundingFindsEverNewCrossings) {
    // Neighbouring numbers lie 128 apart at 1e18, far more than the 10 that make an end.
    for (const double step : {1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e30, 1e60, 1e76, 1e150}) {
        for (const CandidateMode mode : {CandidateMode::kPlainScan, CandidateMode::kIndexed}) {
            drawing.startAnew();
            tangents.clear();
            addTangents(6, step / 3.0);
            AcDbObjectIdArray lines = listOf(tangents);
            tkvlt::BreakLines(lines, mode);
            EXPECT_GE(lines.length(), 6) << step;
            EXPECT_LE(lines.length(), 36) << step;
        }
    }
}

TEST_F(LoopBoundTest, CuttingEndsWhereRoundingFindsEverNewCrossings) {
    for (const double step : {1e15, 1e18, 1e20, 1e30, 1e60, 1e76, 1e100, 1e150}) {
        SCOPED_TRACE(step);
        drawing.startAnew();
        tangents.clear();
        addTangents(4, step / 3.0);
        // 512 cuts, two for each ordered pair of the four, and the two of the last pair; each makes
        // one pipe more.
        expectAtMost(4 + 512 + 32 + 2, tangents[0]);
    }
}

TEST_F(LoopBoundTest, TwoMainsAcrossOneAnotherAreNotCutWithoutEnd) {
    // Halves that meet, or whole mains where the crossing cannot be reckoned: from 1e77 on, where
    // the fourth power of a length is infinite.
    for (const double far : {1e18, 1e30, 1e76, 1e100, 1e153}) {
        SCOPED_TRACE(far);
        drawing.startAnew();
        const AcDbObjectId main = drawing.main({-far, 0, 0}, {far, 0, 0});
        drawing.main({0, -far, 0}, {0, far, 0});
        expectAtMost(2 + 2, main);
    }
}

TEST_F(LoopBoundTest, ManyWaysThatLeadNowhereEndTheSearch) {
    const AcDbObjectId root = addPipesThatAllJoin();
    GravitySearchObject network;
    EXPECT_EQ(searchIndexed(network, root), 0); // none comes to a second well
    EXPECT_EQ(network.wells.GetSize(), 1);
}

TEST_F(LoopBoundTest, ManyWaysOfWhichOneEndsLeadThere) {
    const AcDbObjectId root = addPipesThatAllJoin();
    drawing.addWell({119, 3.9, 0});
    GravitySearchObject network;
    EXPECT_EQ(searchIndexed(network, root), 1);
    EXPECT_EQ(network.wells.GetSize(), 2);
    EXPECT_EQ(network.segs.GetSize(), 1);
}

TEST_F(LoopBoundTest, APathThatRunsInACircleIsNone) {
    AcDbObjectId root = drawing.addWell({0, 0, 0});
    drawing.addWell({20, 0, 0});
    AcDbObjectId last = drawing.addWell({40, 0, 0});
    drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addPipe({20, 0, 0}, {40, 0, 0});
    GravitySearchObject network;
    ASSERT_EQ(searchSewer(network, root, {}), 1);
    GravitySearchObject* found = &network;
    ASSERT_EQ(FindGravityPath(found, last), 1);
    ASSERT_EQ(intsOf(network.pathWells), (std::vector<int>{2, 1, 0}));
    // What callers may do to the fields: the second well hangs on the third now, and that on it.
    network.segs[0].startWell = 2;
    EXPECT_EQ(FindGravityPath(found, last), 0);
    EXPECT_EQ(intsOf(network.pathWells), (std::vector<int>{2, 1, 0}));
    EXPECT_EQ(intsOf(network.pathSegs), (std::vector<int>{1, 0}));
}

} // namespace
} // namespace module_tests
