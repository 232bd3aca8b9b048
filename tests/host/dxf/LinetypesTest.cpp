#include "SavedDrawing.h"

#include "database/AcDbText.h"
#include "dxf/SaveDxf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <numbers>

using dxf_test::askAnother;
using dxf_test::changeObject;
using dxf_test::LoadedDrawing;

namespace {

/// The other library counts the handle of an R12 record to its pattern, so questions leave it out.
class Linetypes : public testing::TestWithParam<std::string> {
protected:
    Linetypes() : bytes_(made(GetParam())), drawing_(LoadedDrawing::fromBytes(bytes_)) {}

    static std::string made(const std::string& version) {
        const std::string path = dxf_test::temporaryPath("linetypes_" + version + ".dxf");
        dxf_test::runScript("make_linetypes.py", {path, version});
        std::string bytes = dxf_test::fileBytes(path);
        std::filesystem::remove(path);
        return bytes;
    }

    bool isR12() const { return GetParam() == "R12"; }
    AcDbDatabase& database() { return drawing_.database(); }
    AcDbObjectId find(AcDbObjectId table, const wchar_t* name) const {
        return host_db::peek<AcDbSymbolTable>(table)->find(name);
    }
    const AcDbLinetypeTableRecord& linetype(const wchar_t* name) {
        const auto* const found =
            host_db::peek<AcDbLinetypeTableRecord>(find(database().linetypeTableId(), name));
        return found == nullptr ? throw std::runtime_error("no linetype") : *found;
    }
    Acad::ErrorStatus load(const wchar_t* name, const std::string& text) {
        const std::string path = dxf_test::temporaryPath(GetParam() + ".lin");
        dxf_test::writeFile(path, text);
        const Acad::ErrorStatus status =
            database().loadLineTypeFile(name, std::wstring(path.begin(), path.end()).c_str());
        std::filesystem::remove(path);
        return status;
    }
    void ask(const std::vector<std::string>& questions) {
        askAnother(database(), "linetypes" + GetParam(), questions);
    }

    std::string bytes_;
    LoadedDrawing drawing_;
};

TEST_P(Linetypes, PatternsOfAnotherLibraryAreRead) {
    const AcDbLinetypeTableRecord& plain = linetype(L"plain");
    EXPECT_STREQ(plain.comments(), L"dash dot");
    ASSERT_EQ(plain.numDashes(), 4);
    EXPECT_EQ(plain.dashLengthAt(0), 0.75);
    EXPECT_EQ(plain.dashLengthAt(1), -0.25);
    EXPECT_EQ(plain.dashLengthAt(2), 0.0);
    EXPECT_EQ(plain.patternLength(), 1.25);
    EXPECT_EQ(linetype(L"Continuous").numDashes(), 0);
    if (isR12()) {
        return; // that version has no texts in linetypes
    }
    const AcDbLinetypeTableRecord& gas = linetype(L"GASLINE");
    ASSERT_EQ(gas.numDashes(), 3);
    EXPECT_FALSE(gas.dashes()[0].isComplex());
    const host_db::LinetypeDash& dash = gas.dashes()[1];
    EXPECT_EQ(dash.length, -0.2);
    EXPECT_NE(dash.flags & host_db::LinetypeDash::kText, 0);
    EXPECT_EQ(dash.style, find(database().textStyleTableId(), L"Standard"));
    EXPECT_EQ(dash.scale, 0.1);
    EXPECT_DOUBLE_EQ(dash.rotation, std::numbers::pi / 4);
    EXPECT_EQ(dash.offset.x, -0.1);
    EXPECT_EQ(dash.offset.y, -0.05);
    EXPECT_EQ(dash.text, L"GAS");
}

TEST_P(Linetypes, TextStylesOfAnotherLibraryAreRead) {
    const auto* const style =
        host_db::peek<AcDbTextStyleTableRecord>(find(database().textStyleTableId(), L"mono"));
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->fontFile(), L"DejaVuSansMono.ttf");
    EXPECT_EQ(style->bigFontFile(), L"gbcbig.shx");
    EXPECT_EQ(style->xScale(), 0.75);
    EXPECT_EQ(style->textSize(), 2.5);
    EXPECT_DOUBLE_EQ(style->obliquingAngle(), std::numbers::pi / 12);
    // Its text is as wide as three letters of 1233 of 2048 units, 2 high.
    const auto* const text = drawing_.modelEntity<AcDbText>(1);
    ASSERT_NE(text, nullptr);
    AcDbExtents box;
    ASSERT_EQ(text->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().x - box.minPoint().x, 2.0 * 3 * 1233 / 2048, 1e-12);
}

