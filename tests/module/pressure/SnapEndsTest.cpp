// Pipe ends move to the centres of the wells that they lie at, in any length mode but 0.

#include "module/pressure/PressureTest.h"

#include <cmath>

namespace module_tests {

namespace {

class SnapEndsTest : public PressureTest {
protected:
    SnapEndsTest() { drawing.setLengthMode(1); }

    /// The only pipe of the drawing afterwards.
    void expectEnds(AcDbObjectId pipe, const AcGePoint3d& start, const AcGePoint3d& end) {
        const auto search = prepared(pipe);
        EXPECT_TRUE(holds(search->pipePool, {{pipe, start, end, 1}}));
        const _Pipe& moved = *present(search->pipePool).at(0);
        EXPECT_TRUE(samePoint(moved.line.startPoint(), start));
        EXPECT_TRUE(samePoint(moved.line.endPoint(), end));
    }
};

} // namespace

TEST_F(SnapEndsTest, EndAtAWellMovesToItsCentreExactly) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {9.5, 0.125, 0});
    drawing.well({10, 0, 0});
    for (const int mode : {1, 2, -1}) {
        drawing.setLengthMode(mode);
        const auto search = prepared(pipe);
        EXPECT_TRUE(samePoint(present(search->pipePool).at(0)->endPoint, {10, 0, 0}, 0)) << mode;
        EXPECT_TRUE(samePoint(present(search->pipePool).at(0)->startPoint, {0, 0, 0}, 0)) << mode;
    }
}

TEST_F(SnapEndsTest, InLengthModeZeroNothingMoves) {
    drawing.setLengthMode(0);
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {9.5, 0.125, 0});
    drawing.well({10, 0, 0});
    expectEnds(pipe, {0, 0, 0}, {9.5, 0.125, 0});
}

TEST_F(SnapEndsTest, StartMovesToo) {
    const AcDbObjectId pipe = drawing.main({0.5, 0, 0}, {10, 0, 0});
    drawing.well({0, 0.125, 0});
    expectEnds(pipe, {0, 0.125, 0}, {10, 0, 0});
}

/// A well of diameter 2 reaches 1 * 1.1.
TEST_F(SnapEndsTest, ReachIsElevenTenthsOfTheRadiusExcluded) {
    const AcDbObjectId pipe = drawing.main({1.0 * 1.1, 0, 0}, {10, 0, 0});
    drawing.well({0, 0, 0}, L"2");
    drawing.well({10 + 1.0999, 0, 0}, L"2");
    expectEnds(pipe, {1.1, 0, 0}, {11.0999, 0, 0});
}

/// Pipes side by side, each a quarter short of its two wells; every third is cut by a branch.
TEST_F(SnapEndsTest, EachOfManyPipesMovesToItsOwnWells) {
    constexpr int pipes = 50;
    std::vector<Piece> expected;
    std::vector<Piece> pieces;
    AcDbObjectId first;
    for (int i = 0; i < pipes; ++i) {
        const double y = 20.0 * i;
        drawing.well({0, y, 0});
        drawing.well({10, y, 0});
        const AcDbObjectId pipe = drawing.main({0.25, y, 0}, {9.75, y, 0});
        first = i == 0 ? pipe : first;
        if (i % 3 != 0) {
            expected.push_back({pipe, {0, y, 0}, {10, y, 0}, 1});
            continue;
        }
        const AcDbObjectId branch = drawing.main({5, y, 0}, {5, y + 5, 0});
        expected.push_back({branch, {5, y, 0}, {5, y + 5, 0}, 1});
        pieces.push_back({pipe, {0, y, 0}, {5, y, 0}, 0});
        pieces.push_back({pipe, {5, y, 0}, {10, y, 0}, 0});
    }
    expected.insert(expected.end(), pieces.begin(), pieces.end());
    EXPECT_TRUE(holds(prepared(first)->pipePool, expected));
}

