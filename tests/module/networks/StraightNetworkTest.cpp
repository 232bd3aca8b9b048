// Networks of one pipe a segment: who is whose neighbour, in which order, and what a segment says.

#include "module/networks/NetworkTest.h"

namespace module_tests {

namespace {

/// Three wells in a row; P2 is drawn against the walk.
///
///   A o----P1--->o B <---------P2---------o C
///     0         20                       50
class LineOfThreeWells : public NetworkTest {
protected:
    LineOfThreeWells() {
        map.well("A", {0, 0});
        map.well("B", {20, 0});
        map.well("C", {50, 0});
        map.pipe("P1", {0.5, 0}, {19.5, 0},
                 {.flow = "SE", .startElevation = "5.0", .endElevation = "4.8"});
        map.pipe("P2", {49.5, 0}, {20.5, 0},
                 {.flow = "SE", .startElevation = "5.5", .endElevation = "5.0"});
    }

    void expectLengths(double first, double second) {
        ASSERT_NE(search("A"), nullptr);
        expectSegs({{{"P1"}, 0, 1, "A", "B", {0, 0}, {20, 0}, first},
                    {{"P2"}, 1, 2, "B", "C", {20, 0}, {50, 0}, second}});
    }
};

/// Three branches about B, the pipes in the drawing in the order of their numbers.
///
///                D o 30
///                  |
///                  P3
///                  |
///   A o----P4----B o----P1----C o----P2----E o
///     0           20 |         40          60
///                  P5
///                  |
///                F o -30
class Branches : public NetworkTest {
protected:
    Branches() {
        map.well("A", {0, 0});
        map.well("B", {20, 0});
        map.well("C", {40, 0});
        map.well("D", {20, 30});
        map.well("E", {60, 0});
        map.well("F", {20, -30});
        map.pipe("P1", {20.5, 0}, {39.5, 0});
        map.pipe("P2", {40.5, 0}, {59.5, 0});
        map.pipe("P3", {20, 0.5}, {20, 29.5});
        map.pipe("P4", {0.5, 0}, {19.5, 0});
        map.pipe("P5", {20, -0.5}, {20, -29.5});
    }
};

} // namespace

TEST_F(LineOfThreeWells, NodesStandInTheOrderOfTheWalk) {
    ASSERT_NE(search("A"), nullptr);
    expectNodes(
        {{"A", {0, 0}, 0.5, -1, {0}}, {"B", {20, 0}, 0.5, 0, {1}}, {"C", {50, 0}, 0.5, 1, {}}});
    expectPath({}, {});
}

TEST_F(LineOfThreeWells, LengthModeZeroCountsThePipesAsDrawn) {
    expectLengths(19.0, 29.0);
}

// Each end of each pipe is half a unit from the point that it is measured to.
TEST_F(LineOfThreeWells, LengthModeOneCountsFromNodeToNode) {
    drawing.setLengthMode(1);
    expectLengths(20.0, 30.0);
}

TEST_F(LineOfThreeWells, AnyOtherLengthModeCountsNothing) {
    drawing.setLengthMode(2);
    expectLengths(0.0, 0.0);
}

TEST_F(LineOfThreeWells, LowerHeightStandsFirstWhateverTheDirections) {
    ASSERT_NE(search("A"), nullptr);
    expectHeights(0, 4.8, 5.0); // read as 5.0 at A and 4.8 at B
    expectHeights(1, 5.0, 5.5); // read as 5.0 at B and 5.5 at C
}

TEST_F(LineOfThreeWells, WaterRunsAsThePipeSaysSeenFromTheWalk) {
    GravitySearchObject* network = search("A");
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->segs[0].flowReversed, 0);
    EXPECT_EQ(network->segs[1].flowReversed, 1);
    network = search("C");
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->segs[0].flowReversed, 0); // P2, from C now
    EXPECT_EQ(network->segs[1].flowReversed, 1); // P1
}

TEST_F(LineOfThreeWells, LabelsStandInTheMiddleAlongTheDrawnPipe) {
    ASSERT_NE(search("A"), nullptr);
    expectLabel(0, {10, 0}, {1, 0});
    expectLabel(1, {35, 0}, {-1, 0});
}

TEST_F(LineOfThreeWells, SegmentsCarryTheTextsOfTheirPipe) {
    GravitySearchObject* network = search("A");
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->segs[0].diameter, 300);
    EXPECT_EQ(utf8(network->segs[0].flowText), "SE");
    EXPECT_EQ(utf8(network->segs[0].systemName), "污水");
    EXPECT_EQ(utf8(network->wells[2].number), "C");
}

TEST_F(LineOfThreeWells, PickedPipeStartsAtTheNearerWell) {
    ASSERT_NE(search("P1", "", {9.0, 1.0}), nullptr);
    expectNodes(
        {{"A", {0, 0}, 0.5, -1, {0}}, {"B", {20, 0}, 0.5, 0, {1}}, {"C", {50, 0}, 0.5, 1, {}}});
    ASSERT_NE(search("P1", "", {11.0, 1.0}), nullptr);
    expectNodes(
        {{"B", {20, 0}, 0.5, -1, {0, 1}}, {"A", {0, 0}, 0.5, 0, {}}, {"C", {50, 0}, 0.5, 1, {}}});
}

