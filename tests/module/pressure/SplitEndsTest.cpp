// Cutting always ends, and where it would end by itself the guard against cuts without end changes
// nothing.

#include "module/pressure/LiteralSplit.h"
#include "module/pressure/RandomPressureDrawing.h"

#include <algorithm>

namespace module_tests {

namespace {

constexpr int kLimit = 400;
constexpr std::uint32_t kDrawings = 2500;

class SplitEndsTest : public PressureTest {
protected:
    /// Three arcs of which each crosses both others.
    AcDbObjectId threeArcs() {
        const AcDbObjectId first = drawing.arc({15, 0, 0}, {16, 10, 0}, -0.85);
        drawing.arc({17, 11, 0}, {19, 4, 0}, 0.93);
        drawing.arc({12, 10, 0}, {19, 7, 0}, -1.09);
        return first;
    }
};

struct Met {
    int ended = 0;
    int endless = 0;
    int cuts = 0;
    int mostCuts = 0;
    int arcPieces = 0;
};

void count(const LiteralSplit& literal, const tkvlt::RecordPool<_Pipe>& pool, Met& met) {
    ++met.ended;
    met.cuts += literal.cuts;
    met.mostCuts = std::max(met.mostCuts, literal.cuts);
    for (const _Pipe* pipe : present(pool)) {
        met.arcPieces += pipe->isArc != 0 && pipe->orientationFlag == 0 ? 1 : 0;
    }
}

} // namespace

TEST_F(SplitEndsTest, ThreeArcsThatCrossOneAnotherAreCutWithoutEndByTheStepsAlone) {
    const auto search = collected(threeArcs());
    EXPECT_FALSE(LiteralSplit(search->pipePool).run(20000));
}

TEST_F(SplitEndsTest, ThreeArcsThatCrossOneAnotherAreCutAndThenLeftAlone) {
    const AcDbObjectId first = threeArcs();
    std::vector<std::size_t> sizes;
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        const auto search = prepared(first, {}, mode);
        EXPECT_NE(search->FindPickedPipe(), 0);
        sizes.push_back(present(search->pipePool).size());
        for (const _Pipe* pipe : present(search->pipePool)) {
            EXPECT_EQ(pipe->orientationFlag, 0);
        }
    }
    EXPECT_GT(sizes[0], 6U);
    EXPECT_LT(sizes[0], 500U);
    EXPECT_EQ(sizes[0], sizes[1]);
}

/// No cut is made twice: of one entity no two pieces that stand in the pool have the same ends and
/// the same curve.
TEST_F(SplitEndsTest, SearchOfTheThreeArcsEnds) {
    const AcDbObjectId first = threeArcs();
    search(first, {15, 0, 0});
    EXPECT_EQ(rootSeg, 0);
    EXPECT_GT(count(), 1);
}

TEST_F(SplitEndsTest, LiteralCuttingOfABranchGivesWhatIsWorkedOutByHand) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    const auto search = collected(main);
    LiteralSplit literal(search->pipePool);
    ASSERT_TRUE(literal.run(5));
    EXPECT_EQ(literal.cuts, 1);
    ASSERT_EQ(literal.pool.GetSize(), 3);
    EXPECT_TRUE(samePoint(literal.pool[1].endPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(literal.pool[2].line.startPoint(), {10, 0, 0}));
    EXPECT_FALSE(same(literal.pool, search->pipePool)) << "the uncut pool is another one";
}

TEST_F(SplitEndsTest, WhereTheStepsEndByThemselvesThePoolIsTheirs) {
    Met met;
    for (std::uint32_t seed = 0; seed < kDrawings; ++seed) {
        SCOPED_TRACE("drawing " + std::to_string(seed));
        PressureDrawing own;
        own.setDrawScale(seed % 3 == 0 ? 50.0 : 1000.0);
        const Ids ids =
            RandomPressureDrawing(seed, {seed % 4 == 0 ? 16 : 7, seed % 2 == 0 ? 2 : 4, false})
                .draw(own);
        if (ids.empty()) {
            continue;
        }
        LiteralSplit literal(collected(ids.front())->pipePool);
        const auto cutPool = prepared(ids.front());
        if (!literal.run(kLimit)) {
            ++met.endless;
            continue;
        }
        ASSERT_TRUE(same(literal.pool, cutPool->pipePool));
        ::module_tests::count(literal, cutPool->pipePool, met);
    }
    RecordProperty("ended", met.ended);
    RecordProperty("endless", met.endless);
    RecordProperty("cuts", met.cuts);
    RecordProperty("mostCuts", met.mostCuts);
    RecordProperty("arcPieces", met.arcPieces);
    EXPECT_GT(met.ended, 1500);
    EXPECT_GT(met.cuts, 5000);
    EXPECT_GT(met.arcPieces, 1000);
    EXPECT_GT(met.endless, 0) << "some are cut without end by the steps alone";
}

} // namespace module_tests
