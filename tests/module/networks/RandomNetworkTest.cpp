// Crowded random drawings: the two ways of finding candidates give the same results to the last
// bit, and a drawing that is moved or turned gives the same graph.

#include "gravity/GravityNetworkSearch.h"
#include "module/networks/NetworkDump.h"
#include "module/networks/RandomDrawing.h"
#include "module/support/RandomBlocks.h"

#include <gtest/gtest.h>

namespace module_tests {

namespace {

using tkvlt::CandidateMode;
using tkvlt::GravityNetworkSearch;

/// How often a thing was met, so that a test can see that it met it at all.
struct Met {
    int success = 0;
    int cycles = 0;
    int partial = 0; ///< failed with more than a root in the result
    int merges = 0;
    int chains = 0; ///< segments of several pipes
    int tanks = 0;
    int paths = 0;
    int oneSided = 0;
    int twoSided = 0;
};

struct Outcome {
    int result;
    int abortFlag;
    GravitySearchObject network;
};

/// Every other search looks ahead as soon as a chain is taken back once.
void run(Outcome& outcome, CandidateMode mode, AcDbObjectId start, AcDbObjectId end,
         AcGePoint3d pick) {
    GravityNetworkSearch search(&outcome.network, start, end, pick, mode);
    search.takeBacksBeforeOutlook *= start.handle().low() % 2 == 0 ? 0 : 1;
    outcome.result = search.Run();
    outcome.abortFlag = search.abortFlag;
}

void count(const Outcome& outcome, Met& met) {
    met.success += outcome.result;
    met.cycles += outcome.abortFlag;
    met.partial += outcome.result == 0 && outcome.network.segs.GetSize() > 0 ? 1 : 0;
    met.paths += outcome.network.pathSegs.GetSize() > 0 ? 1 : 0;
    for (INT_PTR i = 0; i < outcome.network.wells.GetSize(); ++i) {
        met.merges += outcome.network.wells.GetAt(i).mergedEntities.length();
        met.tanks += outcome.network.wells.GetAt(i).isWell == 0 ? 1 : 0;
    }
    for (INT_PTR i = 0; i < outcome.network.segs.GetSize(); ++i) {
        met.chains += outcome.network.segs.GetAt(i).pipeIds.length() > 1 ? 1 : 0;
    }
}

/// Of each drawing every fourth entity is searched from, another quarter in each drawing.
constexpr std::size_t kStep = 4;

/// A search that has collected a drawing, of which one thing after the other is asked.
class CollectedDrawing {
public:
    explicit CollectedDrawing(CandidateMode mode) : search_(nullptr, none_, none_, origin_, mode) {
        search_.LetDrawingStay();
        search_.CollectEntitiesOnly();
    }

    void runAgain(Outcome& outcome, AcDbObjectId start, AcDbObjectId end, AcGePoint3d pick) {
        search_.takeBacksBeforeOutlook = start.handle().low() % 2 == 0 ? 0 : takeBacks_;
        outcome.result = search_.RunAgain(&outcome.network, start, end, pick);
        outcome.abortFlag = search_.abortFlag;
    }

