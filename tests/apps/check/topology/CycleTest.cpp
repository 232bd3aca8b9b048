#include "CheckTest.h"

namespace check_tests {

using module_tests::kSupply;

/// Wells of one metre whose pipes end at their rims.
class CycleTest : public CheckTest {
protected:
    /// Wells at the corners of a triangle with sides 30, 40 and 50, and its two short sides.
    void layCorner() {
        a = drawing.addWell({0.0, 0.0, 0.0});
        b = drawing.addWell({30.0, 0.0, 0.0});
        c = drawing.addWell({0.0, 40.0, 0.0});
        ab = drawing.addPipe({0.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
        ac = drawing.addPipe({0.0, 0.5, 0.0}, {0.0, 39.5, 0.0});
    }

    AcDbObjectId supply(const AcGePoint3d& from, const AcGePoint3d& to) {
        return drawing.addPipe(from, to, {.system = kSupply});
    }

    /// Three sides of a square of 20 m that begins at the origin, and a pipe that leads to it.
    void layMain() {
        tail = supply({0.0, -20.0, 0.0}, {0.0, 0.0, 0.0});
        south = supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
        east = supply({20.0, 0.0, 0.0}, {20.0, 20.0, 0.0});
        west = supply({0.0, 0.0, 0.0}, {0.0, 20.0, 0.0});
    }

    /// A ring whose north side goes straight on beyond the corner where the west side comes to it.
    void layPassedRing(bool isWestFirst) {
        tail = supply({0.0, -20.0, 0.0}, {0.0, 0.0, 0.0});
        for (const bool isWest : {isWestFirst, !isWestFirst}) {
            (isWest ? west : south) = isWest ? supply({0.0, 0.0, 0.0}, {-5.0, 20.0, 0.0})
                                             : supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
        }
        east = supply({20.0, 0.0, 0.0}, {20.0, 20.0, 0.0});
        north = supply({20.0, 20.0, 0.0}, {-5.0, 20.0, 0.0});
        supply({-5.0, 20.0, 0.0}, {-30.0, 20.0, 0.0});
    }

    AcDbObjectId a, b, c, ab, ac;
    AcDbObjectId tail, south, east, north, west;
};

TEST_F(CycleTest, RingIsListedInOrder) {
    layCorner();
    // The third side is 50 long along (-0.6, 0.8); its ends are half a metre from the centres.
    const AcDbObjectId bc = drawing.addPipe({29.7, 0.4, 0.0}, {0.3, 39.6, 0.0});
    const Finding finding = only("cycle", Severity::error);
    EXPECT_TRUE(sameRing(finding.entities, {a, ab, b, bc, c, ac}));
    ASSERT_EQ(finding.network, 0);
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].nodes.size(), 3U);
    EXPECT_EQ(report.networks[0].runs.size(), 3U);
    EXPECT_TRUE(report.loose.empty());
}

TEST_F(CycleTest, OpenRingIsNone) {
    layCorner();
    expectNone();
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].runs.size(), 2U);
}

TEST_F(CycleTest, DoubledPipeIsARingOfTwoWells) {
    layCorner();
    const AcDbObjectId second = drawing.addPipe({0.5, 0.05, 0.0}, {29.5, 0.05, 0.0});
    const Finding finding = only("cycle", Severity::error);
    EXPECT_TRUE(sameRing(finding.entities, {a, ab, b, second}));
}

TEST_F(CycleTest, NetworkBehindTheRingIsSeen) {
    layCorner();
    drawing.addPipe({29.7, 0.4, 0.0}, {0.3, 39.6, 0.0});
    drawing.addWell({0.0, 80.0, 0.0});
    drawing.addPipe({0.0, 40.5, 0.0}, {0.0, 79.5, 0.0});
    only("cycle", Severity::error);
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].nodes.size(), 4U);
    EXPECT_EQ(report.networks[0].runs.size(), 4U);
}

TEST_F(CycleTest, EachOfTwoRingsIsTheShortestOne) {
    layCorner();
    const AcDbObjectId bc = drawing.addPipe({29.7, 0.4, 0.0}, {0.3, 39.6, 0.0});
    // The mirrored triangle on the other side of the first leg.
    const AcDbObjectId d = drawing.addWell({-30.0, 0.0, 0.0});
    const AcDbObjectId ad = drawing.addPipe({-0.5, 0.0, 0.0}, {-29.5, 0.0, 0.0});
    const AcDbObjectId dc = drawing.addPipe({-29.7, 0.4, 0.0}, {-0.3, 39.6, 0.0});
    check();
    const std::vector<Finding> rings = found("cycle");
    ASSERT_EQ(rings.size(), 2U);
    std::set<std::set<AcDbObjectId>> members;
    for (const Finding& ring : rings) {
        members.insert(setOf(ring.entities));
    }
    EXPECT_EQ(members, (std::set<std::set<AcDbObjectId>>{setOf({a, ab, b, bc, c, ac}),
                                                         setOf({a, ad, d, dc, c, ac})}));
}

