#include "CheckedTown.h"

namespace check_tests {

using pipenet::Finding;
using pipenet::Severity;

/// A pipe of 32 m between two wells whose centres are 33 m apart.
class SlopesTest : public StreetTest {
protected:
    void SetUp() override {
        well(0);
        well(1);
    }

    void lay(const wchar_t* end, const wchar_t* slope, const wchar_t* flow = L"SE") {
        PipeTexts texts = soundPipe();
        texts.endElevation = end;
        texts.slope = slope;
        texts.flow = flow;
        pipe_ = pipe(0, texts);
    }

    void setSlope(const wchar_t* slope) { drawing.setText(pipe_, L"坡度", slope); }

    static bool disagrees() { return !findings("slope-disagrees").empty(); }

    AcDbObjectId pipe_;
};

TEST_F(SlopesTest, ASmallFallMayDifferByTwoCentimetres) {
    // The elevations fall 0.125 m; a tenth of that is less than two centimetres. Of a slope that is
    // too steep the shorter length, 32 m, fits better: 0.00453 gives 0.14496 m, 0.01996 m too
    // much, and 0.00454 gives 0.14528 m, 0.02028 m too much.
    lay(L"9.875", L"0.00453");
    EXPECT_FALSE(disagrees());
    setSlope(L"0.00454");
    const Finding found = finding("slope-disagrees");
    EXPECT_EQ(found.entities, Ids{pipe_});
    EXPECT_EQ(found.severity, Severity::warning);
    EXPECT_NEAR(found.measured.value_or(0.0), 0.02028, 1e-9);
    EXPECT_NEAR(found.limit.value_or(0.0), 0.02, 1e-12);
    EXPECT_EQ(found.unit, "m");
    EXPECT_EQ(found.network, 0);
}

TEST_F(SlopesTest, AFlatterSlopeIsReckonedFromCentreToCentre) {
    // Over 33 m 0.00319 gives 0.10527 m, 0.01973 m too little; 0.00318 gives 0.10494 m, 0.02006 m
    // too little. Over 32 m both would be too little.
    lay(L"9.875", L"0.00319");
    EXPECT_FALSE(disagrees());
    setSlope(L"0.00318");
    EXPECT_NEAR(finding("slope-disagrees").measured.value_or(0.0), 0.02006, 1e-9);
}

TEST_F(SlopesTest, ALargeFallMayDifferByATenth) {
    // A fall of 2 m may be told as 1.8 to 2.2 m: at 32 m 0.0687 gives 2.1984 m, 0.0688 2.2016 m.
    lay(L"8", L"0.0687");
    EXPECT_FALSE(disagrees());
    setSlope(L"0.0688");
    const Finding found = finding("slope-disagrees");
    EXPECT_NEAR(found.measured.value_or(0.0), 0.2016, 1e-9);
    EXPECT_NEAR(found.limit.value_or(0.0), 0.2, 1e-12);
}

TEST_F(SlopesTest, ASlopeUphillDoesNotFitAPipeThatFalls) {
    lay(L"9.6", L"-0.0125"); // 0.4 m over 32 m
    EXPECT_TRUE(disagrees());
    setSlope(L"0.0125");
    EXPECT_FALSE(disagrees());
}

TEST_F(SlopesTest, OfAPipeThatRisesAlongItsWaterTheSignIsNotToldTwice) {
    lay(L"9.6", L"0.0125", L"ES");
    EXPECT_EQ(findings("heights-against-flow").size(), 1U);
    EXPECT_FALSE(disagrees());
    setSlope(L"-0.0125");
    EXPECT_FALSE(disagrees());
    setSlope(L"0.02"); // 0.64 m is not 0.4 m, whichever way
    EXPECT_TRUE(disagrees());
}

TEST_F(SlopesTest, APipeWithoutSlopeTextSaysNothing) {
    lay(L"8", L"0.0625");
    drawing.setText(pipe_, L"坡度", L"");
    EXPECT_FALSE(disagrees());
    setSlope(L"0");
    EXPECT_TRUE(disagrees()); // it says level
}

TEST_F(SlopesTest, PiecesMayCarryTheirOwnElevationsOrThoseOfTheRun) {
    // Two pieces of 15.9 m with a gap of 0.2 m, at a slope of 0.0625.
    PipeTexts texts = soundPipe();
    texts.slope = L"0.0625";
    texts.endElevation = L"9.006"; // 15.9 x 0.0625 = 0.99375 m
    drawing.addPipe({0.5, 0.0, 0.0}, {16.4, 0.0, 0.0}, texts);
    texts.startElevation = L"9";
    texts.endElevation = L"8.006";
    const AcDbObjectId second = drawing.addPipe({16.6, 0.0, 0.0}, {32.5, 0.0, 0.0}, texts);
    EXPECT_FALSE(disagrees());
    drawing.setText(second, L"起点标高", L"10"); // 1.994 m over the run of 31.8 m
    EXPECT_FALSE(disagrees());
    drawing.setText(second, L"起点标高", L"9.5"); // 1.494 m fits neither 15.9 m nor 31.8 m
    EXPECT_EQ(finding("slope-disagrees").entities, Ids{second});
}

TEST_F(SlopesTest, UnderPressureASlopeHasNoDirectionAndNoughtSaysNothing) {
    PipeTexts texts = soundPipe();
    texts.system = module_tests::kSupply;
    texts.endElevation = L"12";
    texts.slope = L"0.0625";
    pipe_ = drawing.addPipe({0.0, 9.0, 0.0}, {32.0, 9.0, 0.0}, texts);
    EXPECT_FALSE(disagrees());
    setSlope(L"0");
    EXPECT_FALSE(disagrees());
    setSlope(L"0.07"); // 2.24 m instead of 2 m
    EXPECT_TRUE(disagrees());
}

TEST_F(SlopesTest, LengthsAreMetresWhateverTheDrawingUnit) {
    // A unit is half a metre: the same street as above, drawn twice as large.
    drawing.startAnew();
    drawing.setDrawScale(500.0);
    WellTexts texts;
    drawing.addWell({0.0, 0.0, 0.0}, texts);
    drawing.addWell({66.0, 0.0, 0.0}, texts);
    PipeTexts pipeTexts = soundPipe();
    pipeTexts.endElevation = L"9.875";
    pipeTexts.slope = L"0.00453";
    pipe_ = drawing.addPipe({1.0, 0.0, 0.0}, {65.0, 0.0, 0.0}, pipeTexts);
    EXPECT_FALSE(disagrees());
    setSlope(L"0.00454");
    EXPECT_NEAR(finding("slope-disagrees").measured.value_or(0.0), 0.02028, 1e-9);
    setSlope(L"0.00319");
    EXPECT_FALSE(disagrees());
    EXPECT_NEAR(report().systems.front().length, 32.0, 1e-9);
}

TEST_F(SlopesTest, ALoosePipeIsWeighedByItsOwnLength) {
    PipeTexts texts = soundPipe();
    texts.endElevation = L"8";
    texts.slope = L"0.0625";
    pipe_ = drawing.addPipe({0.0, 50.0, 0.0}, {32.0, 50.0, 0.0}, texts);
    EXPECT_FALSE(disagrees());
    setSlope(L"0.1");
    EXPECT_EQ(finding("slope-disagrees").entities, Ids{pipe_});
    EXPECT_EQ(finding("slope-disagrees").network, -1);
}

} // namespace check_tests
