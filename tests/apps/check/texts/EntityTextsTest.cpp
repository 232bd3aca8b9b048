#include "CheckedTown.h"

namespace check_tests {

using module_tests::kStorm;
using module_tests::kSupply;
using pipenet::Finding;
using pipenet::Severity;

class EntityTextsTest : public StreetTest {
protected:
    /// Two wells and a pipe between them with these texts.
    void layStreet(const PipeTexts& texts) {
        first_ = well(0);
        second_ = well(1);
        pipe_ = pipe(0, texts);
    }

    AcDbObjectId first_;
    AcDbObjectId second_;
    AcDbObjectId pipe_;
};

TEST_F(EntityTextsTest, ASoundStreetHasNoFinding) {
    layStreet(soundPipe());
    for (const Finding& each : report().findings) {
        ADD_FAILURE() << each.code << ": " << each.sentence;
    }
}

TEST_F(EntityTextsTest, WellsOfOneNumberInOneSystemAreToldOnce) {
    layStreet(soundPipe());
    WellTexts texts;
    texts.number = L"1";
    const AcDbObjectId third = well(5, texts);
    const Finding found = finding("duplicate-number");
    EXPECT_EQ(found.entities, (Ids{second_, third}));
    EXPECT_EQ(found.severity, Severity::warning);
    EXPECT_EQ(found.system, "污水");
    EXPECT_EQ(found.measured, 2.0);
    EXPECT_EQ(found.limit, 1.0);
    EXPECT_TRUE(module_tests::samePoint(found.place, {33.0, 0.0, 0.0}));
    EXPECT_EQ(found.network, 0);
}

TEST_F(EntityTextsTest, ANumberIsTheSameLetterForLetterAndWithinOneSystem) {
    layStreet(soundPipe());
    WellTexts texts;
    texts.number = L"1";
    texts.system = kStorm;
    well(5, texts);
    texts.system = module_tests::kSewer;
    texts.number = L"01";
    well(6, texts);
    texts.number = L"";
    well(7, texts);
    well(8, texts);
    EXPECT_TRUE(findings("duplicate-number").empty());
}

TEST_F(EntityTextsTest, AFlowTextOfAnotherCaseIsAnErrorWhereWaterRunsByGravity) {
    PipeTexts texts = soundPipe();
    texts.flow = L"se";
    layStreet(texts);
    const Finding found = finding("flow-text");
    EXPECT_EQ(found.entities, Ids{pipe_});
    EXPECT_EQ(found.severity, Severity::error);
    EXPECT_TRUE(module_tests::samePoint(found.place, {16.5, 0.0, 0.0}));
    EXPECT_NE(found.sentence.find("'se'"), std::string::npos);
}

TEST_F(EntityTextsTest, BothFlowTextsThatMeanSomethingAreSound) {
    PipeTexts texts = soundPipe();
    layStreet(texts);
    well(2);
    texts.flow = L"ES";
    pipe(1, texts);
    EXPECT_TRUE(findings("flow-text").empty());
}

TEST_F(EntityTextsTest, AMissingFlowTextIsANoteUnderPressureAndAWrongOneAWarning) {
    PipeTexts texts = soundPipe();
    texts.system = kSupply;
    texts.flow = nullptr;
    const AcDbObjectId silent = drawing.addPipe({0.0, 9.0, 0.0}, {32.0, 9.0, 0.0}, texts);
    EXPECT_EQ(finding("flow-text").severity, Severity::note);
    EXPECT_EQ(finding("flow-text").entities, Ids{silent});
    drawing.setText(silent, L"水流方向", L"S E");
    EXPECT_EQ(finding("flow-text").severity, Severity::warning);
}

TEST_F(EntityTextsTest, AnElevationWithAUnitIsReadAsItsNumberAndTold) {
    PipeTexts texts = soundPipe();
    texts.startElevation = L"12.5m";
    layStreet(texts);
    const Finding found = finding("number-not-whole");
    EXPECT_EQ(found.entities, Ids{pipe_});
    EXPECT_EQ(found.severity, Severity::warning);
    EXPECT_EQ(found.measured, 12.5);
    EXPECT_EQ(found.unit, "m");
    EXPECT_FALSE(found.limit.has_value());
    EXPECT_NE(found.sentence.find("'12.5m'"), std::string::npos);
}

TEST_F(EntityTextsTest, ATextWithoutANumberIsReadAsZeroWhichIsAnError) {
    PipeTexts texts = soundPipe();
    texts.diameter = L"DN300";
    layStreet(texts);
    const Finding found = finding("number-not-whole");
    EXPECT_EQ(found.entities, Ids{pipe_});
    EXPECT_EQ(found.severity, Severity::error);
    EXPECT_EQ(found.measured, 0.0);
    EXPECT_EQ(found.unit, "mm");
}

TEST_F(EntityTextsTest, ADiameterIsReadInWholeMillimetres) {
    PipeTexts texts = soundPipe();
    texts.diameter = L"300.5";
    layStreet(texts);
    EXPECT_EQ(finding("number-not-whole").measured, 300.0);
    drawing.setText(pipe_, L"管径", L"3e2"); // the digits end at the e
    EXPECT_EQ(finding("number-not-whole").measured, 3.0);
    drawing.setText(pipe_, L"管径", L"300.0");
    EXPECT_TRUE(findings("number-not-whole").empty());
}

TEST_F(EntityTextsTest, BlanksAndExponentsBelongToANumber) {
    PipeTexts texts = soundPipe();
    texts.startElevation = L" 1e1 ";
    texts.slope = L"-.0";
    texts.endElevation = L"+10.";
    layStreet(texts);
    EXPECT_TRUE(findings("number-not-whole").empty());
    drawing.setText(pipe_, L"起点标高", L"10,0");
    EXPECT_EQ(finding("number-not-whole").measured, 10.0);
}

TEST_F(EntityTextsTest, EachSpoiltTextIsAFindingOfItsOwn) {
    PipeTexts texts = soundPipe();
    texts.startElevation = L"10?";
    texts.endElevation = L"10?";
    layStreet(texts);
    EXPECT_EQ(findings("number-not-whole").size(), 2U);
}

TEST_F(EntityTextsTest, SizesOfWellsAndTanksAreNumbersToo) {
    layStreet(soundPipe());
    drawing.setText(first_, L"井的直径", L"1 m");
    EXPECT_EQ(finding("number-not-whole").entities, Ids{first_});
    EXPECT_EQ(finding("number-not-whole").measured, 1.0);
    drawing.setText(first_, L"井的直径", L"1");
    module_tests::TankTexts texts;
    texts.length = L"8000mm";
    const AcDbObjectId tank = drawing.addTank({200.0, 0.0, 0.0}, {208.0, 5.0, 0.0}, texts);
    EXPECT_EQ(finding("number-not-whole").entities, Ids{tank});
    EXPECT_EQ(finding("number-not-whole").measured, 8000.0);
}

TEST_F(EntityTextsTest, ASpoiltTextIsNotWeighedAgainstOthersAsWell) {
    PipeTexts texts = soundPipe();
    texts.endElevation = L"l0"; // read as 0, which would be a fall of 10 m
    layStreet(texts);
    EXPECT_EQ(findings("number-not-whole").size(), 1U);
    EXPECT_TRUE(findings("slope-disagrees").empty());
    drawing.setText(pipe_, L"水流方向", L"ES"); // and against the flow
    EXPECT_TRUE(findings("heights-against-flow").empty());
}

TEST_F(EntityTextsTest, ASystemThatTheSettingsDoNotKnowIsToldOnceWithAllOfIt) {
    layStreet(soundPipe());
    PipeTexts texts = soundPipe();
    texts.system = L"污水 ";
    WellTexts wellTexts;
    wellTexts.system = L"污水 ";
    const AcDbObjectId strangePipe = pipe(4, texts);
    const AcDbObjectId strangeWell = well(4, wellTexts);
    const Finding found = finding("unknown-system");
    EXPECT_EQ(found.entities, (Ids{strangePipe, strangeWell}));
    EXPECT_EQ(found.severity, Severity::error);
    EXPECT_EQ(found.system, "污水 ");
    EXPECT_EQ(found.network, -1);
}

TEST_F(EntityTextsTest, ASystemWithoutGroupTypeIsUnknownAndOneWithItIsNot) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupFlag = W\n");
    layStreet(soundPipe());
    EXPECT_EQ(finding("unknown-system").entities, (Ids{first_, second_, pipe_}));
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 重力流\n");
    EXPECT_TRUE(findings("unknown-system").empty());
}

} // namespace check_tests
