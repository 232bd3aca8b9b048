#include "DxfFile.h"
#include "SavedDrawing.h"

#include "database/AcDbText.h"
#include "dxf/SaveDxf.h"
#include "host/database/ShapeFileBytes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>
#include <utility>

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

TEST_P(Linetypes, LoadedUprightTextsAreReadByAnotherLibrary) {
    ASSERT_EQ(load(L"U", "*U,u\nA,1,[\"U\",mono,U=30],-.25\n"), Acad::eOk);
    // 10 is a text, 2, that stays upright, 8.
    ask({"[t[1] for t in doc.linetypes.get(\"U\").pattern_tags.tags if t[0] in (74, 50)] == " +
         std::string(isR12() ? "[]" : "[10, 30.0, 0]")});
}

TEST_P(Linetypes, LoadedShapesAreReadByAnotherLibrary) {
    const std::string shapes = dxf_test::temporaryPath(GetParam() + "own.shx");
    dxf_test::writeFile(shapes, database_test::shapeFileBytes({{130, "TRACK"}, {135, "BOX"}}));
    ASSERT_EQ(load(L"S", "*S,s\nA,1,-.5,[BOX," + shapes + ",S=.2,R=90,X=.1,Y=.2],-.25,[TRACK," +
                             shapes + "],-1\n"),
              Acad::eOk);
    std::filesystem::remove(shapes);
    const std::string style = "(340, doc.styles.get_shx(\"" + shapes + "\").dxf.handle)";
    const std::string box =
        ", (74, 4), (75, 135), " + style + ", (46, 0.2), (50, 90.0), (44, 0.1), (45, 0.2)";
    const std::string track =
        ", (74, 4), (75, 130), " + style + ", (46, 1.0), (50, 0.0), (44, 0.0), (45, 0.0)";
    const std::string flag = isR12() ? "" : ", (74, 0)";
    // `get_shx` makes a missing record, so the files are looked at before.
    ask({"[(s.dxf.name, s.dxf.flags, s.dxf.font) for s in doc.styles if s.dxf.flags == 1] == "
         "[(\"\", 1, \"" +
             shapes + "\")]",
         "[tuple(t) for t in doc.linetypes.get(\"S\").pattern_tags.tags if t[0] != 5] == "
         "[(72, 65), (73, 4), (40, 2.75), (49, 1.0)" +
             flag + ", (49, -0.5)" + (isR12() ? "" : box) + ", (49, -0.25)" +
             (isR12() ? "" : track) + ", (49, -1.0)" + flag + "]"});
}

TEST_P(Linetypes, LoadedShapesAreReadBack) {
    const std::string shapes = dxf_test::temporaryPath(GetParam() + "own.shx");
    dxf_test::writeFile(shapes, database_test::shapeFileBytes({{130, "TRACK"}}));
    ASSERT_EQ(load(L"S", "*S,s\nA,1,[TRACK," + shapes + "],-.25\n"), Acad::eOk);
    std::filesystem::remove(shapes);
    const LoadedDrawing again = LoadedDrawing::fromBytes(dxf_test::savedBytes(database()));
    std::vector<AcDbObjectId> files;
    for (const AcDbObjectId id :
         host_db::peek<AcDbSymbolTable>(again.database().textStyleTableId())->recordIds()) {
        if (host_db::peek<AcDbTextStyleTableRecord>(id)->isShapeFile()) {
            files.push_back(id);
        }
    }
    ASSERT_EQ(files.size(), 1U);
    const auto* const table = host_db::peek<AcDbSymbolTable>(again.database().linetypeTableId());
    const auto* const read = host_db::peek<AcDbLinetypeTableRecord>(table->find(L"S"));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->dashes()[0].style, isR12() ? AcDbObjectId() : files[0]);
    EXPECT_EQ(read->dashes()[0].shapeNumber, isR12() ? 0 : 130);
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

/// A drawing that leaves all its text styles unsaid, with one linetype of its own.
std::string drawingWithoutStyles() {
    dxf_test::TextFile file;
    file.section("HEADER").group(9, "$ACADVER").group(1, "AC1015");
    file.group(9, "$HANDSEED").group(5, "100").endSection();
    file.section("TABLES").group(0, "TABLE").group(2, "LTYPE").group(5, "5").group(330, "0");
    file.group(100, "AcDbSymbolTable").group(70, "1").group(0, "LTYPE").group(5, "14");
    file.group(330, "5").group(100, "AcDbSymbolTableRecord").group(100, "AcDbLinetypeTableRecord");
    file.group(2, "OWN").group(70, "0").group(3, "own").group(72, "65").group(73, "2");
    file.group(40, "3.0").group(49, "2.0").group(74, "0").group(49, "-1.0").group(74, "0");
    file.group(0, "ENDTAB").endSection().section("ENTITIES").endSection().endOfFile();
    return file.bytes();
}

using Group = std::pair<int, std::string>;

std::vector<Group> groupsOf(const std::string& bytes) {
    std::vector<Group> groups;
    std::istringstream lines(bytes);
    for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
        groups.emplace_back(std::stoi(code), value);
    }
    return groups;
}

/// The saved drawing has one style, Standard, and its one pointer from a dash leads there.
void expectStandardIsPointedAt(const AcDbDatabase& database) {
    std::vector<std::string> styles;
    std::vector<std::string> pointers;
    const std::vector<Group> groups = groupsOf(dxf_test::savedBytes(database));
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (groups[i] == Group{0, "STYLE"}) {
            ASSERT_EQ(groups[i + 1].first, 5);
            styles.push_back(groups[i + 1].second);
        } else if (groups[i].first == 340 && groups[i - 1].first == 75) {
            pointers.push_back(groups[i].second);
        }
    }
    EXPECT_EQ(styles.size(), 1U);
    EXPECT_EQ(pointers, styles);
    askAnother(database, "style_unsaid",
               {"[s.dxf.name for s in doc.styles] == [\"Standard\"]",
                "doc.linetypes.has_entry(\"OWN\") == True"});
}

TEST(LinetypesWithoutStyles, LoadedTextBringsItsStyleAlong) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(drawingWithoutStyles());
    const std::string path = dxf_test::temporaryPath("unsaid.lin");
    dxf_test::writeFile(path, "*T,\nA,1,[\"T\",Standard],-1\n");
    ASSERT_EQ(
        drawing.database().loadLineTypeFile(L"T", std::wstring(path.begin(), path.end()).c_str()),
        Acad::eOk);
    std::filesystem::remove(path);
    expectStandardIsPointedAt(drawing.database());
}

TEST(LinetypesWithoutStyles, ChangedPatternBringsItsStyleAlong) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(drawingWithoutStyles());
    changeObject<AcDbLinetypeTableRecord>(
        drawing.byHandle(0x14), [&](AcDbLinetypeTableRecord& record) {
            std::vector<host_db::LinetypeDash> dashes = record.dashes();
            dashes[1].flags = host_db::LinetypeDash::kText;
            dashes[1].style = drawing.database().textstyle();
            dashes[1].text = L"T";
            EXPECT_EQ(record.setDashes(dashes), Acad::eOk);
        });
    expectStandardIsPointedAt(drawing.database());
}

} // namespace
