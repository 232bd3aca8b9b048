#include "CheckedTown.h"

namespace check_tests {

using pipenet::Finding;
using pipenet::Severity;

class HeightsTest : public StreetTest {
protected:
    void SetUp() override {
        well(0);
        well(1);
    }

    static PipeTexts between(const wchar_t* start, const wchar_t* end,
                             const wchar_t* flow = L"SE") {
        PipeTexts texts = soundPipe();
        texts.startElevation = start;
        texts.endElevation = end;
        texts.flow = flow;
        return texts;
    }
};

TEST_F(HeightsTest, APipeThatRisesAlongItsWaterIsTold) {
    const AcDbObjectId rising = pipe(0, between(L"10", L"10.5"));
    const Finding found = finding("heights-against-flow");
    EXPECT_EQ(found.entities, Ids{rising});
    EXPECT_EQ(found.severity, Severity::warning);
    EXPECT_EQ(found.measured, 0.5);
    EXPECT_EQ(found.limit, 0.0);
    EXPECT_EQ(found.unit, "m");
    EXPECT_EQ(found.network, 0);
    EXPECT_TRUE(module_tests::samePoint(found.place, {16.5, 0.0, 0.0}));
}

TEST_F(HeightsTest, ALevelPipeIsSoundAndOneThatRisesByAMillimetreIsNot) {
    const AcDbObjectId level = pipe(0, between(L"10", L"10"));
    EXPECT_TRUE(findings("heights-against-flow").empty());
    drawing.setText(level, L"终点标高", L"10.001");
    EXPECT_NEAR(finding("heights-against-flow").measured.value_or(0.0), 0.001, 1e-12);
}

TEST_F(HeightsTest, TheStartElevationBelongsToThePipesStartWhateverTheFlow) {
    const AcDbObjectId turned = pipe(0, between(L"10", L"10.5", L"ES"));
    EXPECT_TRUE(findings("heights-against-flow").empty());
    drawing.setText(turned, L"终点标高", L"9.5");
    EXPECT_EQ(finding("heights-against-flow").measured, 0.5);
}

TEST_F(HeightsTest, TheRisingPiecesOfARunAreOneFindingAndTheSteepestIsMeasured) {
    // Three pieces with gaps of 0.2; 10.25 to 10 is sound, the others rise by 0.25 and 0.75. The
    // steepest comes first.
    const auto piece = [this](double from, double to, const PipeTexts& texts) {
        return drawing.addPipe({from, 0.0, 0.0}, {to, 0.0, 0.0}, texts);
    };
    const AcDbObjectId first = piece(0.5, 10.0, between(L"10", L"10.25"));
    piece(10.2, 20.0, between(L"10.25", L"10"));
    const AcDbObjectId third = piece(32.5, 20.2, between(L"10.75", L"10", L"ES"));
    const Finding found = finding("heights-against-flow");
    EXPECT_EQ(found.entities, (Ids{third, first}));
    EXPECT_EQ(found.measured, 0.75);
}

TEST_F(HeightsTest, UnderPressureWaterMayRise) {
    PipeTexts texts = between(L"10", L"12");
    texts.system = module_tests::kSupply;
    drawing.addPipe({0.0, 9.0, 0.0}, {32.0, 9.0, 0.0}, texts);
    EXPECT_TRUE(findings("heights-against-flow").empty());
}

TEST_F(HeightsTest, PiecesOfOneRunThatFlowAgainstEachOtherAreOneError) {
    PipeTexts texts = between(L"10", L"9.875");
    const AcDbObjectId first = drawing.addPipe({0.5, 0.0, 0.0}, {16.0, 0.0, 0.0}, texts);
    texts = between(L"9.875", L"9.75", L"ES");
    const AcDbObjectId second = drawing.addPipe({16.2, 0.0, 0.0}, {32.5, 0.0, 0.0}, texts);
    const Finding found = finding("pieces-differ");
    EXPECT_EQ(found.entities, (Ids{second, first}));
    EXPECT_EQ(found.severity, Severity::error);
    EXPECT_NE(found.sentence.find("the way of the water"), std::string::npos);
    EXPECT_TRUE(findings("heights-against-flow").empty()); // the same fault
    drawing.setText(second, L"水流方向", L"SE");
    EXPECT_TRUE(findings("pieces-differ").empty());
}

TEST_F(HeightsTest, PiecesOfOneRunThatDifferInSizeOrMaterialAreAWarning) {
    const AcDbObjectId first = drawing.addPipe({0.5, 0.0, 0.0}, {16.0, 0.0, 0.0}, soundPipe());
    const AcDbObjectId second = drawing.addPipe({16.2, 0.0, 0.0}, {32.5, 0.0, 0.0}, soundPipe());
    EXPECT_TRUE(findings("pieces-differ").empty());
    drawing.setText(second, L"管径", L"200");
    Finding found = finding("pieces-differ");
    EXPECT_EQ(found.entities, (Ids{second, first}));
    EXPECT_EQ(found.severity, Severity::warning);
    EXPECT_NE(found.sentence.find("size (DN200, not DN300)"), std::string::npos) << found.sentence;
    drawing.setText(second, L"管径", L"300");
    drawing.setText(second, L"管材", L"PVC");
    found = finding("pieces-differ");
    EXPECT_NE(found.sentence.find("material (PVC, not PE)"), std::string::npos) << found.sentence;
}

} // namespace check_tests
