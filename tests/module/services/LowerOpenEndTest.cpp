// Lowering a pipe whose stretch has a well at one end only, and the end of the pipe by which the
// limit is formed.

#include "TKVltSearchModule18.h"

#include "module/services/LoweringTest.h"

namespace module_tests {
namespace {

/// P has a well at its start and nothing at its end; Q leads on from that well. Both stop short of
/// the well's centre: touching, Q would be taken for the overlapping continuation of P.
///
///   ----P---o A ---Q--->o C        P is drawn from A to the left
///  -100     0          100
class LowerOpenEndTest : public LoweringTest {
protected:
    void draw(const wchar_t* flow) {
        drawing.addWell({0, 0, 0});
        drawing.addWell({100, 0, 0});
        p = pipe({-0.4, 0, 0}, {-100, 0, 0}, flow, L"10", L"11");
        q = pipe({0.4, 0, 0}, {100, 0, 0}, L"SE", L"30", L"29");
    }

    AcDbObjectId p;
    AcDbObjectId q;
};

// Limit 8.5 + 1; Q has tops 30 and 31, and sinks by 20.5.
TEST_F(LowerOpenEndTest, WaterThatRunsToTheOnlyWellCarriesTheLoweringOn) {
    draw(L"ES");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    EXPECT_EQ(heights(q), (HeightTexts{"8.5", "9.5"}));
}

TEST_F(LowerOpenEndTest, WaterThatComesFromTheOnlyWellLowersThePipeAlone) {
    draw(L"SE");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    expectUnchanged(q);
}

// Any text but "ES" counts as "SE".
TEST_F(LowerOpenEndTest, OtherFlowTextsLowerThePipeAlone) {
    draw(L"es");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    expectUnchanged(q);
}

// A lone well is no network, so a search would give 0.
TEST_F(LowerOpenEndTest, NoSearchRunsWhenTheWaterComesFromTheOnlyWell) {
    drawing.addWell({0, 0, 0});
    p = pipe({-0.4, 0, 0}, {-100, 0, 0}, L"SE", L"10", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
}

TEST_F(LowerOpenEndTest, PipeStaysWrittenWhenTheSearchThenFails) {
    drawing.addWell({0, 0, 0});
    p = pipe({-0.4, 0, 0}, {-100, 0, 0}, L"ES", L"10", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
}

TEST_F(LowerOpenEndTest, TankOfAnUnknownSystemLowersThePipeAlone) {
    drawing.addTank({-5, -5, 0}, {5, 5, 0}, {.system = L"燃气"});
    drawing.addWell({100, 0, 0});
    p = pipe({-5, 0, 0}, {-100, 0, 0}, L"ES", L"10", L"11");
    q = pipe({5, 0, 0}, {100, 0, 0}, L"SE", L"30", L"29");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    expectUnchanged(q);
}

// The other pipes of the run to the well stay.
TEST_F(LowerOpenEndTest, OnlyThePipeItselfIsWritten) {
    drawing.addWell({0, 0, 0});
    drawing.addWell({100, 0, 0});
    const AcDbObjectId between = pipe({-0.4, 0, 0}, {-50, 0, 0}, L"ES", L"10", L"11");
    p = pipe({-50, 0, 0}, {-100, 0, 0}, L"ES", L"11", L"12");
    q = pipe({0.4, 0, 0}, {100, 0, 0}, L"SE", L"8", L"7");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"10", "11"}));
    expectUnchanged(between);
    expectUnchanged(q);
}

// A stretch that is open where the search would begin: the search has nowhere to start from.
TEST_F(LowerOpenEndTest, WellAtThePipesEndAloneGivesZeroAndChangesNothing) {
    drawing.addWell({0, 0, 0});
    drawing.addWell({100, 0, 0});
    p = pipe({-100, 0, 0}, {-0.4, 0, 0}, L"SE", L"11", L"10");
    q = pipe({0.4, 0, 0}, {100, 0, 0}, L"SE", L"30", L"29");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    expectNothingChanged();
}

/// The run out of P's start turns round in an arc and ends at W, which is nearer to P's end than to
/// its start: 110 and more from (0, 0), 22 from (100, 0). The arc bends away from P.
///
///             ...arc...
///         ..'           '..
///        '                 o W (110, 20) ---Q--->o (210, 20)
///    (0, 0)-------P------->(100, 0)
class LowerByNearnessTest : public LoweringTest {
protected:
    void draw(const wchar_t* flow, bool wellAtEnd, const AcGePoint3d& w = {110, 20, 0}) {
        drawing.addWell(w);
        drawing.addWell({w.x + 100, w.y, 0});
        p = pipe({0, 0, 0}, {100, 0, 0}, flow, L"10", L"12");
        arc = remembered(drawing.addArcPipe(
            {0, 0, 0}, {w.x - 0.4, w.y, 0}, -1.0,
            {.diameter = L"1000", .flow = L"SE", .startElevation = L"1", .endElevation = L"1"}));
        q = pipe({w.x + 0.4, w.y, 0}, {w.x + 100, w.y, 0}, L"SE", L"30", L"29");
        if (wellAtEnd) {
            drawing.addWell({100, 0, 0});
        }
    }

    AcDbObjectId p;
    AcDbObjectId arc;
    AcDbObjectId q;
};

TEST_F(LowerByNearnessTest, WaterThatComesFromTheNearerEndStops) {
    draw(L"ES", false);
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"9", "11"}));
    expectUnchanged(q);
}

// Limit 11 + 1, from the end's height: Q, tops 30 and 31, comes to tops 12 and 13.
TEST_F(LowerByNearnessTest, WaterThatRunsToTheNearerEndTakesTheEndsHeight) {
    draw(L"SE", false);
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"9", "11"}));
    EXPECT_EQ(heights(q), (HeightTexts{"11", "12"}));
    expectUnchanged(arc);
}

// W above the middle of P is as far from its start as from its end, which counts as the start.
TEST_F(LowerByNearnessTest, SameDistanceCountsAsTheStart) {
    draw(L"ES", false, {50, 14, 0});
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"9", "11"}));
    EXPECT_EQ(heights(q), (HeightTexts{"9", "10"})); // limit 9 + 1
}

TEST_F(LowerByNearnessTest, WaterThatComesFromTheStartAtTheSameDistanceStops) {
    draw(L"SE", false, {50, 14, 0});
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"9", "11"}));
    expectUnchanged(q);
}

// Between two wells the nearness alone decides, whatever the direction.
TEST_F(LowerByNearnessTest, BetweenTwoWellsTheDirectionPlaysNoPart) {
    for (const wchar_t* flow : {L"ES", L"SE"}) {
        if (!p.isNull()) {
            drawing.setText(p, L"水流方向", flow);
            drawing.setText(p, L"起点标高", L"10");
            drawing.setText(p, L"终点标高", L"12");
            drawing.setText(q, L"起点标高", L"30");
            drawing.setText(q, L"终点标高", L"29");
        } else {
            draw(flow, true);
        }
        EXPECT_EQ(LowerHeightForCollideTest(p, 1.0), 1);
        EXPECT_EQ(heights(q), (HeightTexts{"11", "12"}));
    }
}

} // namespace
} // namespace module_tests