TEST_F(SnapEndsTest, WellOfAnotherSystemMovesNothing) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {9.5, 0, 0});
    drawing.addWell({10, 0, 0}, {.system = kSewer});
    expectEnds(pipe, {0, 0, 0}, {9.5, 0, 0});
}

TEST_F(SnapEndsTest, WellWithoutADiameterMovesNothing) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.well({10, 1e-9, 0}, nullptr);
    const auto search = prepared(pipe);
    EXPECT_TRUE(samePoint(present(search->pipePool).at(0)->endPoint, {10, 0, 0}, 0));
}

TEST_F(SnapEndsTest, WellInMidSpanMovesNothing) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.well({5, 0.1, 0});
    expectEnds(pipe, {0, 0, 0}, {10, 0, 0});
}

/// The corner of the square well reaches 0.707, its radius times 1.1 only 0.55.
TEST_F(SnapEndsTest, SquareWellCountsByItsRadius) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {9.6, 0.4, 0});
    drawing.addWell({10, 0, 0}, {.system = kSupply, .square = true});
    expectEnds(pipe, {0, 0, 0}, {9.6, 0.4, 0});
}

TEST_F(SnapEndsTest, BothEndsMoveToWellsOfTheirOwnInOnePass) {
    const AcDbObjectId pipe = drawing.main({0.4, 0, 0}, {9.6, 0, 0});
    drawing.well({10, 0, 0});
    drawing.well({0, 0, 0});
    expectEnds(pipe, {0, 0, 0}, {10, 0, 0});
}

TEST_F(SnapEndsTest, PipeWithBothEndsAtOneWellStays) {
    const AcDbObjectId pipe = drawing.main({9, 0, 0}, {11, 0, 0});
    drawing.well({10, 0, 0}, L"2");
    expectEnds(pipe, {9, 0, 0}, {11, 0, 0});
}

/// No well behind that one is looked at any more: the last would move the start.
TEST_F(SnapEndsTest, AfterAWellAtBothEndsNoOtherWellCounts) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {3, 0, 0});
    drawing.well({3.5, 0, 0});     // moves the end
    drawing.well({2, 0, 0}, L"4"); // reaches 2.2: both ends
    drawing.well({-0.25, 0, 0});   // would move the start
    expectEnds(pipe, {0, 0, 0}, {3.5, 0, 0});
}

/// With the end where it was drawn, at 2, the second well would be at the start alone.
TEST_F(SnapEndsTest, LaterWellsAreHeldAgainstTheMovedEnd) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {2, 0, 0});
    drawing.well({1.2, 0, 0}, L"1.5"); // reaches 0.825: the end
    drawing.well({0.5, 0, 0}, L"1.3"); // reaches 0.715: the start, and the moved end
    expectEnds(pipe, {0, 0, 0}, {1.2, 0, 0});
}

/// The moved end comes into reach of a well that the drawn one is far from; it moves once only, so
/// that well does nothing, and the start's well behind it still counts.
TEST_F(SnapEndsTest, EndMovesOnceOnly) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.well({10.5, 0, 0});
    drawing.well({11, 0, 0});
    drawing.well({-0.25, 0, 0});
    expectEnds(pipe, {-0.25, 0, 0}, {10.5, 0, 0});
}

TEST_F(SnapEndsTest, FirstWellInThePoolCountsNotTheNearest) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.well({10.5, 0, 0});
    drawing.well({10.1, 0, 0});
    expectEnds(pipe, {0, 0, 0}, {10.5, 0, 0});
}

namespace {

/// The upper half of the circle about (0, 0) with radius 10; (9.6, -2.8) and (-9.6, -2.8) lie on it
/// asin(0.28) below its ends.
constexpr double kBelow = 0.28379410920832787;

} // namespace

