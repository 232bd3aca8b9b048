// Tanks as nodes: their box decides what touches them, and their insertion point is the node.

#include "module/networks/NetworkTest.h"

#include <cmath>

namespace module_tests {

namespace {

/// P4 lies wholly inside the tank and P5 runs across it with both ends outside.
///
///                    C o (12, 20)
///                      P3
///                   +--+--+
///   A o----P1----[10|  T  |14]----P2----o B
///     0             +-----+             40
class TankOfThreePipes : public NetworkTest {
protected:
    TankOfThreePipes() {
        map.well("A", {0, 0});
        map.well("B", {40, 0});
        map.well("C", {12, 20});
        map.tank("T", {10, -2}, {14, 2}, "4000");
        map.pipe("P5", {5, 1.5}, {20, 1.5});
        map.pipe("P4", {10.5, -1}, {13.5, -1});
        map.pipe("P1", {0.5, 0}, {10, 0});
        map.pipe("P2", {14, 0}, {39.5, 0});
        map.pipe("P3", {12, 19.5}, {12, 2});
    }
};

} // namespace

TEST_F(TankOfThreePipes, PipesGoThroughTheTank) {
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}},
                 {"T", {10, -2}, 0.0, 0, {1, 2}},
                 {"B", {40, 0}, 0.5, 1, {}},
                 {"C", {12, 20}, 0.5, 2, {}}});
    // At a tank a run is measured from the pipe's own end.
    expectSegs({{{"P1"}, 0, 1, "A", "T", {0, 0}, {10, -2}, 10.0},
                {{"P2"}, 1, 2, "T", "B", {10, -2}, {40, 0}, 26.0},
                {{"P3"}, 1, 3, "T", "C", {10, -2}, {12, 20}, 18.0}});
}

TEST_F(TankOfThreePipes, TankIsARoot) {
    ASSERT_NE(search("T"), nullptr);
    expectNodes({{"T", {10, -2}, 0.0, -1, {0, 1, 2}},
                 {"A", {0, 0}, 0.5, 0, {}},
                 {"B", {40, 0}, 0.5, 1, {}},
                 {"C", {12, 20}, 0.5, 2, {}}});
}

TEST_F(TankOfThreePipes, TankIsAnEnd) {
    ASSERT_NE(search("C", "T"), nullptr);
    expectPath({1, 0}, {0});
    ASSERT_NE(search("C", "A"), nullptr);
    expectPath({2, 1, 0}, {1, 0});
}

TEST_F(TankOfThreePipes, PickedPipeMayStartAtTheTank) {
    // The tank counts by its insertion point: 12.1 from the pick, B is 18.
    ASSERT_NE(search("P2", "", {22, 0}), nullptr);
    EXPECT_EQ(nameOf(static_cast<GravitySearchObject&>(*found).wells[0].nodeEntity), "T");
    ASSERT_NE(search("P2", "", {26, 0}), nullptr);
    EXPECT_EQ(nameOf(static_cast<GravitySearchObject&>(*found).wells[0].nodeEntity), "B");
}

TEST_F(TankOfThreePipes, PipesInsideAndAcrossTouchNothing) {
    EXPECT_EQ(search("T", "P4"), nullptr);
    EXPECT_EQ(search("T", "P5"), nullptr);
}

/// A tank takes in a well near its insertion point, and its node point moves, but it is still its
/// box that pipes touch. W is 0.4 from (10, -2), where 0.5 + 0 + 0.01 is allowed.
///
///   W o [T 10..14] ----P1----o B
///    9.6                    40
TEST_F(NetworkTest, TankTakesInAWellAtItsInsertionPoint) {
    map.well("B", {40, 0});
    map.well("W", {9.6, -2});
    map.tank("T", {10, -2}, {14, 2});
    map.pipe("P1", {14, 0}, {39.5, 0});
    ASSERT_NE(search("T"), nullptr);
    expectNodes({{"T", {9.8, -2}, 0.45, -1, {0}, {"W"}}, {"B", {40, 0}, 0.5, 0, {}}});
}

/// Without a well in the drawing no walk begins, though the pipe joins two tanks.
TEST_F(NetworkTest, TanksAloneAreNoNetwork) {
    map.tank("T1", {0, 0}, {4, 4});
    map.tank("T2", {20, 0}, {24, 4});
    map.pipe("P1", {4, 2}, {20, 2});
    EXPECT_EQ(search("T1"), nullptr);
}

/// One well anywhere is enough.
TEST_F(NetworkTest, TanksWithAWellSomewhereAreANetwork) {
    map.tank("T1", {0, 0}, {4, 4});
    map.tank("T2", {20, 0}, {24, 4});
    map.pipe("P1", {4, 2}, {20, 2});
    map.well("W", {100, 100});
    ASSERT_NE(search("T1"), nullptr);
    expectNodes({{"T1", {0, 0}, 0.0, -1, {0}}, {"T2", {20, 0}, 0.0, 0, {}}});
    expectSegs({{{"P1"}, 0, 1, "T1", "T2", {0, 0}, {20, 0}, 16.0}});
}

} // namespace module_tests
