// Wells that overlap become one node; square wells reach to their corners.

#include "module/networks/NetworkTest.h"

namespace module_tests {

namespace {

/// B2 overlaps B, 0.8 away. Merged, they are a node half way between with radius
/// (0.8 + 0.5 + 0.5) / 2 = 0.9. P2 begins at the rim of B2.
///
///   A o----P1----o B
///     0         30 o B2 ----P2----o C
///                 30.8           60
class MergedPair : public NetworkTest {
protected:
    MergedPair() {
        map.well("B2", {30.8, 0});
        map.well("A", {0, 0});
        map.well("B", {30, 0});
        map.well("C", {60, 0});
        map.pipe("P1", {0.5, 0}, {29.5, 0});
        map.pipe("P2", {31.3, 0}, {59.5, 0});
    }
};

} // namespace

TEST_F(MergedPair, WellReachedFirstTakesTheOtherIn) {
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}},
                 {"B", {30.4, 0}, 0.9, 0, {1}, {"B2"}},
                 {"C", {60, 0}, 0.5, 1, {}}});
}

// The first segment was made before the node took B2 in, the second one afterwards.
TEST_F(MergedPair, SegmentsKeepThePointOfTheirTime) {
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    expectSegs({{{"P1"}, 0, 1, "A", "B", {0, 0}, {30, 0}, 30.0},
                {{"P2"}, 1, 2, "B", "C", {30.4, 0}, {60, 0}, 0.9 + 28.2 + 0.5}});
}

TEST_F(MergedPair, FromTheOtherSideTheOtherWellIsTheNode) {
    ASSERT_NE(search("C"), nullptr);
    expectNodes({{"C", {60, 0}, 0.5, -1, {0}},
                 {"B2", {30.4, 0}, 0.9, 0, {1}, {"B"}},
                 {"A", {0, 0}, 0.5, 1, {}}});
}

TEST_F(MergedPair, RootTakesWellsInToo) {
    ASSERT_NE(search("B"), nullptr);
    expectNodes({{"B", {30.4, 0}, 0.9, -1, {0, 1}, {"B2"}},
                 {"A", {0, 0}, 0.5, 0, {}},
                 {"C", {60, 0}, 0.5, 1, {}}});
}

TEST_F(MergedPair, PathToAMergedWellMakesItTheNode) {
    ASSERT_NE(search("A", "B2"), nullptr);
    expectPath({1, 0}, {0});
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}},
                 {"B2", {30.4, 0}, 0.9, 0, {1}, {"B"}},
                 {"C", {60, 0}, 0.5, 1, {}}});
}

TEST_F(MergedPair, WellMergedIntoTheRootIsNoEnd) {
    EXPECT_EQ(search("B", "B2"), nullptr);
    EXPECT_NE(search("B", "C"), nullptr);
}

/// Three wells in a row, each overlapping the next, in the drawing from the far one to the near
/// one. B takes B2 in and grows to (30.4, 0) with 0.9; B3 stands before B2 in the drawing and is
/// not looked at again, though it would now be in reach: 1.2 from the node, where 1.41 is allowed.
///
///   A o----P1----o B
///     0         30 o B2 30.8
///                    o B3 31.6
TEST_F(NetworkTest, WellPassedOverBeforeTheNodeGrewStaysOut) {
    map.well("B3", {31.6, 0});
    map.well("B2", {30.8, 0});
    map.well("A", {0, 0});
    map.well("B", {30, 0});
    map.pipe("P1", {0.5, 0}, {29.5, 0});
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"B", {30.4, 0}, 0.9, 0, {}, {"B2"}}});
}

/// The same with B3 last in the drawing: 1.2 from the grown node, it is taken in. The node lies
/// half way again, at 31, with radius (1.2 + 0.9 + 0.5) / 2 = 1.3.
TEST_F(NetworkTest, WellBehindTheOneTakenInIsJudgedByTheGrownNode) {
    map.well("B2", {30.8, 0});
    map.well("B3", {31.6, 0});
    map.well("A", {0, 0});
    map.well("B", {30, 0});
    map.pipe("P1", {0.5, 0}, {29.5, 0});
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"B", {31.0, 0}, 1.3, 0, {}, {"B2", "B3"}}});
}

/// A square well of side 1 is reached at its corner: P1 ends 0.7 from B (0.5 x 1.01 x 1.414 is
/// allowed), P2 begins 1.4 from it (2 x 0.5 x 1.414 + 0.01 is).
///
///   A o----P1----  # B  ----P2----o C
///     0       19.3 20  21.4      40
class SquareWell : public NetworkTest {
protected:
    void draw(bool square) {
        map.well("A", {0, 0});
        map.well("B", {20, 0}, {.square = square});
        map.well("C", {40, 0});
        map.pipe("P1", {0.5, 0}, {19.3, 0});
        map.pipe("P2", {21.4, 0}, {39.5, 0});
    }
};

TEST_F(SquareWell, ReachesToItsCorner) {
    draw(true);
    ASSERT_NE(search("A"), nullptr);
    expectNodes(
        {{"A", {0, 0}, 0.5, -1, {0}}, {"B", {20, 0}, 0.5, 0, {1}}, {"C", {40, 0}, 0.5, 1, {}}});
}

TEST_F(SquareWell, RoundWellOfTheSameSizeDoesNot) {
    draw(false);
    EXPECT_EQ(search("A"), nullptr);
}

/// A square well that is taken in counts to its corner, in reach and radius: 1.2 away, where
/// 0.707 + 0.5 + 0.01 is allowed; the node's radius becomes (1.2 + 0.5 + 0.707) / 2.
///
///   A o----P1----o B  # S
///     0         30   31.2
TEST_F(NetworkTest, SquareWellIsTakenInFromItsCorner) {
    map.well("A", {0, 0});
    map.well("B", {30, 0});
    map.well("S", {31.2, 0}, {.square = true});
    map.pipe("P1", {0.5, 0}, {29.5, 0});
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"B", {30.6, 0}, 1.2035, 0, {}, {"S"}}});
}

/// From the square one, a round well at the same distance is out of reach: 0.5 + 0.5 + 0.01.
TEST_F(NetworkTest, SquareNodeTakesInAsIfItWereRound) {
    map.well("A", {0, 0});
    map.well("S", {30, 0}, {.square = true});
    map.well("B", {31.2, 0});
    map.pipe("P1", {0.5, 0}, {29.5, 0});
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"S", {30, 0}, 0.5, 0, {}}});
}

} // namespace module_tests