/// The reach of the largest well of the drawing decides how near a known node an end may come: with
/// a well of 8 m far away that is 4 * 1.01.
TEST_F(CycleTest, EndNearAKnownNodeCountsAsARing) {
    a = drawing.addWell({0.0, 0.0, 0.0});
    b = drawing.addWell({30.0, 0.0, 0.0});
    ab = drawing.addPipe({0.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    const AcDbObjectId back = drawing.addPipe({30.0, 0.5, 0.0}, {0.0, 3.0, 0.0});
    drawing.addWell({200.0, 0.0, 0.0}, {.diameter = L"8"});
    check();
    ASSERT_EQ(found("cycle").size(), 1U);
    const Finding finding = found("cycle")[0];
    expectMeasured(finding, 3.0, 4.04, "m");
    EXPECT_EQ(finding.entities, (Ids{back, a}));
}

TEST_F(CycleTest, EndBeyondTheLargestReachIsADeadEnd) {
    a = drawing.addWell({0.0, 0.0, 0.0});
    b = drawing.addWell({30.0, 0.0, 0.0});
    ab = drawing.addPipe({0.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    const AcDbObjectId back = drawing.addPipe({30.0, 0.5, 0.0}, {0.0, 3.0, 0.0});
    // 2.95 * 1.01 = 2.9795
    drawing.addWell({200.0, 0.0, 0.0}, {.diameter = L"5.9"});
    check();
    EXPECT_TRUE(found("cycle").empty());
    ASSERT_EQ(found("dead-end").size(), 1U);
    EXPECT_EQ(found("dead-end")[0].entities, (Ids{back, a}));
}

TEST_F(CycleTest, PressureRingIsListedInOrder) {
    layMain();
    north = supply({20.0, 20.0, 0.0}, {0.0, 20.0, 0.0});
    const Finding finding = only("cycle", Severity::error);
    EXPECT_TRUE(sameRing(finding.entities, {south, east, north, west}));
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_TRUE(report.networks[0].isPressure);
    EXPECT_EQ(report.networks[0].runs.size(), 5U);
}

TEST_F(CycleTest, PressureEndsLessThanOneUnitApartCountAsARing) {
    layMain();
    north = supply({20.0, 20.0, 0.0}, {0.75, 20.0, 0.0});
    const Finding finding = only("cycle", Severity::error);
    expectMeasured(finding, 0.75, 1.0, "m");
    // Which of the two ends comes later in the search is its own affair.
    EXPECT_TRUE(finding.entities == Ids{north} || finding.entities == Ids{west});
}

/// At exactly one unit the search accepts the network; the ends join within 4 * 0.1 only.
TEST_F(CycleTest, PressureEndsOneUnitApartAreAGap) {
    layMain();
    supply({20.0, 20.0, 0.0}, {1.0, 20.0, 0.0});
    const Finding finding = only("gap-at-joint", Severity::error);
    expectMeasured(finding, 1.0, 0.4, "m");
}

TEST_F(CycleTest, PressureRingWithoutAnyFreeEndIsAWarning) {
    south = supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    east = supply({20.0, 0.0, 0.0}, {20.0, 20.0, 0.0});
    west = supply({20.0, 20.0, 0.0}, {0.0, 0.0, 0.0});
    const Finding finding = only("cycle", Severity::warning);
    EXPECT_TRUE(sameRing(finding.entities, {south, east, west}));
}

/// Both lie between the same joints; the one that is walked first grows together with what lies
/// behind, and the search takes the other for a branch.
TEST_F(CycleTest, PressurePipeDoubledWithinAStraightRunIsAWarning) {
    supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    const AcDbObjectId one = supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    supply({20.0, 0.0, 0.0}, {40.0, 0.0, 0.0});
    const AcDbObjectId other = supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    const Finding finding = only("cycle", Severity::warning);
    EXPECT_TRUE(sameRing(finding.entities, {one, other}));
    ASSERT_EQ(report.networks.size(), 1U);
}

/// Whichever of the two sides that come to the corner is walked first, the ring is told, and what
/// lies beyond the corner is no part of it.
TEST_F(CycleTest, PressureRingThatARunPassesStraightOnIsTold) {
    layPassedRing(true);
    check();
    ASSERT_EQ(found("cycle").size(), 1U);
    EXPECT_TRUE(sameRing(found("cycle")[0].entities, {south, east, north, west}));
}

TEST_F(CycleTest, PressureRingWhoseSidesStandInTheOtherOrderIsTold) {
    layPassedRing(false);
    check();
    ASSERT_EQ(found("cycle").size(), 1U);
    EXPECT_TRUE(sameRing(found("cycle")[0].entities, {south, east, north, west}));
}

/// Without the doubled pipe nothing is said of a straight run, and nothing of a branch from it.
TEST_F(CycleTest, PressureBranchesOfAStraightRunAreNoRing) {
    supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    supply({20.0, 0.0, 0.0}, {40.0, 0.0, 0.0});
    supply({20.0, 0.0, 0.0}, {20.0, 20.0, 0.0});
    expectNone();
}

} // namespace check_tests