TEST_F(SnapEndsTest, ArcIsLengthenedToAWellBeyondItsEnd) {
    const AcDbObjectId pipe = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    drawing.well({-9.6, -2.8, 0}, L"6"); // 2.83 away, 3.3 allowed
    const auto search = prepared(pipe);
    EXPECT_TRUE(holds(search->pipePool, {{pipe, {10, 0, 0}, {-9.6, -2.8, 0}, 1}}));
    const _Pipe& moved = *present(search->pipePool).at(0);
    EXPECT_TRUE(samePoint(moved.arc.center(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(moved.arc.startPoint(), {10, 0, 0}));
    EXPECT_TRUE(samePoint(moved.arc.endPoint(), {-9.6, -2.8, 0}));
    EXPECT_NEAR(moved.arc.length(), 10.0 * (kPi + kBelow), 1e-9);
    EXPECT_TRUE(samePoint(moved.line.endPoint(), {-10, 0, 0})) << "the chord stays";
}

TEST_F(SnapEndsTest, ArcIsLengthenedToAWellBeforeItsStart) {
    const AcDbObjectId pipe = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    drawing.well({9.6, -2.8, 0}, L"6");
    const auto search = prepared(pipe);
    EXPECT_TRUE(holds(search->pipePool, {{pipe, {9.6, -2.8, 0}, {-10, 0, 0}, 1}}));
    const _Pipe& moved = *present(search->pipePool).at(0);
    EXPECT_TRUE(samePoint(moved.arc.startPoint(), {9.6, -2.8, 0}));
    EXPECT_TRUE(samePoint(moved.arc.endPoint(), {-10, 0, 0}));
    EXPECT_NEAR(moved.arc.length(), 10.0 * (kPi + kBelow), 1e-9);
}

TEST_F(SnapEndsTest, ArcMovesAtBothEnds) {
    const AcDbObjectId pipe = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    drawing.well({9.6, -2.8, 0}, L"6");
    drawing.well({-9.6, -2.8, 0}, L"6");
    const auto search = prepared(pipe);
    EXPECT_TRUE(holds(search->pipePool, {{pipe, {9.6, -2.8, 0}, {-9.6, -2.8, 0}, 1}}));
    EXPECT_NEAR(present(search->pipePool).at(0)->arc.length(), 10.0 * (kPi + 2.0 * kBelow), 1e-9);
}

/// The branch cuts the pipe at (10, 0), and a well there takes all three ends.
TEST_F(SnapEndsTest, PiecesMoveAsWholePipesDoAndStayPieces) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {20, 0, 0});
    const AcDbObjectId branch = drawing.main({10, 0, 0}, {10, 10, 0});
    drawing.well({10.25, 0.125, 0});
    const auto search = prepared(main);
    EXPECT_TRUE(holds(search->pipePool, {{branch, {10.25, 0.125, 0}, {10, 10, 0}, 1},
                                         {main, {0, 0, 0}, {10.25, 0.125, 0}, 0},
                                         {main, {10.25, 0.125, 0}, {20, 0, 0}, 0}}));
    EXPECT_TRUE(samePoint(present(search->pipePool)[1]->line.endPoint(), {10.25, 0.125, 0}));
}

/// A branch at (0, 10) cuts the arc; the second piece runs from there over (-10, 0) round to (10,
/// 0), 15 pi. A well 0.36 from its end at (-10, 0) makes a new arc of it, on the circle through (0,
/// 10),
/// (-10, 0) and (-10.2, -0.3). Its centre is (t - 5, 5 - t), as far from the first as from the
/// second; as far from the third, 50 + 2 t^2 = 5.2^2 + 5.3^2 - 0.2 t + 2 t^2, so t = 25.65. The
/// ends are sqrt(10.2^2 + 10.3^2) apart, and the old end lies between them: 14.59.
TEST_F(SnapEndsTest, PieceOfACutArcGetsASweepOfItsOwn) {
    const AcDbObjectId arc = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    const AcDbObjectId branch = drawing.main({0, 10, 0}, {0, 20, 0});
    drawing.well({-10.2, -0.3, 0});
    const double radius = std::sqrt(50.0 + 2.0 * 25.65 * 25.65);
    const double chord = std::sqrt(10.2 * 10.2 + 10.3 * 10.3);
    const auto search = prepared(arc);
    ASSERT_TRUE(holds(search->pipePool, {{branch, {0, 10, 0}, {0, 20, 0}, 1},
                                         {arc, {10, 0, 0}, {0, 10, 0}, 0},
                                         {arc, {0, 10, 0}, {-10.2, -0.3, 0}, 0}}));
    const AcGeCircArc3d& moved = present(search->pipePool)[2]->arc;
    EXPECT_NEAR(moved.length(), 2.0 * radius * std::asin(chord / 2.0 / radius), 1e-8);
    EXPECT_NEAR(moved.length(), 14.59, 0.005);
    EXPECT_TRUE(samePoint(moved.center(), {20.65, -20.65, 0}, 1e-8));
    EXPECT_TRUE(samePoint(moved.endPoint(), {-10.2, -0.3, 0}));
    EXPECT_NEAR(present(search->pipePool)[1]->arc.length(), 15.0 * kPi, 1e-9) << "the other stays";
}

