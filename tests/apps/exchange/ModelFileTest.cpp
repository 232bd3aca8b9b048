#include "exchange/ModelFile.h"

#include "exchange/PipeModel.h"
#include "Failure.h"
#include "siblings/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using pipenet::ModelFile;

class ModelFileTest : public ::testing::Test {
protected:
    std::string write(const std::string& text) {
        folder_.write("m.inp", text);
        return (folder_.path() / "m.inp").string();
    }
    ModelFile read(const std::string& text) { return ModelFile(write(text)); }

private:
    sibling_tests::TemporaryFolder folder_;
};

using Words = std::vector<std::string>;

TEST_F(ModelFileTest, RowsAreWordsWithoutComment) {
    const ModelFile file = read("[JUNCTIONS]\n;only a comment\n  A\t1.5 ;said behind\r\n\n B;2\n");
    ASSERT_EQ(file.rows("JUNC").size(), 2U);
    EXPECT_EQ(file.rows("JUNC")[0].words, (Words{"A", "1.5"}));
    EXPECT_EQ(file.rows("JUNC")[0].line, 3);
    EXPECT_EQ(file.rows("JUNC")[1].words, (Words{"B"}));
    EXPECT_EQ(file.rows("JUNC")[1].line, 5);
}

TEST_F(ModelFileTest, SectionsCountByFourLettersInAnyCaseAndGoOn) {
    const ModelFile file = read("[Junctions]\nA 1\n[PIPES]\nP\n[junc]\nB 2\n");
    EXPECT_EQ(file.rows("JUNC").size(), 2U);
    EXPECT_TRUE(file.has("PIPE"));
    EXPECT_FALSE(file.has("PUMP"));
    EXPECT_TRUE(file.rows("PUMP").empty());
}

TEST_F(ModelFileTest, QuotedWordsKeepBlanksAndSemicolons) {
    const ModelFile file = read("[TITL]\n\"a b;c\" d \"open\n");
    EXPECT_EQ(file.rows("TITL")[0].words, (Words{"a b;c", "d", "open"}));
}

TEST_F(ModelFileTest, AByteOrderMarkAndAMissingLastLineEndAreNoMatter) {
    const ModelFile file = read("\xEF\xBB\xBF[JUNC]\nA 1");
    EXPECT_EQ(file.rows("JUNC").size(), 1U);
}

TEST_F(ModelFileTest, NumbersAreWholeWords) {
    const ModelFile file = read("[JUNC]\nA +1.5 .25 -2e3 1,5 inf\n");
    const pipenet::ModelRow& row = file.rows("JUNC")[0];
    EXPECT_EQ(file.number(row, 1), 1.5);
    EXPECT_EQ(file.number(row, 2), 0.25);
    EXPECT_EQ(file.number(row, 3), -2000.0);
    EXPECT_THROW((void)file.number(row, 4), pipenet::Failure);
    EXPECT_THROW((void)file.number(row, 5), pipenet::Failure);
    EXPECT_THROW((void)file.number(row, 6), pipenet::Failure);
    EXPECT_EQ(file.number(row, 6, 7.0), 7.0);
}

TEST_F(ModelFileTest, TheLastValueOfAnOptionCountsInCapitals) {
    const ModelFile file = read("[OPTIONS]\nUnits gpm\nUNITS lps\nHEADLOSS\n");
    EXPECT_EQ(file.option("UNITS", "GPM"), "LPS");
    EXPECT_EQ(file.option("HEADLOSS", "H-W"), "H-W");
}

constexpr const char* kMain = "[JUNCTIONS]\nA 10\nB 20\n[RESERVOIRS]\nR 100\n[PIPES]\n"
                              "P A B 1000 12 140\nQ R A 500 8 99\n[PUMPS]\nU B R HEAD 1\n"
                              "[COORDINATES]\nA 0 0\nB 1 0\nR 0 1\nX 9 9\n";

/// The units of the United States are the default: feet and inches. 12 inches are 304.8 mm, 8 are
/// 203.2.
TEST_F(ModelFileTest, MainsWithoutUnitsAreInFeetAndInches) {
    const pipenet::PipeModel model = pipenet::readModel(write(kMain));
    ASSERT_EQ(model.links.size(), 3U);
    EXPECT_EQ(model.links[0].diameter, 305);
    EXPECT_NEAR(*model.links[0].length, 304.8, 1e-9);
    EXPECT_EQ(model.links[0].material, "PE");
    EXPECT_EQ(model.links[1].material, "");
    EXPECT_NEAR(model.links[0].endElevation, 6.096, 1e-9);
    EXPECT_EQ(model.mapUnit, 0.3048);
}

TEST_F(ModelFileTest, APipeToAReservoirIsLevelAndAPumpIsAsWideAsItsPipes) {
    const pipenet::PipeModel model = pipenet::readModel(write(kMain));
    EXPECT_NEAR(model.links[1].startElevation, 3.048, 1e-9);
    EXPECT_NEAR(model.links[1].endElevation, 3.048, 1e-9);
    EXPECT_EQ(model.links[2].device, pipenet::ModelDevice::pump);
    EXPECT_EQ(model.links[2].diameter, 305);
    EXPECT_FALSE(model.links[2].length.has_value());
}

} // namespace
