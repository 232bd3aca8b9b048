// Runs that are drawn as several pipes: gaps, arcs, sides that are joined, reversed pieces.

#include "module/networks/NetworkTest.h"

#include <cmath>

namespace module_tests {

namespace {

/// A run of four pipes with a gap and a half circle, from A to B; the drawing has P4 first, so P4
/// speaks for the segment. P2 and P4 are drawn against the way from A to B.
///
///     0.5   10 10.2   20        30
///   A o--P1--  --P2---+         +
///     0                 \  P3  /|
///                         \__/  P4
///                         25,-5 |
///                               o B (30, -20)
class RunWithAnArc : public NetworkTest {
protected:
    RunWithAnArc() {
        map.well("A", {0, 0});
        map.well("B", {30, -20});
        map.pipe("P4", {30, -19.5}, {30, 0},
                 {.flow = "ES", .startElevation = "7", .endElevation = "6"});
        map.pipe("P2", {20, 0}, {10.2, 0}, {.startElevation = "1", .endElevation = "2"});
        map.pipe("P1", {0.5, 0}, {10, 0}, {.startElevation = "1", .endElevation = "2"});
        map.pipe("P3", {20, 0}, {30, 0}, {.bulge = 1.0}); // to the left, so below
    }

    static constexpr double kArc = 5.0 * kPi;

    /// Checks the label: `past` along the arc beyond its lowest point.
    void expectLabelPastLowest(double past) {
        const double turn = past / 5.0;
        expectLabel(0, {25.0 + 5.0 * std::sin(turn), -5.0 * std::cos(turn)},
                    {std::cos(turn), std::sin(turn)});
    }
};

} // namespace

TEST_F(RunWithAnArc, PipesStandInTheOrderOfTheDrawing) {
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"B", {30, -20}, 0.5, 0, {}}});
    expectSegs({{{"P4", "P2", "P1", "P3"}, 0, 1, "A", "B", {0, 0}, {30, -20}, 38.8 + kArc}});
}

// Half of the length is 19.4 and half the arc; 19.3 of it lie before the arc.
TEST_F(RunWithAnArc, LabelLiesHalfWayAlongTheDrawnPipes) {
    ASSERT_NE(search("A"), nullptr);
    expectLabelPastLowest(0.1);
}

// From A (0.5 before P1) over the gap of 0.2 to B (0.5 behind P4). The label takes half of that,
// but sums the pipes as drawn.
TEST_F(RunWithAnArc, LengthModeOneCountsGapsAndRims) {
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    expectSegs({{{"P4", "P2", "P1", "P3"}, 0, 1, "A", "B", {0, 0}, {30, -20}, 40.0 + kArc}});
    expectLabelPastLowest(0.7);
}

// With a length of 0 the first pipe is past the middle at once: the label stands at its near end.
TEST_F(RunWithAnArc, LengthModeTwoLabelsTheBeginning) {
    drawing.setLengthMode(2);
    ASSERT_NE(search("A"), nullptr);
    expectSegs({{{"P4", "P2", "P1", "P3"}, 0, 1, "A", "B", {0, 0}, {30, -20}, 0.0}});
    expectLabel(0, {0.5, 0}, {1, 0});
}

// P4 runs against the segment and its water too.
TEST_F(RunWithAnArc, FirstPipeOfTheDrawingSpeaksForTheSegment) {
    GravitySearchObject* network = search("A");
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->segs[0].flowReversed, 0);
    EXPECT_EQ(utf8(network->segs[0].flowText), "ES");
    expectHeights(0, 6.0, 7.0);
}

// A straight pipe goes on only within 18 degrees, and the half circle counts by its chord there; an
// arc goes on anywhere. So the run exists from A, but not from B.
TEST_F(RunWithAnArc, StraightPipeDoesNotTurnIntoAnArcsCorner) {
    EXPECT_EQ(search("B"), nullptr);
}

TEST_F(RunWithAnArc, PathEndsAtEachPipeOfTheRun) {
    for (const char* pipe : {"P1", "P2", "P3", "P4"}) {
        SCOPED_TRACE(pipe);
        ASSERT_NE(search("A", pipe), nullptr);
        expectPath({1, 0}, {0});
    }
}

/// P1 ends beyond its crossing with P2 at (30, 0); P2 rises by one in ten.
///
///                                      ,--o B (80.5, 5)
///   A o-------P1-------+----35  __,--''
///     0            __,--'' (30, 0)
///  C o (9.5, -2) --  P2
class RunIntoASide : public NetworkTest {
protected:
    void draw(bool withC) {
        map.well("A", {0, 0});
        map.well("B", {80.5, 5});
        if (withC) {
            map.well("C", {9.5, -2});
        }
        map.pipe("P1", {0.5, 0}, {35, 0});
        map.pipe("P2", {10, -2}, {80, 5});
    }

    const double p2 = std::sqrt(70.0 * 70.0 + 7.0 * 7.0);
    const double beyond = std::sqrt(50.0 * 50.0 + 5.0 * 5.0); // P2 from the crossing to its end
    const double before = std::sqrt(20.0 * 20.0 + 2.0 * 2.0); // P2 from its start to the crossing
};

TEST_F(RunIntoASide, GoesOnTowardsTheEndWhenTheStartLeadsNowhere) {
    draw(false);
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"B", {80.5, 5}, 0.5, 0, {}}});
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "B", {0, 0}, {80.5, 5}, 34.5 + p2}});
}

