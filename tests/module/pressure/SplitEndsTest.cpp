// Cutting always ends. Where the steps end by themselves the pool is theirs; where they would go on
// for ever, no cut is made twice.

#include "module/pressure/LiteralSplit.h"
#include "module/pressure/PressureDump.h"
#include "module/pressure/PressureTest.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <random>

namespace module_tests {

namespace {

constexpr double kPi = std::numbers::pi;

class SplitEndsTest : public PressureTest {
protected:
    /// Three arcs of which each crosses both others.
    Ids threeArcs() {
        return {drawing.arc({15, 0, 0}, {16, 10, 0}, -0.85),
                drawing.arc({17, 11, 0}, {19, 4, 0}, 0.93),
                drawing.arc({12, 10, 0}, {19, 7, 0}, -1.09)};
    }

    /// With the radius 100, above the origin.
    AcDbObjectId halfCircle() { return drawing.arc({100, 0, 0}, {-100, 0, 0}, 1.0); }
    /// Runs outward from the half circle, this part of the way round it.
    void addBranch(double part) {
        const AcGeVector3d out(std::cos(part * kPi), std::sin(part * kPi), 0);
        drawing.main(AcGePoint3d() + out * 100, AcGePoint3d() + out * 150);
    }
};

/// The pieces of these entities, in pool order.
tkvlt::RecordPool<_Pipe> onlyOf(const tkvlt::RecordPool<_Pipe>& pool, const Ids& ids) {
    tkvlt::RecordPool<_Pipe> chosen;
    for (const _Pipe* pipe : present(pool)) {
        if (std::find(ids.begin(), ids.end(), pipe->id) != ids.end()) {
            chosen.Add(*pipe);
        }
    }
    return chosen;
}

bool areOneCut(const LiteralSplit::Cut& a, const LiteralSplit::Cut& b) {
    constexpr double apart = 0.01; // ten millimetres
    return a.id == b.id && a.start.distanceTo(b.start) < apart && a.end.distanceTo(b.end) < apart &&
           a.point.distanceTo(b.point) < apart;
}

void expectNoneTwice(const std::vector<LiteralSplit::Cut>& cuts) {
    EXPECT_GT(cuts.size(), 3U);
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(areOneCut(cuts[i], cuts[j])) << i << " and " << j;
        }
    }
}

/// Pieces of more than one cut, with both ends on the circle of `arc` and apart from one another.
void expectPiecesOf(const AcGeCircArc3d& arc, const tkvlt::RecordPool<_Pipe>& pieces) {
    EXPECT_GT(pieces.Size(), 2);
    for (const _Pipe* piece : present(pieces)) {
        EXPECT_EQ(piece->orientationFlag, 0);
        EXPECT_NEAR(arc.center().distanceTo(piece->startPoint), arc.radius(), 1e-6);
        EXPECT_NEAR(arc.center().distanceTo(piece->endPoint), arc.radius(), 1e-6);
    }
}

/// A small drawing made of a seed: one or two arcs and two to four straight pipes, anywhere. No two
/// ends, distances or angles in it are equal but by accident.
class LooseDrawing {
public:
    explicit LooseDrawing(std::uint32_t seed) : random_(seed) {}

    AcDbObjectId draw(PressureDrawing& drawing) {
        const int arcs = 1 + static_cast<int>(upTo(2.0));
        const int lines = 2 + static_cast<int>(upTo(3.0));
        AcDbObjectId first;
        for (int i = 0; i < arcs; ++i) {
            const AcGePoint3d from = anywhere();
            const double bulge = (upTo(2.0) < 1.0 ? -1.0 : 1.0) * (0.3 + upTo(0.9));
            first = drawing.arc(from, anywhere(), bulge);
        }
        for (int i = 0; i < lines; ++i) {
            const AcGePoint3d from = anywhere();
            drawing.main(from, anywhere());
        }
        return first;
    }

private:
    /// From 0 to below `bound`; the generator alone decides, which all machines have alike.
    double upTo(double bound) { return bound * (random_() / 4294967296.0); }
    AcGePoint3d anywhere() {
        const double x = upTo(16.0);
        return {x, upTo(16.0), 0.0};
    }

    std::mt19937 random_;
};

} // namespace

TEST_F(SplitEndsTest, LiteralCuttingOfABranchGivesWhatIsWorkedOutByHand) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    const auto search = collected(main);
    LiteralSplit literal(search->pipePool);
    ASSERT_TRUE(literal.run(5));
    ASSERT_EQ(literal.made.size(), 1U);
    EXPECT_TRUE(samePoint(literal.made[0].point, {10, 0, 0}));
    ASSERT_EQ(literal.pool.GetSize(), 3);
    EXPECT_TRUE(samePoint(literal.pool[1].endPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(literal.pool[2].line.startPoint(), {10, 0, 0}));
    EXPECT_FALSE(same(literal.pool, search->pipePool)) << "the uncut pool is another one";
}

