// Crowded random drawings: the two ways of finding candidates give the same results to the last
// bit.

#include "module/pressure/PressureDump.h"
#include "module/pressure/RandomPressureDrawing.h"
#include "module/support/RandomBlocks.h"

#include <algorithm>

namespace module_tests {

namespace {

/// Of so many drawings one is as crowded as cutting by plain scan allows, with arcs that cross.
constexpr std::uint32_t kCrowdedIn = 50;

/// How often a thing was met, so that a test can see that it met it at all.
struct Met {
    int open = 0;
    int closed = 0;
    int segs = 0;
    int merged = 0;
    int pieces = 0;
    int arcs = 0;
    int fittings = 0;
};

struct Outcome {
    int result = 0;
    int rootSeg = -7;
    PressureSegs segs;
    int pipesLeft = 0;
    int wellsLeft = 0;
};

template<class Record>
int presentIn(const tkvlt::RecordPool<Record>& pool) {
    return static_cast<int>(tkvlt::AllPresent(pool).size());
}

void run(Outcome& outcome, tkvlt::CandidateMode mode, AcDbObjectId picked, const AcGePoint3d& at) {
    tkvlt::PressureNetworkSearch search(outcome.segs, picked, at, outcome.rootSeg, mode);
    outcome.result = search.Run();
    outcome.pipesLeft = presentIn(search.pipePool);
    outcome.wellsLeft = presentIn(search.wellPool);
}

void count(Outcome& outcome, Met& met) {
    met.open += outcome.result;
    met.closed += 1 - outcome.result;
    for (INT_PTR i = 0; i < outcome.segs.GetSize(); ++i) {
        PressureSeg& seg = outcome.segs[i];
        ++met.segs;
        met.merged += seg.pipeIds.length() > 1 ? 1 : 0;
        met.pieces += seg.orientationFlags[0] == 0 ? 1 : 0;
        met.arcs += seg.isArc;
        met.fittings += seg.meterIds.length() + seg.valveIds.length();
    }
}

/// Searches from every other pipe of the drawing, `starts` at most, with another pick for each.
void compareSearches(const Ids& ids, std::uint32_t seed, std::size_t starts, Met& met) {
    for (std::size_t i = 0; i < std::min(ids.size(), 2 * starts); i += 2) {
        SCOPED_TRACE("start " + std::to_string(i));
        const AcGePoint3d at((seed * 7 + i * 3) % 17, (seed * 5 + i * 11) % 17, 0.0);
        Outcome plain;
        Outcome indexed;
        run(plain, tkvlt::CandidateMode::kPlainScan, ids[i], at);
        run(indexed, tkvlt::CandidateMode::kIndexed, ids[i], at);
        ASSERT_EQ(plain.result, indexed.result);
        ASSERT_EQ(plain.rootSeg, indexed.rootSeg);
        ASSERT_EQ(plain.pipesLeft, indexed.pipesLeft);
        ASSERT_EQ(plain.wellsLeft, indexed.wellsLeft);
        ASSERT_EQ(dump(plain.segs), dump(indexed.segs));
        count(plain, met);
    }
}

class RandomPressureTest : public PressureTest {
protected:
    /// Whether the first pipe drawn cuts the second, for each way of finding candidates.
    void expectBranchConnects(const AcGePoint3d& from, const AcGePoint3d& joint,
                              const AcGePoint3d& left, const AcGePoint3d& right) {
        for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
            PressureDrawing own;
            const AcDbObjectId branch = own.main(from, joint);
            own.main(left, right);
            EXPECT_EQ(search(branch, from, mode), 1);
            EXPECT_EQ(count(), 3) << (mode == Mode::kIndexed ? "index" : "plain scan");
        }
    }
};

} // namespace

class RandomPressureBlockTest : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomPressureBlockTest, IndexAndPlainScanGiveTheSameToTheLastBit) {
    Met met;
    PressureDrawing own;
    for (std::uint32_t i = 0; i < kDrawingsInBlock && !HasFatalFailure(); ++i) {
        const std::uint32_t seed = GetParam() * kDrawingsInBlock + i;
        SCOPED_TRACE("drawing " + std::to_string(seed));
        own.startAnew();
        own.setLengthMode(static_cast<int>(seed % 3));
        own.setDrawScale(seed % 5 == 0 ? 500.0 : 1000.0);
        own.setBreakDist(seed % 7 == 0 ? 0.25 : 0.1);
        const bool crowded = i % kCrowdedIn == 0;
        // Two arcs that cross can cut one another very often, so they are few.
        const bool twoArcs = i == 0;
        const Ids ids = RandomPressureDrawing(
                            seed, {crowded ? 20 : 8, seed % 3 == 0 ? 3 : 8, true, twoArcs ? 2 : 1})
                            .draw(own);
        compareSearches(ids, seed, !twoArcs && seed % 4 == 0 ? 2 : 1, met);
    }
    EXPECT_GT(met.open, 150);
    EXPECT_GT(met.closed, 60);
    EXPECT_GT(met.segs, 1200);
    EXPECT_GT(met.merged, 50);
    EXPECT_GT(met.pieces, 300);
    EXPECT_GT(met.arcs, 100);
    EXPECT_GT(met.fittings, 120);
}

INSTANTIATE_TEST_SUITE_P(Blocks, RandomPressureBlockTest, ::testing::Range(0U, kBlocks));

/// A pipe from (-1e9, 5) to (1e9, 5), drawn 2e-7 too high for the branch that ends at (0, 5). At
/// such coordinates rounding hides up to 4.8e-7, so the two touch, whichever way pipes are found.
TEST_F(RandomPressureTest, IndexFindsWhatRoundingOfLargeCoordinatesHides) {
    expectBranchConnects({0, -20, 0}, {0, 5, 0}, {-1e9, 5 + 2e-7, 0}, {1e9, 5 + 2e-7, 0});
}

/// The same in a drawing that lies high: the height is the largest coordinate.
TEST_F(RandomPressureTest, IndexFindsWhatRoundingOfLargeHeightsHides) {
    expectBranchConnects({0, -20, 1e9}, {0, 5, 1e9}, {-60, 5 + 2e-7, 1e9}, {60, 5 + 2e-7, 1e9});
}

} // namespace module_tests