    int buildSingle(const AcDbObjectId& pipe, GravitySeg& seg) {
        search_.RestorePools(); // what the network before has taken
        return search_.BuildSinglePipeSeg(seg, pipe, kSewer);
    }

private:
    AcDbObjectId none_;
    AcGePoint3d origin_;
    GravityNetworkSearch search_;
    const int takeBacks_ = search_.takeBacksBeforeOutlook;
};

void expectSame(const Outcome& one, const Outcome& other) {
    ASSERT_EQ(one.result, other.result);
    ASSERT_EQ(one.abortFlag, other.abortFlag);
    ASSERT_EQ(dump(one.network), dump(other.network));
}

int buildSingle(CandidateMode mode, const AcDbObjectId& pipe, GravitySeg& seg) {
    AcDbObjectId none;
    AcGePoint3d origin;
    GravityNetworkSearch search(nullptr, none, none, origin, mode);
    search.takeBacksBeforeOutlook *= pipe.handle().low() % 2 == 0 ? 0 : 1;
    search.CollectEntitiesOnly();
    return search.BuildSinglePipeSeg(seg, pipe, kSewer);
}

void compareSingle(CollectedDrawing& collected, const AcDbObjectId& pipe) {
    GravitySeg onCollected;
    GravitySeg anew;
    ASSERT_EQ(collected.buildSingle(pipe, onCollected),
              buildSingle(CandidateMode::kPlainScan, pipe, anew));
    ASSERT_EQ(dump(onCollected), dump(anew));
}

void compareSearches(const std::vector<AcDbObjectId>& ids, std::uint32_t seed, Met& met) {
    // The length mode changes with every drawing, this with every other.
    const bool isPlain = seed / 2 % 2 == 0;
    CollectedDrawing collected(isPlain ? CandidateMode::kPlainScan : CandidateMode::kIndexed);
    for (std::size_t i = seed % kStep; i < ids.size(); i += kStep) {
        SCOPED_TRACE("start " + std::to_string(i));
        const AcDbObjectId end = endFor(ids, i, seed);
        const AcGePoint3d pick(12.0, 12.0, 0.0);
        Outcome plain;
        Outcome indexed;
        Outcome again;
        run(plain, CandidateMode::kPlainScan, ids[i], end, pick);
        run(indexed, CandidateMode::kIndexed, ids[i], end, pick);
        if (i / kStep % 2 == 0) {
            // Every other network is searched right behind the one before.
            ASSERT_NO_FATAL_FAILURE(compareSingle(collected, ids[(i + 1) % ids.size()]));
        }
        collected.runAgain(again, ids[i], end, pick);
        ASSERT_NO_FATAL_FAILURE(expectSame(plain, indexed));
        ASSERT_NO_FATAL_FAILURE(expectSame(plain, again)) << "on what was collected already";
        count(plain, met);
    }
}

void compareSingles(const std::vector<AcDbObjectId>& ids, std::uint32_t seed, Met& met) {
    for (std::size_t i = (seed + 1) % kStep; i < ids.size(); i += kStep) {
        SCOPED_TRACE("pipe " + std::to_string(i));
        GravitySeg plain;
        GravitySeg indexed;
        const int result = buildSingle(CandidateMode::kPlainScan, ids[i], plain);
        ASSERT_EQ(result, buildSingle(CandidateMode::kIndexed, ids[i], indexed));
        ASSERT_EQ(dump(plain), dump(indexed));
        met.twoSided += result == 1 ? 1 : 0;
        met.oneSided += result == 2 ? 1 : 0;
    }
}

} // namespace

class RandomNetworkBlockTest : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomNetworkBlockTest, IndexAndPlainScanGiveTheSameToTheLastBit) {
    Met met;
    DrawingBuilder drawing;
    for (std::uint32_t i = 0; i < kDrawingsInBlock; ++i) {
        const std::uint32_t seed = GetParam() * kDrawingsInBlock + i;
        SCOPED_TRACE("drawing " + std::to_string(seed));
        drawing.startAnew();
        drawing.setLengthMode(static_cast<int>(seed % 2));
        const std::vector<AcDbObjectId> ids = RandomDrawing(seed).draw(drawing);
        compareSearches(ids, seed, met);
        compareSingles(ids, seed, met);
        if (::testing::Test::HasFatalFailure()) {
            return;
        }
    }
    EXPECT_GT(met.success, 400);
    EXPECT_GT(met.cycles, 400);
    EXPECT_GT(met.partial, 400);
    EXPECT_GT(met.merges, 400);
    EXPECT_GT(met.chains, 400);
    EXPECT_GT(met.tanks, 160);
    EXPECT_GT(met.paths, 160);
    EXPECT_GT(met.oneSided, 160);
    EXPECT_GT(met.twoSided, 400);
}

INSTANTIATE_TEST_SUITE_P(Blocks, RandomNetworkBlockTest, ::testing::Range(0U, kBlocks));