TEST_F(SplitEndsTest, WhereTheStepsEndByThemselvesThePoolIsTheirs) {
    constexpr std::uint32_t drawings = 300;
    constexpr int limit = 60;
    int ended = 0;
    int cutOften = 0;
    int arcPieces = 0;
    for (std::uint32_t seed = 0; seed < drawings; ++seed) {
        SCOPED_TRACE("drawing " + std::to_string(seed));
        PressureDrawing own;
        const AcDbObjectId first = LooseDrawing(seed).draw(own);
        LiteralSplit literal(collected(first)->pipePool);
        if (!literal.run(limit)) {
            continue;
        }
        ++ended;
        cutOften += literal.made.size() > 2 ? 1 : 0;
        for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
            const auto cut = prepared(first, {}, mode);
            ASSERT_TRUE(same(literal.pool, cut->pipePool));
            for (const _Pipe* pipe : present(cut->pipePool)) {
                arcPieces += pipe->isArc != 0 && pipe->orientationFlag == 0 ? 1 : 0;
            }
        }
    }
    RecordProperty("ended", ended);
    RecordProperty("cutOften", cutOften);
    RecordProperty("arcPieces", arcPieces);
    EXPECT_GT(ended, 200);
    EXPECT_GT(cutOften, 50);
    EXPECT_GT(arcPieces, 200);
}

/// The half circle of `CutOfAPieceWithTheSameEndsIsNotRepeated` a hundred and ten times, side
/// by side. In each five cuts are of arcs, one of these made twice, and one of the lower pipe. All
/// of them, 550 of arcs, are more than a small drawing needs; but they end by themselves, and so
/// none is left out.
TEST_F(SplitEndsTest, InALargeDrawingCutsAreRepeatedAsInASmallOne) {
    AcDbObjectId arc;
    constexpr int circles = 110;
    for (int i = 0; i < circles; ++i) {
        const double x = 50.0 * i;
        arc = drawing.arc({x + 10, 0, 0}, {x - 10, 0, 0}, 1.0);
        drawing.main({x, -12, 0}, {x, -8, 0});
        drawing.main({x, 10, 0}, {x, 20, 0});
    }
    const auto drawn = collected(arc);
    LiteralSplit literal(drawn->pipePool);
    ASSERT_TRUE(literal.run(2000));
    EXPECT_EQ(literal.made.size(), 6U * circles);
    LiteralSplit unrepeated(drawn->pipePool);
    ASSERT_TRUE(unrepeated.runWithoutRepeats(2000));
    EXPECT_EQ(unrepeated.made.size(), 5U * circles);
    EXPECT_TRUE(same(literal.pool, prepared(arc)->pipePool));
}

/// Of all orders in which thirteen branches can be drawn, this is one that makes many cuts.
TEST_F(SplitEndsTest, AnArcThatThirteenBranchesMeetIsCutAsOftenAsTheStepsSay) {
    const AcDbObjectId arc = halfCircle();
    for (const int place : {7, 9, 3, 11, 6, 12, 5, 13, 10, 2, 4, 1, 8}) {
        addBranch(place / 14.0);
    }
    LiteralSplit literal(collected(arc)->pipePool);
    ASSERT_TRUE(literal.run(5000));
    EXPECT_GT(literal.made.size(), 1600U);
    EXPECT_TRUE(same(literal.pool, prepared(arc, {}, Mode::kIndexed)->pipePool));
}

/// So many branches meet an arc that the cutting of it is given up. A main with two others across
/// it lies elsewhere.
TEST_F(SplitEndsTest, WhereArcsAreCutNoMoreOtherPipesAre) {
    constexpr int branches = 46;
    halfCircle();
    std::vector<int> places(branches);
    std::iota(places.begin(), places.end(), 1);
    std::mt19937 random(1);
    for (int left = branches; left > 0; --left) {
        const auto chosen = random() % static_cast<unsigned>(left);
        addBranch(places[chosen] / (branches + 1.0));
        places.erase(places.begin() + static_cast<int>(chosen));
    }
    const AcDbObjectId main = drawing.main({1000, 0, 0}, {1060, 0, 0});
    const AcDbObjectId across = drawing.main({1020, -20, 0}, {1020, 20, 0});
    drawing.main({1040, -20, 0}, {1040, 20, 0});
    const auto search = prepared(main, {}, Mode::kIndexed);
    EXPECT_EQ(onlyOf(search->pipePool, {main}).Size(), 3);
    EXPECT_EQ(onlyOf(search->pipePool, {across}).Size(), 2);
}

TEST_F(SplitEndsTest, ThreeArcsThatCrossOneAnotherAreCutWithoutEndByTheStepsAlone) {
    const auto search = collected(threeArcs().front());
    EXPECT_FALSE(LiteralSplit(search->pipePool).run(20000));
}

/// What is left is that of the same steps without the repeated cuts.
TEST_F(SplitEndsTest, ThreeArcsThatCrossOneAnotherAreCutNowhereTwice) {
    const Ids ids = threeArcs();
    const auto drawn = collected(ids[0]);
    LiteralSplit literal(drawn->pipePool);
    ASSERT_TRUE(literal.runWithoutRepeats(2000));
    expectNoneTwice(literal.made);
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        const auto search = prepared(ids[0], {}, mode);
        EXPECT_TRUE(same(literal.pool, search->pipePool));
        EXPECT_NE(search->FindPickedPipe(), 0);
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const AcGeCircArc3d& arc = drawn->pipePool[static_cast<int>(i)].arc;
            expectPiecesOf(arc, onlyOf(search->pipePool, {ids[i]}));
        }
    }
}