TEST_F(Branches, DepthComesFirstAndSiblingsFollowTheDrawing) {
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}},
                 {"B", {20, 0}, 0.5, 0, {1, 3, 4}},
                 {"C", {40, 0}, 0.5, 1, {2}},
                 {"E", {60, 0}, 0.5, 2, {}},
                 {"D", {20, 30}, 0.5, 3, {}},
                 {"F", {20, -30}, 0.5, 4, {}}});
    expectSegs({{{"P4"}, 0, 1, "A", "B", {0, 0}, {20, 0}, 19.0},
                {{"P1"}, 1, 2, "B", "C", {20, 0}, {40, 0}, 19.0},
                {{"P2"}, 2, 3, "C", "E", {40, 0}, {60, 0}, 19.0},
                {{"P3"}, 1, 4, "B", "D", {20, 0}, {20, 30}, 29.0},
                {{"P5"}, 1, 5, "B", "F", {20, 0}, {20, -30}, 29.0}});
}

TEST_F(Branches, AnotherRootHangsTheSameTreeUpElsewhere) {
    ASSERT_NE(search("C"), nullptr);
    expectNodes({{"C", {40, 0}, 0.5, -1, {0, 4}},
                 {"B", {20, 0}, 0.5, 0, {1, 2, 3}},
                 {"D", {20, 30}, 0.5, 1, {}},
                 {"A", {0, 0}, 0.5, 2, {}},
                 {"F", {20, -30}, 0.5, 3, {}},
                 {"E", {60, 0}, 0.5, 4, {}}});
}

TEST_F(Branches, PathToAWellRunsFromTheEndToTheRoot) {
    ASSERT_NE(search("A", "E"), nullptr);
    expectPath({3, 2, 1, 0}, {2, 1, 0});
}

TEST_F(Branches, PathToAPipeBeginsAtItsFarNode) {
    ASSERT_NE(search("A", "P3"), nullptr);
    expectPath({4, 1, 0}, {3, 0});
    ASSERT_NE(search("A", "P4"), nullptr);
    expectPath({1, 0}, {0});
}

TEST_F(Branches, RootIsNoEnd) {
    EXPECT_EQ(search("P4", "A", {0, 0}), nullptr);
}

/// A pipe that leads nowhere (P2), one that is cut off with a well behind it (P3), a well alone
/// (E).
///
///   A o----P1----o B
///     0         20 |
///                  P2        D o----P3---
///                  |           40       60      E o (90, 0)
class BrokenBranches : public NetworkTest {
protected:
    BrokenBranches() {
        map.well("A", {0, 0});
        map.well("B", {20, 0});
        map.well("D", {40, -20});
        map.well("E", {90, 0});
        map.pipe("P2", {20, -0.5}, {20, -15});
        map.pipe("P1", {0.5, 0}, {19.5, 0});
        map.pipe("P3", {40.5, -20}, {60, -20});
    }
};

TEST_F(BrokenBranches, WhatLeadsNowhereIsLeftOut) {
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"B", {20, 0}, 0.5, 0, {}}});
    expectSegs({{{"P1"}, 0, 1, "A", "B", {0, 0}, {20, 0}, 19.0}});
}

TEST_F(BrokenBranches, EndThatWasNotReachedFailsTheSearch) {
    EXPECT_EQ(search("A", "D"), nullptr);
    EXPECT_EQ(search("A", "P2"), nullptr);
    EXPECT_EQ(search("A", "P3"), nullptr);
    EXPECT_NE(search("A", "B"), nullptr);
}

TEST_F(BrokenBranches, LoneWellIsNoNetwork) {
    EXPECT_EQ(search("E"), nullptr);
    EXPECT_EQ(search("D"), nullptr); // its only pipe leads nowhere
}

TEST_F(BrokenBranches, PickedPipeWithOneTargetStartsThere) {
    // The pick lies at the dead end; the pipe's only target is B all the same.
    ASSERT_NE(search("P2", "", {20, -15}), nullptr);
    expectNodes({{"B", {20, 0}, 0.5, -1, {0}}, {"A", {0, 0}, 0.5, 0, {}}});
}

/// Two systems on the same ground. Q1 of the storm drain lies exactly on P1 and touches the same
/// well A; Y, a storm well, stands where P1 and P2 of the sewer join; both end in the tank T.
///
///   A o----P1----Y o----P2----[T]----Q2----o Z
///     0           20        40  44        60
class TwoSystems : public NetworkTest {
protected:
    TwoSystems() {
        map.well("A", {0, 0});
        map.well("Y", {20, 0}, {.system = "雨水"});
        map.well("Z", {60, 0}, {.system = "雨水"});
        map.tank("T", {40, -2}, {44, 2});
        map.pipe("Q1", {0.5, 0}, {20, 0}, {.system = "雨水"});
        map.pipe("P1", {0.5, 0}, {20, 0});
        map.pipe("P2", {20, 0}, {40, 0});
        map.pipe("Q2", {44, 0}, {59.5, 0}, {.system = "雨水"});
    }
};

TEST_F(TwoSystems, SewerPassesTheStormWellAndEndsInTheTank) {
    ASSERT_NE(search("A"), nullptr);
    expectNodes({{"A", {0, 0}, 0.5, -1, {0}}, {"T", {40, -2}, 0.0, 0, {}}});
    expectSegs({{{"P1", "P2"}, 0, 1, "A", "T", {0, 0}, {40, -2}, 39.5}});
}

TEST_F(TwoSystems, StormDrainEndsInTheSameTank) {
    ASSERT_NE(search("Z"), nullptr);
    expectNodes({{"Z", {60, 0}, 0.5, -1, {0}}, {"T", {40, -2}, 0.0, 0, {}}});
    expectSegs({{{"Q2"}, 0, 1, "Z", "T", {60, 0}, {40, -2}, 15.5}});
}

TEST_F(TwoSystems, EndOfAnotherSystemIsRefused) {
    EXPECT_EQ(search("A", "Z"), nullptr);
    EXPECT_EQ(search("A", "Q2"), nullptr);
}

} // namespace module_tests