// A to the crossing, the crossing to P2's end, and 0.5 from there to B.
TEST_F(RunIntoASide, LengthModeOneCountsFromCrossingToNode) {
    draw(false);
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "B", {0, 0}, {80.5, 5}, 30.0 + beyond + 0.5}});
}

TEST_F(RunIntoASide, GoesTowardsTheStartFirst) {
    draw(true);
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"C", {9.5, -2}, 0.5, 0, {}}});
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "C", {0, 0}, {9.5, -2}, 30.0 + before + 0.5}});
}

// From B the run takes P2 alone, straight into C; P1 is left with a dead end.
TEST_F(RunIntoASide, WellAtTheFreeEndWinsOverTheSide) {
    draw(true);
    ASSERT_NE(search("B"), nullptr);
    expectNodes({{"B", {80.5, 5}, 0.5, -1, {0}}, {"C", {9.5, -2}, 0.5, 0, {}}});
    expectSegs({{{"P2"}, 0, 1, "B", "C", {80.5, 5}, {9.5, -2}, p2}});
    EXPECT_EQ(search("B", "P1"), nullptr);
}

/// Two pieces drawn over one another: P2 begins 5 units before P1 ends.
///
///   A o-----P1-----+====+-----P2-----o B
///     0           25    30          60
TEST_F(NetworkTest, OverlappingPiecesAreOneRun) {
    map.well("A", {0, 0});
    map.well("B", {60, 0});
    map.pipe("P1", {0.5, 0}, {30, 0});
    map.pipe("P2", {25, 0}, {59.5, 0});
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    // To P2's start, where the run enters it, and from there to B.
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "B", {0, 0}, {60, 0}, 25.0 + 35.0}});
    drawing.setLengthMode(0);
    ASSERT_NE(search("A"), nullptr);
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "B", {0, 0}, {60, 0}, 29.5 + 34.5}});
}

/// The first candidate of the drawing wins the joint, and what it leaves is found by nobody.
///
///                 ,--P3--o C (50, 4)
///   A o---P1---+-+
///     0        20 `--P2--o B (50, -4)
TEST_F(NetworkTest, FirstPipeOfTheDrawingWinsAJoint) {
    map.well("A", {0, 0});
    map.well("B", {50, -4});
    map.well("C", {50, 4});
    map.pipe("P1", {0.5, 0}, {20, 0});
    map.pipe("P3", {49.6, 3.95}, {20.3, 0});
    map.pipe("P2", {20.1, 0}, {49.6, -3.95});
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"C", {50, 4}, 0.5, 0, {}}});
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(namesOf(static_cast<GravitySearchObject&>(*found).segs[0].pipeIds),
              (std::vector<std::string>{"P1", "P3"}));
    EXPECT_EQ(search("A", "B"), nullptr);
}

/// A way that was taken first and leads nowhere is taken back, with its length. P3 begins a little
/// off the joint.
///
///                 ,--P3---- (50, 4)
///   A o---P1---+-+
///     0        20 `--P2--o B (50, -4)
TEST_F(NetworkTest, DeadEndIsTakenBack) {
    map.well("A", {0, 0});
    map.well("B", {50, -4});
    map.pipe("P1", {0.5, 0}, {20, 0});
    map.pipe("P3", {20.2, 0.1}, {50, 4});
    map.pipe("P2", {20, 0}, {49.6, -4});
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    const double second = std::sqrt(29.6 * 29.6 + 16.0);
    // B lies 0.4 east of P2's end, so its nearest place on P2 is that end.
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "B", {0, 0}, {50, -4}, 20.0 + second + 0.4}});
}

/// The same with P3 from the very joint. P3 leads nowhere at its far end, but P2 crosses it at its
/// beginning, so the run goes through P3 to P2. Measured in parts P3 adds nothing.
TEST_F(NetworkTest, PieceThatIsCrossedAtItsBeginningIsPartOfTheRun) {
    map.well("A", {0, 0});
    map.well("B", {50, -4});
    map.pipe("P1", {0.5, 0}, {20, 0});
    map.pipe("P3", {20, 0}, {50, 4});
    map.pipe("P2", {20, 0}, {49.6, -4});
    drawing.setLengthMode(1);
    ASSERT_NE(search("A"), nullptr);
    const double second = std::sqrt(29.6 * 29.6 + 16.0);
    expectSegs({{{"P1", "P3", "P2"}, 0, 1, "A", "B", {0, 0}, {50, -4}, 20.0 + second + 0.4}});
}

/// A tenth of the scale: a unit is ten metres, so wells, reaches and margins are a tenth as large.
///
///   A o--P1--o B      radius 0.05, reach 0.0505
///     0     20
TEST_F(NetworkTest, SizesFollowTheDrawingScale) {
    map.well("A", {0, 0});
    map.well("B", {20, 0});
    map.pipe("P1", {0.1, 0}, {19.95, 0});
    ASSERT_NE(search("A"), nullptr);
    drawing.setDrawScale(10000.0);
    ASSERT_NE(search("A"), nullptr);
    // P1 ends 0.05 from B and begins 0.1 from A, where 2 x 0.05 + 0.001 is allowed.
    expectNodes({{"A", {0, 0}, 0.05, -1, {0}}, {"B", {20, 0}, 0.05, 0, {}}});
    drawing.setDrawScale(11000.0);
    EXPECT_EQ(search("A"), nullptr); // P1 is out of reach at both ends
}

} // namespace module_tests
