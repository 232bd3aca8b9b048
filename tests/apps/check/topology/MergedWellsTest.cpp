#include "CheckTest.h"

namespace check_tests {

/// Wells of one metre merge when their centres are at most 0.5 + 0.5 + 0.01 apart.
class MergedWellsTest : public CheckTest {
protected:
    void layRun(double apart) {
        root = drawing.addWell({0.0, 0.0, 0.0});
        beside = drawing.addWell({0.0, apart, 0.0});
        drawing.addWell({30.0, 0.0, 0.0});
        drawing.addPipe({0.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    }

    AcDbObjectId root, beside;
};

TEST_F(MergedWellsTest, OverlappingWells) {
    layRun(1.009);
    const Finding finding = only("merged-wells", Severity::note);
    EXPECT_EQ(finding.entities, (Ids{root, beside}));
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].nodes.size(), 2U);
    EXPECT_TRUE(report.loose.empty());
}

TEST_F(MergedWellsTest, WellsSideBySide) {
    layRun(1.0125);
    check();
    EXPECT_TRUE(found("merged-wells").empty());
    EXPECT_EQ(report.loose, Ids{beside});
}

} // namespace check_tests