/// A pipe from (-1e9, 5) to (1e9, 5), drawn 2e-7 too high for the slanted one that ends at (0, 5).
/// At such coordinates rounding hides up to 4.8e-7, so the two cross, whichever way pipes are
/// found.
TEST(RandomNetworkTest, IndexFindsWhatRoundingOfLargeCoordinatesHides) {
    for (const CandidateMode mode : {CandidateMode::kPlainScan, CandidateMode::kIndexed}) {
        DrawingBuilder drawing;
        const AcDbObjectId start = drawing.addWell({-20, 0, 0});
        drawing.addPipe({-19.6, 0.1, 0}, {0, 5, 0});
        drawing.addPipe({-1e9, 5 + 2e-7, 0}, {1e9, 5 + 2e-7, 0});
        drawing.addWell({1e9, 5 + 2e-7, 0}, {.diameter = L"10"});
        Outcome outcome;
        run(outcome, mode, start, {}, {});
        EXPECT_EQ(outcome.result, 1) << (mode == CandidateMode::kIndexed ? "index" : "plain scan");
    }
}

/// The same in a drawing that lies high: the height is the largest coordinate.
TEST(RandomNetworkTest, IndexFindsWhatRoundingOfLargeHeightsHides) {
    constexpr double height = 1e9;
    for (const CandidateMode mode : {CandidateMode::kPlainScan, CandidateMode::kIndexed}) {
        DrawingBuilder drawing;
        const AcDbObjectId start = drawing.addWell({-20, 0, height});
        drawing.addPipe({-19.6, 0.1, height}, {0, 5, height});
        drawing.addPipe({-60, 5 + 2e-7, height}, {60, 5 + 2e-7, height});
        drawing.addWell({60, 5 + 2e-7, height});
        Outcome outcome;
        run(outcome, mode, start, {}, {});
        EXPECT_EQ(outcome.result, 1) << (mode == CandidateMode::kIndexed ? "index" : "plain scan");
    }
}

namespace {

/// The graphs from every fourth entity of a drawing that is moved.
std::vector<std::string> graphs(DrawingBuilder& drawing, std::uint32_t seed, const Motion& motion,
                                std::vector<double>& lengths) {
    drawing.startAnew();
    const std::vector<AcDbObjectId> ids = RandomDrawing(seed).draw(drawing, motion);
    std::vector<std::string> all;
    for (std::size_t i = seed % kStep; i < ids.size(); i += kStep) {
        Outcome outcome;
        run(outcome, CandidateMode::kIndexed, ids[i], endFor(ids, i, seed),
            motion({12.0, 12.0, 0.0}));
        all.push_back(std::to_string(outcome.result) + " " + dumpGraph(outcome.network));
        for (INT_PTR k = 0; k < outcome.network.segs.GetSize(); ++k) {
            lengths.push_back(outcome.network.segs.GetAt(k).length);
        }
    }
    return all;
}

void expectSameGraphs(const Motion& motion) {
    DrawingBuilder drawing;
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE("drawing " + std::to_string(seed));
        std::vector<double> lengths;
        std::vector<double> movedLengths;
        ASSERT_EQ(graphs(drawing, seed, {}, lengths), graphs(drawing, seed, motion, movedLengths));
        ASSERT_EQ(lengths.size(), movedLengths.size());
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            ASSERT_NEAR(lengths[i], movedLengths[i], 1e-7);
        }
    }
}

} // namespace

TEST(RandomNetworkTest, MovedByWholeNumbersADrawingKeepsItsGraph) {
    expectSameGraphs({.quarterTurns = 0, .shiftX = 1024.0, .shiftY = -333.0});
}

TEST(RandomNetworkTest, MovedToSurveyCoordinatesADrawingKeepsItsGraph) {
    expectSameGraphs({.quarterTurns = 0, .shiftX = 500000.0, .shiftY = 3400000.0});
}

TEST(RandomNetworkTest, TurnedByAQuarterADrawingKeepsItsGraph) {
    expectSameGraphs({.quarterTurns = 1});
}

TEST(RandomNetworkTest, TurnedRoundADrawingKeepsItsGraph) {
    expectSameGraphs({.quarterTurns = 2});
}

} // namespace module_tests
