#include "CheckTest.h"

namespace check_tests {

using module_tests::kStorm;
using module_tests::kSupply;

class LooseTest : public CheckTest {
protected:
    /// Two wells with a pipe between them.
    void layRun(const wchar_t* system = module_tests::kSewer) {
        drawing.addWell({-30.0, 0.0, 0.0}, {.system = system});
        drawing.addWell({30.0, 0.0, 0.0}, {.system = system});
        drawing.addPipe({-29.5, 0.0, 0.0}, {29.5, 0.0, 0.0}, {.system = system});
    }
};

TEST_F(LooseTest, WellWithoutPipe) {
    layRun();
    const AcDbObjectId well = drawing.addWell({0.0, 20.0, 0.0});
    const Finding finding = only("well-without-pipe", Severity::warning);
    EXPECT_EQ(finding.entities, Ids{well});
    EXPECT_TRUE(module_tests::samePoint(finding.place, {0.0, 20.0, 0.0}));
    EXPECT_EQ(report.loose, Ids{well});
}

/// A pipe of another system does not count.
TEST_F(LooseTest, WellOfAnotherSystemAtAPipe) {
    layRun(kStorm);
    const AcDbObjectId well = drawing.addWell({30.0, 0.75, 0.0});
    EXPECT_EQ(only("well-without-pipe", Severity::warning).entities, Ids{well});
}

TEST_F(LooseTest, EveryWellHasAPipe) {
    layRun();
    expectNone();
    EXPECT_TRUE(report.loose.empty());
}

/// Two half circles joined at both ends: each leads to the other for ever.
TEST_F(LooseTest, RingWithoutAnyWell) {
    layRun();
    const AcDbObjectId upper = drawing.addArcPipe({0.0, 50.0, 0.0}, {10.0, 50.0, 0.0}, -1.0);
    const AcDbObjectId lower = drawing.addArcPipe({10.0, 50.0, 0.0}, {0.0, 50.0, 0.0}, -1.0);
    const Finding finding = only("no-network", Severity::warning);
    EXPECT_EQ(setOf(finding.entities), setOf({upper, lower}));
    EXPECT_EQ(setOf(report.loose), setOf({upper, lower}));
}

TEST_F(LooseTest, RingWithAWell) {
    layRun();
    drawing.addWell({0.0, 50.0, 0.0});
    const AcDbObjectId upper = drawing.addArcPipe({0.0, 50.0, 0.0}, {10.0, 50.0, 0.0}, -1.0);
    const AcDbObjectId lower = drawing.addArcPipe({10.0, 50.0, 0.0}, {0.0, 50.0, 0.0}, -1.0);
    const Finding finding = only("cycle", Severity::error);
    EXPECT_EQ(finding.entities.size(), 3U);
    EXPECT_EQ(setOf(finding.entities).count(upper) + setOf(finding.entities).count(lower), 2U);
}

/// Its ends miss the wells, at 0.51 m, and join the ends of the other pipe, which is taken.
TEST_F(LooseTest, PipeBesideARunThatIsTaken) {
    layRun();
    const AcDbObjectId second = drawing.addPipe({-29.5, 0.1, 0.0}, {29.5, 0.1, 0.0});
    const Finding finding = only("no-network", Severity::warning);
    ASSERT_EQ(finding.entities.size(), 2U);
    EXPECT_EQ(finding.entities[0], second);
    EXPECT_EQ(report.loose, Ids{second});
}

TEST_F(LooseTest, TankWithoutPipe) {
    layRun();
    const AcDbObjectId tank = drawing.addTank({0.0, 20.0, 0.0}, {6.0, 24.0, 0.0});
    EXPECT_EQ(only("no-network", Severity::warning).entities, Ids{tank});
}

/// Pipes of every system may end in a tank.
TEST_F(LooseTest, TankWithAPipeOfAnotherSystem) {
    drawing.addTank({30.0, -2.0, 0.0}, {36.0, 2.0, 0.0});
    drawing.addWell({0.0, 0.0, 0.0}, {.system = kStorm});
    drawing.addPipe({0.5, 0.0, 0.0}, {30.0, 0.0, 0.0}, {.system = kStorm});
    expectNone();
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].nodes.size(), 2U);
    EXPECT_TRUE(report.loose.empty());
}

TEST_F(LooseTest, WellBesideItsMain) {
    drawing.addPipe({-20.0, 0.0, 0.0}, {20.0, 0.0, 0.0}, {.system = kSupply});
    // Its rim misses the pipe by a quarter of a metre.
    const AcDbObjectId well = drawing.addWell({0.0, 0.75, 0.0}, {.system = kSupply});
    EXPECT_EQ(only("well-without-pipe", Severity::warning).entities, Ids{well});
}

TEST_F(LooseTest, WellOnItsMain) {
    drawing.addPipe({-20.0, 0.0, 0.0}, {20.0, 0.0, 0.0}, {.system = kSupply});
    drawing.addWell({0.0, 0.5, 0.0}, {.system = kSupply});
    expectNone();
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].nodes.size(), 3U);
    EXPECT_TRUE(report.loose.empty());
}

TEST_F(LooseTest, OneSystemAlone) {
    layRun();
    drawing.addWell({0.0, 20.0, 0.0}, {.system = kStorm});
    check("污水");
    EXPECT_TRUE(codes().empty());
    check("雨水");
    EXPECT_EQ(codes(), std::vector<std::string>{"well-without-pipe"});
    EXPECT_TRUE(report.networks.empty());
}

TEST_F(LooseTest, EmptyDrawing) {
    expectNone();
    EXPECT_TRUE(report.networks.empty());
    EXPECT_TRUE(report.loose.empty());
}

} // namespace check_tests
