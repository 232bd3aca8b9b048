#include "CheckedTown.h"

namespace check_tests {

using pipenet::Finding;
using pipenet::Severity;

/// Three wells in a street; the water runs to the east.
class DiametersTest : public StreetTest {
protected:
    void SetUp() override {
        well(0);
        middle_ = well(1);
        well(2);
    }

    AcDbObjectId lay(int n, const wchar_t* diameter, const wchar_t* flow = L"SE") {
        PipeTexts texts = soundPipe();
        texts.diameter = diameter;
        texts.flow = flow;
        return pipe(n, texts);
    }

    static bool shrinks() { return !findings("diameter-shrinks").empty(); }

    AcDbObjectId middle_;
};

TEST_F(DiametersTest, ASmallerPipeBehindAWiderOneIsTold) {
    const AcDbObjectId upper = lay(0, L"400");
    const AcDbObjectId lower = lay(1, L"399");
    const Finding found = finding("diameter-shrinks");
    EXPECT_EQ(found.entities, (Ids{lower, upper, middle_}));
    EXPECT_EQ(found.severity, Severity::warning);
    EXPECT_EQ(found.measured, 399.0);
    EXPECT_EQ(found.limit, 400.0);
    EXPECT_EQ(found.unit, "mm");
    EXPECT_TRUE(module_tests::samePoint(found.place, {33.0, 0.0, 0.0}));
}

TEST_F(DiametersTest, PipesOfOneSizeAreSound) {
    lay(0, L"400");
    lay(1, L"400");
    EXPECT_FALSE(shrinks());
}

TEST_F(DiametersTest, TheWaterDecidesWhichOneFollows) {
    lay(0, L"300", L"ES");
    lay(1, L"400", L"ES");
    EXPECT_TRUE(shrinks());
    drawing.startAnew();
    SetUp();
    lay(0, L"400", L"ES");
    lay(1, L"300", L"ES");
    EXPECT_FALSE(shrinks());
}

TEST_F(DiametersTest, TheWidestOutletCounts) {
    lay(0, L"400");
    lay(1, L"300");
    WellTexts texts;
    texts.number = L"9";
    drawing.addWell({33.0, -33.0, 0.0}, texts);
    PipeTexts branch = soundPipe();
    branch.diameter = L"400";
    const AcDbObjectId second = drawing.addPipe({33.0, -0.5, 0.0}, {33.0, -32.5, 0.0}, branch);
    EXPECT_FALSE(shrinks());
    drawing.setText(second, L"管径", L"350");
    const Finding found = finding("diameter-shrinks");
    EXPECT_EQ(found.entities.front(), second);
    EXPECT_EQ(found.measured, 350.0);
}

TEST_F(DiametersTest, ASizeThatCannotBeReadIsNotWeighed) {
    lay(0, L"400");
    const AcDbObjectId lower = lay(1, L"DN400");
    EXPECT_EQ(findings("number-not-whole").size(), 1U);
    EXPECT_FALSE(shrinks());
    drawing.setText(lower, L"管径", L"");
    EXPECT_FALSE(shrinks());
}

} // namespace check_tests