/// The old end and the new one are one point, through which no new arc can be made.
TEST_F(SnapEndsTest, ArcWithAWellExactlyAtItsEndStaysAsItWas) {
    const AcDbObjectId pipe = drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0);
    drawing.well({-10, 0, 0});
    drawing.well({10, 0, 0});
    const auto search = prepared(pipe);
    EXPECT_TRUE(holds(search->pipePool, {{pipe, {10, 0, 0}, {-10, 0, 0}, 1}}));
    const AcGeCircArc3d& arc = present(search->pipePool).at(0)->arc;
    EXPECT_TRUE(samePoint(arc.center(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(arc.startPoint(), {10, 0, 0}));
    EXPECT_TRUE(samePoint(arc.endPoint(), {-10, 0, 0}));
    EXPECT_NEAR(arc.length(), 10.0 * kPi, 1e-9);
    EXPECT_NEAR(arc.distanceTo({0, 10, 0}), 0.0, 1e-9) << "the upper half still";
}

/// A well whose position is not a number is near nothing; it takes no other well's place. The first
/// of twenty, it would stand first in any order of positions too.
TEST_F(SnapEndsTest, WellWithoutAPositionHidesNoOther) {
    drawing.well({std::nan(""), 0, 0});
    Ids ids;
    for (int i = 1; i <= 20; ++i) {
        drawing.well({10.0 * i, 0, 0});
        ids.push_back(drawing.main({10.0 * i + 0.25, 0, 0}, {10.0 * i + 5.0, 5, 0}));
    }
    for (const Mode mode : {Mode::kPlainScan, Mode::kIndexed}) {
        SCOPED_TRACE(mode == Mode::kIndexed ? "index" : "plain scan");
        const auto search = prepared(ids[0], {}, mode);
        const std::vector<const _Pipe*> pool = present(search->pipePool);
        ASSERT_EQ(pool.size(), 20U);
        for (int i = 1; i <= 20; ++i) {
            EXPECT_EQ(pool[static_cast<std::size_t>(i) - 1]->startPoint.x, 10.0 * i) << i;
        }
    }
}

/// Pipes that end 2 and 2.15 from the centre of a well of diameter 4: at the centre they join;
/// where they were drawn, 4.03 apart with the well between them, they do not.
TEST_F(SnapEndsTest, PipesJoinAtTheCentreThatDoNotJoinAcrossTheWell) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {8, 0, 0});
    drawing.main({11.9, 1, 0}, {20, 1, 0});
    drawing.well({10, 0, 0}, L"4");
    for (const int mode : {1, 2}) {
        drawing.setLengthMode(mode);
        ASSERT_EQ(search(root, {0, 0, 0}), 1);
        ASSERT_EQ(count(), 2) << mode;
        EXPECT_TRUE(samePoint(seg(1).GetBeginPoint(), {10, 0, 0}));
    }
    drawing.setLengthMode(0);
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(samePoint(seg(0).GetSearchPoint(), {8, 0, 0}));
}

} // namespace module_tests
