#include "CheckTest.h"

namespace check_tests {

class ShortPipeTest : public CheckTest {
protected:
    /// Two wells 30 m apart and a run of three pipes between them, the middle one this long.
    AcDbObjectId layRun(double middle) {
        drawing.addWell({0.0, 0.0, 0.0});
        drawing.addWell({30.0, 0.0, 0.0});
        drawing.addPipe({0.5, 0.0, 0.0}, {10.0, 0.0, 0.0});
        const AcDbObjectId pipe = drawing.addPipe({10.0, 0.0, 0.0}, {10.0 + middle, 0.0, 0.0});
        drawing.addPipe({10.0 + middle, 0.0, 0.0}, {29.5, 0.0, 0.0});
        return pipe;
    }
};

TEST_F(ShortPipeTest, OneUnitIsTooShort) {
    const AcDbObjectId pipe = layRun(1.0);
    const Finding finding = only("pipe-too-short", Severity::error);
    EXPECT_EQ(finding.entities, Ids{pipe});
    expectMeasured(finding, 1.0, 1.0, "m");
    EXPECT_TRUE(report.networks.empty());
    EXPECT_EQ(report.loose.size(), 5U);
}

TEST_F(ShortPipeTest, LongerThanOneUnitIsEnough) {
    layRun(1.0625);
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

/// At draw scale 500 a drawing unit is half a metre.
TEST_F(ShortPipeTest, MeasuredInMetres) {
    drawing.setDrawScale(500.0);
    drawing.addPipe({0.0, 0.0, 0.0}, {0.5, 0.0, 0.0});
    expectMeasured(only("pipe-too-short", Severity::error), 0.25, 0.5, "m");
}

TEST_F(ShortPipeTest, PressurePipe) {
    const AcDbObjectId pipe =
        drawing.addPipe({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {.system = module_tests::kSupply});
    EXPECT_EQ(only("pipe-too-short", Severity::error).entities, Ids{pipe});
    EXPECT_EQ(report.loose, Ids{pipe});
}

} // namespace check_tests
