#include "CheckTest.h"

namespace check_tests {

using module_tests::kSupply;

class TurnedRunTest : public CheckTest {
protected:
    AcDbObjectId supply(double from, double to, const wchar_t* flow) {
        return drawing.addPipe({from, 0.0, 0.0}, {to, 0.0, 0.0}, {.system = kSupply, .flow = flow});
    }
};

/// The water comes from x = 0, so the search begins there and comes to the first pipe at its end.
TEST_F(TurnedRunTest, FirstPipeOfAStraightRunDrawnBackwards) {
    const AcDbObjectId first = supply(10.0, 0.0, L"ES");
    const AcDbObjectId second = supply(10.0, 20.0, L"SE");
    const AcDbObjectId third = supply(20.0, 30.0, L"SE");
    const Finding finding = only("turned-run", Severity::error);
    EXPECT_EQ(finding.entities, (Ids{first, second, third}));
    ASSERT_EQ(report.networks.size(), 1U);
    ASSERT_EQ(report.networks[0].runs.size(), 1U);
    EXPECT_NEAR(report.networks[0].runs[0].length, 30.0, 1e-9);
}

TEST_F(TurnedRunTest, DrawnWithTheSearch) {
    supply(0.0, 10.0, L"SE");
    supply(20.0, 10.0, L"ES");
    supply(20.0, 30.0, L"SE");
    expectNone();
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(report.networks[0].runs.size(), 1U);
}

} // namespace check_tests
