#include "CheckedTown.h"

namespace check_tests {

using module_tests::kSupply;
using module_tests::TankTexts;
using pipenet::Finding;
using pipenet::Severity;

class MissingKeysTest : public StreetTest {
protected:
    void expectMissing(const Ids& entities, Severity severity, const std::string& key) {
        const Finding found = finding("missing-key");
        EXPECT_EQ(found.entities, entities);
        EXPECT_EQ(found.severity, severity);
        EXPECT_NE(found.sentence.find(key), std::string::npos) << found.sentence;
    }
};

TEST_F(MissingKeysTest, AWellWithoutNumberIsANote) {
    WellTexts texts;
    const AcDbObjectId silent = well(0, texts);
    expectMissing({silent}, Severity::note, "管井编号");
    drawing.setText(silent, L"管井编号", L"7");
    EXPECT_TRUE(findings("missing-key").empty());
}

TEST_F(MissingKeysTest, AWellWithoutDiameterIsAnErrorAndOneFindingForBothTexts) {
    WellTexts texts;
    texts.diameter = nullptr;
    const AcDbObjectId silent = well(0, texts);
    expectMissing({silent}, Severity::error, "井的直径, 管井编号");
    drawing.setText(silent, L"井的直径", L"1");
    expectMissing({silent}, Severity::note, "管井编号");
}

TEST_F(MissingKeysTest, AnEmptyTextIsAMissingOne) {
    const AcDbObjectId silent = well(0);
    EXPECT_TRUE(findings("missing-key").empty());
    drawing.setApplicationAlone(silent, L"井的直径");
    expectMissing({silent}, Severity::error, "井的直径");
}

TEST_F(MissingKeysTest, AWellWithoutTheNameOfItsSystemIsAnError) {
    WellTexts texts;
    texts.number = L"7";
    texts.system = L"";
    const AcDbObjectId silent = well(0, texts);
    expectMissing({silent}, Severity::error, "管井系统");
    EXPECT_TRUE(findings("unknown-system").empty());
}

TEST_F(MissingKeysTest, ABlockWithAWellsTextsThatIsNoWellIsAnError) {
    const AcDbObjectId stray = drawing.addBlock({0.0, 0.0, 0.0}, L"VLT_WELL_01",
                                                {{L"管井编号", L"7"}, {L"井的直径", L"1"}});
    expectMissing({stray}, Severity::error, "管井系统");
    drawing.setText(stray, L"管井系统", L"污水");
    EXPECT_TRUE(findings("missing-key").empty());
}

TEST_F(MissingKeysTest, ATankWantsBothOfItsMarks) {
    TankTexts texts;
    texts.length = L"8000";
    texts.system = nullptr;
    const AcDbObjectId nameless = drawing.addTank({0.0, 0.0, 0.0}, {8.0, 5.0, 0.0}, texts);
    expectMissing({nameless}, Severity::warning, "池体系统");
    drawing.setText(nameless, L"池体系统", L"污水");
    EXPECT_TRUE(findings("missing-key").empty());
    drawing.erase(nameless);
    texts.system = module_tests::kSewer;
    texts.tank = nullptr;
    const AcDbObjectId unmarked = drawing.addTank({0.0, 0.0, 0.0}, {8.0, 5.0, 0.0}, texts);
    expectMissing({unmarked}, Severity::error, "池体");
    EXPECT_EQ(finding("missing-key").system, "污水");
    drawing.setText(unmarked, L"池体", L"T");
    EXPECT_TRUE(findings("missing-key").empty());
}

TEST_F(MissingKeysTest, ATankWithoutLengthIsANote) {
    const AcDbObjectId tank = drawing.addTank({0.0, 0.0, 0.0}, {8.0, 5.0, 0.0});
    expectMissing({tank}, Severity::note, "长度");
}

TEST_F(MissingKeysTest, OneElevationAloneIsAnErrorAndNoneAWarning) {
    well(0);
    well(1);
    PipeTexts texts = soundPipe();
    texts.startElevation = nullptr;
    const AcDbObjectId silent = pipe(0, texts);
    expectMissing({silent}, Severity::error, "起点标高");
    EXPECT_TRUE(findings("slope-disagrees").empty()); // it is not a pipe that rises to 10 m
    drawing.setText(silent, L"终点标高", L"");
    expectMissing({silent}, Severity::warning, "起点标高, 终点标高");
}

TEST_F(MissingKeysTest, APressurePipeMayHaveNoElevationsButNotOne) {
    PipeTexts texts = soundPipe();
    texts.system = kSupply;
    texts.startElevation = nullptr;
    texts.endElevation = nullptr;
    const AcDbObjectId silent = drawing.addPipe({0.0, 0.0, 0.0}, {32.0, 0.0, 0.0}, texts);
    EXPECT_TRUE(findings("missing-key").empty());
    drawing.setText(silent, L"终点标高", L"3");
    expectMissing({silent}, Severity::warning, "起点标高");
}

TEST_F(MissingKeysTest, APipeWithoutDiameterIsAWarning) {
    well(0);
    well(1);
    PipeTexts texts = soundPipe();
    texts.diameter = nullptr;
    const AcDbObjectId silent = pipe(0, texts);
    expectMissing({silent}, Severity::warning, "管径");
}

TEST_F(MissingKeysTest, ACurveWithAPipesTextsThatIsNoPipeIsAnError) {
    const AcDbObjectId stray =
        drawing.addEntity(new AcDbLine({0.0, 0.0, 0.0}, {9.0, 0.0, 0.0}), {{L"管径", L"300"}});
    expectMissing({stray}, Severity::error, "管道系统");
    drawing.erase(stray);
    drawing.addEntity(new AcDbLine({0.0, 0.0, 0.0}, {9.0, 0.0, 0.0}), {{L"管材", L"PE"}});
    EXPECT_TRUE(findings("missing-key").empty());
}

TEST_F(MissingKeysTest, AnEntityWithoutASystemIsLeftOutOfTheCheckOfOneSystem) {
    drawing.addEntity(new AcDbLine({0.0, 0.0, 0.0}, {9.0, 0.0, 0.0}), {{L"管径", L"300"}});
    well(0, WellTexts());
    const pipenet::CheckReport report = pipenet::checkDrawing("污水");
    std::vector<std::string> systems;
    for (const Finding& each : report.findings) {
        if (each.code == "missing-key") {
            systems.push_back(each.system);
        }
    }
    EXPECT_EQ(systems, std::vector<std::string>{"污水"}); // that of the well without number
}

} // namespace check_tests
