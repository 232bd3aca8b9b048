// A network must be a tree: a ring that closes on a node fails the whole search.

#include "module/networks/NetworkTest.h"

namespace module_tests {

/// A ring of three wells with a branch to D.
///
///   D o---P4---A o-----P1-----o B (40, 0)
///    -20       0  \           |
///                  P3         P2
///                    \        |
///                     `-------o C (40, -30)
TEST_F(NetworkTest, RingFailsTheSearchFromEveryEntity) {
    map.well("A", {0, 0});
    map.well("B", {40, 0});
    map.well("C", {40, -30});
    map.well("D", {-20, 0});
    map.pipe("P4", {-0.5, 0}, {-19.5, 0});
    map.pipe("P1", {0.5, 0}, {39.5, 0});
    map.pipe("P2", {40, -0.5}, {40, -29.5});
    map.pipe("P3", {39.6, -29.7}, {0.4, -0.3});
    for (const char* start : {"A", "B", "C", "D", "P1", "P2", "P3", "P4"}) {
        SCOPED_TRACE(start);
        EXPECT_EQ(search(start), nullptr);
    }
}

/// Two pipes side by side between the same wells are a ring too.
TEST_F(NetworkTest, TwoPipesBetweenTwoWellsFailTheSearch) {
    map.well("A", {0, 0});
    map.well("B", {40, 0});
    map.pipe("P1", {0.4, 0.2}, {39.6, 0.2});
    map.pipe("P2", {0.4, -0.2}, {39.6, -0.2});
    EXPECT_EQ(search("A"), nullptr);
    EXPECT_EQ(search("P2"), nullptr);
}

/// The largest reach among the drawing's wells decides whether a run comes near a known node: P3
/// passes nowhere near a target and ends 2 from A, within the 2.02 of the big well far away.
///
///   A o----P1----o B
///     0         40 `--P3-- (0, 2)         W o (500, 0), 4 across
TEST_F(NetworkTest, DeadEndNearAKnownNodeFailsTheSearch) {
    map.well("A", {0, 0});
    map.well("B", {40, 0});
    map.pipe("P1", {0.5, 0}, {39.5, 0});
    map.pipe("P3", {39.8, 0.3}, {0, 2});
    EXPECT_NE(search("A"), nullptr);
    map.well("W", {500, 0}, {.diameter = "4"});
    EXPECT_EQ(search("A"), nullptr);
}

/// A ring through the tank T. P3 ends at W, which T has merged away: by then T's node has moved to
/// (9.8, -2), 0.7 from P3's end, and W is no target any more. T touches pipes with its box alone,
/// and P3 ends outside. So P3 is a dead end for C and nothing to T, and what is left is a tree.
///
///   W o [T 10..14]------P1------o B (40, 0)
///    9.6 \                      |
///          `---P3---------.     P2
///                           `---o C (40, -30)
class RingThroughATank : public NetworkTest {
protected:
    void draw(Place well, Place pipeEnd) {
        map.well("B", {40, 0});
        map.well("C", {40, -30});
        map.well("W", well);
        map.tank("T", {10, -2}, {14, 2});
        map.pipe("P1", {14, 0}, {39.5, 0});
        map.pipe("P2", {40, -0.5}, {40, -29.5});
        map.pipe("P3", {39.5, -30}, pipeEnd);
    }
};

TEST_F(RingThroughATank, ClosingPipeAtAMergedWellIsADeadEnd) {
    draw({9.6, -2}, {9.1, -2});
    ASSERT_NE(search("T"), nullptr);
    expectNodes({{"T", {9.8, -2}, 0.45, -1, {0}, {"W"}},
                 {"B", {40, 0}, 0.5, 0, {1}},
                 {"C", {40, -30}, 0.5, 1, {}}});
}

// 0.6 from the insertion point, W is not merged (0.51 is allowed) and ends the run as a node.
TEST_F(RingThroughATank, WellBesideTheTankIsANodeOfItsOwn) {
    draw({9.4, -2}, {8.9, -2});
    ASSERT_NE(search("T"), nullptr);
    expectNodes({{"T", {10, -2}, 0.0, -1, {0}},
                 {"B", {40, 0}, 0.5, 0, {1}},
                 {"C", {40, -30}, 0.5, 1, {2}},
                 {"W", {9.4, -2}, 0.5, 2, {}}});
}

TEST_F(RingThroughATank, ClosingPipeInTheTankIsACycle) {
    draw({200, 200}, {12, -2});
    EXPECT_EQ(search("T"), nullptr);
    EXPECT_EQ(search("C"), nullptr);
}

} // namespace module_tests
