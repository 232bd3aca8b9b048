#include "CheckTest.h"

namespace check_tests {

using module_tests::kSupply;

class GapTest : public CheckTest {
protected:
    /// Two wells, and between them two pipes in line whose ends are `gap` apart.
    void layRun(double gap) {
        drawing.addWell({-30.0, 0.0, 0.0});
        drawing.addWell({30.0, 0.0, 0.0});
        left = drawing.addPipe({-29.5, 0.0, 0.0}, {0.0, 0.0, 0.0});
        right = drawing.addPipe({gap, 0.0, 0.0}, {29.5, 0.0, 0.0});
    }

    AcDbObjectId supply(const AcGePoint3d& from, const AcGePoint3d& to) {
        return drawing.addPipe(from, to, {.system = kSupply});
    }

    AcDbObjectId left, right;
};

/// What joins is strictly less than the break distance times 2, 1.1 and 2.
TEST_F(GapTest, GapOfTheSnapDistance) {
    layRun(0.1 * 2.0 * 1.1 * 2.0);
    const Finding finding = only("gap-at-joint", Severity::error);
    EXPECT_EQ(setOf(finding.entities), setOf({left, right}));
    expectMeasured(finding, kSnap, kSnap, "m");
    EXPECT_TRUE(report.networks.empty());
}

TEST_F(GapTest, GapWithinTheSnapDistanceJoins) {
    layRun(0.4399);
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

TEST_F(GapTest, GapOfFiveTimesTheSnapDistance) {
    layRun(2.2);
    expectMeasured(only("gap-at-joint", Severity::error), 2.2, kSnap, "m");
}

TEST_F(GapTest, WiderGapIsOneDeadEnd) {
    layRun(2.25);
    const Finding finding = only("dead-end", Severity::warning);
    EXPECT_EQ(setOf(finding.entities), setOf({left, right}));
    expectMeasured(finding, 2.25, kSnap, "m");
}

/// An end that has a way on is not waiting for another one.
TEST_F(GapTest, EndThatIsJoinedAlreadyIsNoGap) {
    layRun(1.0);
    drawing.addPipe({-10.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    check();
    EXPECT_TRUE(found("gap-at-joint").empty());
}

TEST_F(GapTest, PressureEndsBeyondTheReach) {
    left = supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    right = supply({0.5, 0.0, 0.0}, {0.5, 20.0, 0.0});
    const Finding finding = only("gap-at-joint", Severity::error);
    EXPECT_EQ(setOf(finding.entities), setOf({left, right}));
    expectMeasured(finding, 0.5, 0.4, "m");
    EXPECT_EQ(report.networks.size(), 2U);
}

TEST_F(GapTest, PressureEndsWithinTheReachJoin) {
    supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    supply({0.375, 0.0, 0.0}, {0.375, 20.0, 0.0});
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

TEST_F(GapTest, PressureEndsFarApartAreEndsOfLines) {
    supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    supply({2.25, 0.0, 0.0}, {2.25, 20.0, 0.0});
    expectNone();
    EXPECT_EQ(report.networks.size(), 2U);
}

/// A branch joins the side of a main only where it touches it.
TEST_F(GapTest, PressureBranchShortOfTheMain) {
    right = supply({-20.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    left = supply({0.0, 0.25, 0.0}, {0.0, 20.0, 0.0});
    const Finding finding = only("gap-at-joint", Severity::error);
    EXPECT_EQ(finding.entities, (Ids{left, right}));
    expectMeasured(finding, 0.25, 0.0, "m");
}

TEST_F(GapTest, PressureBranchThatTouchesTheMain) {
    supply({-20.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    supply({0.0, 0.0, 0.0}, {0.0, 20.0, 0.0});
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

/// The end of a branch of 1.5 m is that far from the pipes which it joins at its other end.
TEST_F(GapTest, PressureBranchIsNoGapToItsOwnJoint) {
    supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    supply({0.0, 0.0, 0.0}, {0.0, 1.5, 0.0});
    expectNone();
}

/// The end of such a branch lies 0.25 m beside the pipe: nearer than the joint, and meant to touch
/// it.
TEST_F(GapTest, PressureBranchThatComesBackToTheMainIsAGap) {
    supply({-20.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    right = supply({0.0, 0.0, 0.0}, {20.0, 0.0, 0.0});
    left = supply({0.0, 0.0, 0.0}, {3.0, 0.25, 0.0});
    const Finding finding = only("gap-at-joint", Severity::error);
    EXPECT_EQ(finding.entities, (Ids{left, right}));
    expectMeasured(finding, 0.25, 0.0, "m");
}

} // namespace check_tests
