#include "CheckTest.h"

#include <cmath>

namespace check_tests {

class AngleTest : public CheckTest {
protected:
    /// A pipe from a well to the origin and one from there to another well, that turns by so many
    /// degrees.
    void layBend(double degreesTurned) {
        const double angle = degreesTurned * module_tests::kPi / 180.0;
        const AcGeVector3d along{std::cos(angle), std::sin(angle), 0.0};
        const AcGePoint3d origin;
        drawing.addWell({-30.0, 0.0, 0.0});
        drawing.addWell(origin + along * 30.0);
        first = drawing.addPipe({-29.5, 0.0, 0.0}, origin);
        second = drawing.addPipe(origin, origin + along * 29.5);
    }

    AcDbObjectId first, second;
};

TEST_F(AngleTest, BendBeyondTheLimit) {
    layBend(18.5);
    const Finding finding = only("angle-at-joint", Severity::error);
    EXPECT_EQ(setOf(finding.entities), setOf({first, second}));
    expectMeasured(finding, 18.5, 18.0, "°");
    EXPECT_TRUE(report.networks.empty());
}

TEST_F(AngleTest, BendWithinTheLimit) {
    layBend(17.5);
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

/// How a pipe is drawn does not matter.
TEST_F(AngleTest, MeasuredBetweenDirectionsEitherWay) {
    layBend(160.0);
    expectMeasured(only("angle-at-joint", Severity::error), 20.0, 18.0, "°");
}

/// Out of an arc a chain goes on anywhere, into it only along its chord, here at 45 degrees. A
/// quarter circle has a bulge of the tangent of a quarter of 90 degrees.
TEST_F(AngleTest, ArcThatCanBeLeftButNotEntered) {
    drawing.addWell({0.0, 0.0, 0.0});
    const AcDbObjectId arc =
        drawing.addArcPipe({0.5, 0.0, 0.0}, {10.5, 10.0, 0.0}, std::tan(module_tests::kPi / 8.0));
    const AcDbObjectId line = drawing.addPipe({10.5, 10.0, 0.0}, {10.5, 30.0, 0.0});
    drawing.addWell({10.5, 30.5, 0.0});
    const Finding finding = only("angle-at-joint", Severity::warning);
    EXPECT_EQ(finding.entities, (Ids{line, arc}));
    expectMeasured(finding, 45.0, 18.0, "°");
    EXPECT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(finding.network, 0);
}

TEST_F(AngleTest, BranchIntoTheSideOfAPipe) {
    drawing.addWell({-30.0, 0.0, 0.0});
    drawing.addWell({30.0, 0.0, 0.0});
    drawing.addWell({0.0, 30.0, 0.0});
    const AcDbObjectId main = drawing.addPipe({-29.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    const AcDbObjectId branch = drawing.addPipe({0.0, 29.5, 0.0}, {0.0, 0.0, 0.0});
    const Finding finding = only("angle-at-joint", Severity::error);
    EXPECT_EQ(finding.entities, (Ids{branch, main}));
    expectMeasured(finding, 90.0, 18.0, "°");
}

TEST_F(AngleTest, BranchWithAWellAtTheMain) {
    drawing.addWell({-30.0, 0.0, 0.0});
    drawing.addWell({30.0, 0.0, 0.0});
    drawing.addWell({0.0, 30.0, 0.0});
    drawing.addWell({0.0, 0.0, 0.0});
    drawing.addPipe({-29.5, 0.0, 0.0}, {-0.5, 0.0, 0.0});
    drawing.addPipe({0.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    drawing.addPipe({0.0, 29.5, 0.0}, {0.0, 0.5, 0.0});
    expectNone();
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].runs.size(), 3U);
}

} // namespace check_tests