/// The two pipes cross before the arcs have their turn, and again once the cutting has started
/// anew.
TEST_F(SplitEndsTest, CutsBeforeTheCuttingStartsAgainAreNotTold) {
    const AcDbObjectId level = drawing.main({1000, 0, 0}, {1060, 0, 0});
    const AcDbObjectId upright = drawing.main({1020, -20, 0}, {1020, 20, 0});
    threeArcs();
    const auto search = collected(level);
    std::vector<tkvlt::PipeCut> cuts;
    search->cuts = &cuts;
    ASSERT_EQ(search->PreparePipes(), 1);
    EXPECT_GT(cuts.size(), 3U);
    std::vector<AcGePoint3d> crossings;
    for (const tkvlt::PipeCut& cut : cuts) {
        if (cut.first == level || cut.first == upright) {
            EXPECT_EQ(cut.second, cut.first == level ? upright : level);
            crossings.push_back(cut.point);
        }
    }
    ASSERT_EQ(crossings.size(), 1U);
    EXPECT_TRUE(crossings.front().isEqualTo({1020, 0, 0}));
}

TEST_F(SplitEndsTest, SearchOfTheThreeArcsEndsAlikeEachTime) {
    const AcDbObjectId first = threeArcs().front();
    const int result = search(first, {15, 0, 0}, Mode::kIndexed);
    EXPECT_EQ(rootSeg, 0);
    EXPECT_GT(count(), 1);
    const std::string found = dump(segs);
    EXPECT_EQ(search(first, {15, 0, 0}, Mode::kIndexed), result);
    EXPECT_EQ(dump(segs), found);
}

/// The half circle about (1000, 0), a branch at its top and a pipe across its undrawn lower half,
/// in a drawing that would be cut without end elsewhere. The cuts, with the sweep of each piece's
/// arc in degrees counted from the right:
///   the arc by the branch    A right-top 0 to -270       B top-left 90 to 360
///   A by the lower pipe      C right-bottom 0 to 270     D bottom-top 270 to 0
///   the lower pipe by A
///   C by the branch          E right-top 0 to -270       F top-bottom 90 to 360
///   B by the lower pipe      G top-bottom 90 to -90      H bottom-left 270 to 450
/// The lower pipe would cut E at the bottom, as it cut A, which had the same ends: that is left
/// out.
TEST_F(SplitEndsTest, CutOfAPieceWithTheSameEndsIsNotRepeated) {
    const AcDbObjectId arc = drawing.arc({1010, 0, 0}, {990, 0, 0}, 1.0);
    const AcDbObjectId below = drawing.main({1000, -12, 0}, {1000, -8, 0});
    const AcDbObjectId branch = drawing.main({1000, 10, 0}, {1000, 20, 0});
    threeArcs();
    EXPECT_TRUE(holds(onlyOf(prepared(arc)->pipePool, {arc, below, branch}),
                      {{branch, {1000, 10, 0}, {1000, 20, 0}, 1},
                       {arc, {1000, -10, 0}, {1000, 10, 0}, 0},
                       {below, {1000, -12, 0}, {1000, -10, 0}, 0},
                       {below, {1000, -10, 0}, {1000, -8, 0}, 0},
                       {arc, {1010, 0, 0}, {1000, 10, 0}, 0},
                       {arc, {1000, 10, 0}, {1000, -10, 0}, 0},
                       {arc, {1000, 10, 0}, {1000, -10, 0}, 0},
                       {arc, {1000, -10, 0}, {990, 0, 0}, 0}}));
}

/// No distance is below a negative tolerance, so by the steps alone even a meeting of ends would be
/// cut, over and over.
TEST_F(SplitEndsTest, CuttingAtANegativeDrawScaleEnds) {
    drawing.setDrawScale(-1000.0);
    const AcDbObjectId level = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId upright = drawing.main({5, -5, 0}, {5, 5, 0});
    LiteralSplit literal(collected(level)->pipePool);
    EXPECT_FALSE(literal.run(1000));
    const auto search = prepared(level);
    EXPECT_NE(search->FindPickedPipe(), 0);
    const tkvlt::RecordPool<_Pipe> ofLevel = onlyOf(search->pipePool, {level});
    EXPECT_GE(ofLevel.Size(), 2);
    for (const _Pipe* piece : present(ofLevel)) {
        EXPECT_EQ(piece->startPoint.y, 0.0);
        EXPECT_EQ(piece->endPoint.y, 0.0);
    }
    const tkvlt::RecordPool<_Pipe> ofUpright = onlyOf(search->pipePool, {upright});
    EXPECT_GE(ofUpright.Size(), 2);
    for (const _Pipe* piece : present(ofUpright)) {
        EXPECT_EQ(piece->startPoint.x, 5.0);
        EXPECT_EQ(piece->endPoint.x, 5.0);
    }
}

} // namespace module_tests
