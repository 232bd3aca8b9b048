#include "CheckTest.h"

namespace check_tests {

using module_tests::kStorm;
using module_tests::kSupply;

/// A well of one metre holds an end nearer than 0.5 * 1.01 to its centre.
class DeadEndTest : public CheckTest {
protected:
    /// A well at (-30, 0) and a pipe from its rim to `end`.
    AcDbObjectId layTo(const AcGePoint3d& end) {
        drawing.addWell({-30.0, 0.0, 0.0});
        return drawing.addPipe({-29.5, 0.0, 0.0}, end);
    }
};

TEST_F(DeadEndTest, EndAtExactlyTheReachIsNotHeld) {
    const AcDbObjectId pipe = layTo({0.0, 0.505, 0.0});
    const AcDbObjectId well = drawing.addWell({0.0, 0.0, 0.0});
    const Finding finding = only("dead-end", Severity::warning);
    EXPECT_EQ(finding.entities, (Ids{pipe, well}));
    expectMeasured(finding, 0.505, 0.505, "m");
    // A walk leaves the well through an end within its diameter, so from there the run is found.
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(finding.network, 0);
    EXPECT_EQ(report.networks[0].root, well);
    EXPECT_TRUE(report.loose.empty());
}

TEST_F(DeadEndTest, EndWithinTheReachIsHeld) {
    layTo({0.0, 0.5049, 0.0});
    drawing.addWell({0.0, 0.0, 0.0});
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

TEST_F(DeadEndTest, EndBeyondTheWellsTouchIsInNoNetwork) {
    const AcDbObjectId pipe = layTo({0.0, 1.5, 0.0});
    const AcDbObjectId well = drawing.addWell({0.0, 0.0, 0.0});
    const Finding finding = only("dead-end", Severity::warning);
    EXPECT_EQ(finding.entities, (Ids{pipe, well}));
    expectMeasured(finding, 1.5, 0.505, "m");
    EXPECT_EQ(finding.network, -1);
    EXPECT_TRUE(report.networks.empty());
    EXPECT_EQ(report.loose.size(), 3U);
}

/// The nearest is what misses by the least: 3 - 2.525 of a well of 5 m, against 1.5 - 0.505.
TEST_F(DeadEndTest, LargerWellFartherAwayMissesByLess) {
    const AcDbObjectId pipe = layTo({0.0, 0.0, 0.0});
    drawing.addWell({1.5, 0.0, 0.0});
    const AcDbObjectId large = drawing.addWell({0.0, 3.0, 0.0}, {.diameter = L"5"});
    check();
    ASSERT_EQ(found("dead-end").size(), 1U);
    EXPECT_EQ(found("dead-end")[0].entities, (Ids{pipe, large}));
    expectMeasured(found("dead-end")[0], 3.0, 2.525, "m");
}

/// A tank holds an end at most one millimetre outside its box.
TEST_F(DeadEndTest, EndOutsideATank) {
    const AcDbObjectId pipe = layTo({-0.002, 2.0, 0.0});
    const AcDbObjectId tank = drawing.addTank({0.0, 0.0, 0.0}, {6.0, 4.0, 0.0});
    check();
    ASSERT_EQ(found("dead-end").size(), 1U);
    EXPECT_EQ(found("dead-end")[0].entities, (Ids{pipe, tank}));
    expectMeasured(found("dead-end")[0], 0.002, 0.001, "m");
}

TEST_F(DeadEndTest, EndAtATanksMargin) {
    layTo({-0.0009, 2.0, 0.0});
    drawing.addTank({0.0, 0.0, 0.0}, {6.0, 4.0, 0.0});
    expectNone();
}

TEST_F(DeadEndTest, NothingIsNear) {
    const AcDbObjectId pipe = layTo({200.0, 0.0, 0.0});
    const Finding finding = only("dead-end", Severity::warning);
    EXPECT_EQ(finding.entities, Ids{pipe});
    EXPECT_FALSE(finding.measured);
    EXPECT_FALSE(finding.limit);
}

/// Pipes in line touch one another's sides too, which is no way on from the far end.
TEST_F(DeadEndTest, LastOfPipesInLine) {
    layTo({0.0, 0.0, 0.0});
    drawing.addPipe({0.0, 0.0, 0.0}, {50.0, 0.0, 0.0});
    const AcDbObjectId last = drawing.addPipe({50.0, 0.0, 0.0}, {200.0, 0.0, 0.0});
    const Finding finding = only("dead-end", Severity::warning);
    // Neither its own neighbour, 150 m off, nor anything else.
    EXPECT_EQ(finding.entities, Ids{last});
    EXPECT_TRUE(module_tests::samePoint(finding.place, {200.0, 0.0, 0.0}));
    EXPECT_EQ(report.loose.size(), 4U);
}

/// The last two metres of the one lie on the first two of the other.
TEST_F(DeadEndTest, LastOfPipesThatOverlap) {
    layTo({0.0, 0.0, 0.0});
    const AcDbObjectId last = drawing.addPipe({-2.0, 0.0, 0.0}, {200.0, 0.0, 0.0});
    const Finding finding = only("dead-end", Severity::warning);
    EXPECT_EQ(finding.entities[0], last);
}

TEST_F(DeadEndTest, EndInAWellOfAnotherSystem) {
    const AcDbObjectId pipe = layTo({0.0, 0.25, 0.0});
    const AcDbObjectId well = drawing.addWell({0.0, 0.0, 0.0}, {.system = kStorm});
    const Finding finding = only("end-in-foreign-well", Severity::error);
    EXPECT_EQ(finding.entities, (Ids{pipe, well}));
}

TEST_F(DeadEndTest, EndBesideAWellOfAnotherSystem) {
    layTo({0.0, 0.505, 0.0});
    drawing.addWell({0.0, 0.0, 0.0}, {.system = kStorm});
    check();
    EXPECT_TRUE(found("end-in-foreign-well").empty());
    EXPECT_EQ(found("dead-end").size(), 1U);
}

TEST_F(DeadEndTest, PressureEndInAWellOfAnotherSystem) {
    const AcDbObjectId pipe =
        drawing.addPipe({-20.0, 0.0, 0.0}, {0.0, 0.5, 0.0}, {.system = kSupply});
    const AcDbObjectId well = drawing.addWell({0.0, 0.0, 0.0});
    const Finding finding = only("end-in-foreign-well", Severity::warning);
    EXPECT_EQ(finding.entities, (Ids{pipe, well}));
}

/// A pressure search takes an end for within a well up to 0.0001 outside its rim.
TEST_F(DeadEndTest, PressureEndBesideAWellOfAnotherSystem) {
    drawing.addPipe({-20.0, 0.0, 0.0}, {0.0, 0.5002, 0.0}, {.system = kSupply});
    drawing.addWell({0.0, 0.0, 0.0});
    only("well-without-pipe", Severity::warning);
}

} // namespace check_tests