TEST_P(Linetypes, UnchangedDrawingKeepsEveryByte) {
    EXPECT_EQ(dxf_test::savedBytes(database()), bytes_);
}

TEST_P(Linetypes, LoadedOnesAreReadByAnotherLibrary) {
    ASSERT_EQ(load(L"new", "*NEW,a b\nA,1,-.5,0,-.25\n"), Acad::eOk);
    changeObject<AcDbEntity>(drawing_.modelEntityId(0), [this](AcDbEntity& line) {
        EXPECT_EQ(line.setLinetype(find(database().linetypeTableId(), L"NEW")), Acad::eOk);
    });
    const std::string flag = isR12() ? "" : ", (74, 0)";
    ask({"space[0].dxf.linetype == \"NEW\"",
         "doc.linetypes.get(\"NEW\").dxf.description == \"a b\"",
         "[tuple(t) for t in doc.linetypes.get(\"NEW\").pattern_tags.tags if t[0] != 5] == "
         "[(72, 65), (73, 4), (40, 1.75), (49, 1.0)" +
             flag + ", (49, -0.5)" + flag + ", (49, 0.0)" + flag + ", (49, -0.25)" + flag + "]"});
}

TEST_P(Linetypes, LoadedTextsAreReadByAnotherLibrary) {
    ASSERT_EQ(load(L"W", "*W,w\nA,1,-.5,[\"W\",mono,S=.2,A=90,X=.1,Y=.2],-.25\n"), Acad::eOk);
    const std::string text =
        ", (74, 3), (75, 0), (340, doc.styles.get(\"MONO\").dxf.handle), (46, 0.2), (50, 90.0), "
        "(44, 0.1), (45, 0.2), (9, \"W\")";
    const std::string flag = isR12() ? "" : ", (74, 0)";
    ask({"[tuple(t) for t in doc.linetypes.get(\"W\").pattern_tags.tags if t[0] != 5] == "
         "[(72, 65), (73, 3), (40, 1.75), (49, 1.0)" +
         flag + ", (49, -0.5)" + (isR12() ? "" : text) + ", (49, -0.25)" + flag + "]"});
}

TEST_P(Linetypes, ChangedPatternIsWritten) {
    changeObject<AcDbLinetypeTableRecord>(
        find(database().linetypeTableId(), L"PLAIN"), [](AcDbLinetypeTableRecord& record) {
            std::vector<host_db::LinetypeDash> dashes(record.dashes().begin(),
                                                      record.dashes().begin() + 2);
            dashes[1].length = -0.5;
            EXPECT_EQ(record.setDashes(dashes), Acad::eOk);
        });
    ask({"[tuple(t) for t in doc.linetypes.get(\"PLAIN\").pattern_tags.tags if t[0] not in (5, "
         "74)] == "
         "[(72, 65), (73, 2), (40, 1.25), (49, 0.75), (49, -0.5)]"});
}

TEST_P(Linetypes, AddedStylesAreReadByAnotherLibrary) {
    auto* const style = new AcDbTextStyleTableRecord;
    style->setName(L"ADDED");
    style->setFileName(L"DroidSansFallbackFull.ttf");
    style->setBigFontFileName(L"big.shx");
    style->setXScale(0.7);
    style->setTextSize(3.5);
    dxf_test::addRecord(database().textStyleTableId(), style);
    auto* const dimStyle = new AcDbDimStyleTableRecord;
    dimStyle->setName(L"DIMS");
    dxf_test::addRecord(database().dimStyleTableId(), dimStyle);
    ask({"doc.styles.get(\"ADDED\").dxf.font == \"DroidSansFallbackFull.ttf\"",
         "doc.styles.get(\"ADDED\").dxf.bigfont == \"big.shx\"",
         "doc.styles.get(\"ADDED\").dxf.width == 0.7",
         "doc.styles.get(\"ADDED\").dxf.height == 3.5",
         "doc.dimstyles.has_entry(\"DIMS\") == True"});
}

INSTANTIATE_TEST_SUITE_P(Versions, Linetypes, testing::Values("R12", "R2000", "R2007", "R2018"),
                         [](const auto& instance) { return instance.param; });

} // namespace
