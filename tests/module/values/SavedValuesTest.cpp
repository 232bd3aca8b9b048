// Texts and extended data set through the module, seen by a library that reads and writes drawings
// of its own, and the other way round.

#include "SavedDrawing.h"

#include "module/utilities/UtilitiesTest.h"
#include "utilities/Commands.h"
#include "utilities/SetXdata.h"
#include "utilities/XRecords.h"

#include <filesystem>
#include <tuple>

namespace module_tests {
namespace {

std::string textOf(const wchar_t* dictionary, const wchar_t* record) {
    CString value = L"none";
    PelGetXRecord(dictionary, record, value);
    return utf8(value);
}

AcDbObjectId dictionaryNamed(const AcDbDatabase& database, const wchar_t* name) {
    AcDbObjectId id;
    host_db::peek<AcDbDictionary>(database.namedObjectsDictionaryId())->getAt(name, id);
    return id;
}

/// The whole chain under an application, as "code=value" lines.
std::vector<std::wstring> xdataOf(const AcDbObjectId& id, const wchar_t* application) {
    return dxf_test::xdataLines(*host_db::peek<AcDbObject>(id), application);
}

class NewDrawingValues : public UtilitiesTest {};

TEST_F(NewDrawingValues, TextsAreReadByAnotherLibrary) {
    ASSERT_EQ(PelSetXRecord(L"设置", L"比例", L"500 管"), 1);
    ASSERT_EQ(PelSetXRecord(L"设置", L"单位", L"m"), 1);
    ASSERT_EQ(PelSetXRecord(L"设置", L"比例", L"1000 管"), 1);
    dxf_test::askAnother(
        drawing.database(), "values",
        {"[tuple(t) for t in doc.rootdict[\"设置\"][\"比例\"].tags] == "
         "[(8, \"1000 管\")]",
         "[tuple(t) for t in doc.rootdict[\"设置\"][\"单位\"].tags] == [(8, \"m\")]",
         "len(doc.rootdict[\"设置\"]) == 2",
         "doc.rootdict[\"设置\"][\"比例\"].dxf.owner == "
         "doc.rootdict[\"设置\"].dxf.handle"});
}

TEST_F(NewDrawingValues, ErasedDictionaryIsInNoFile) {
    ASSERT_EQ(PelSetXRecord(L"设置", L"比例", L"500"), 1);
    drawing.erase(dictionaryNamed(drawing.database(), L"设置"));
    dxf_test::askAnother(
        drawing.database(), "erased",
        {"(\"设置\" in doc.rootdict) == False", "len(list(doc.objects.query(\"XRECORD\"))) == 0"});
}

TEST_F(NewDrawingValues, ExtendedDataAreReadByAnotherLibrary) {
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    ads_point point = {1.5, 2.5, 3.5};
    resbuf* chain = acutBuildList(1001, L"管道系统", 1000, L"污水", 1040, 0.125, 1070, -7, 1071,
                                  100000, 1010, point, 0);
    ASSERT_EQ(PelSetXdata(line, chain), 1);
    acutRelRb(chain);
    dxf_test::askAnother(
        drawing.database(), "xdata",
        {"(\"管道系统\" in doc.appids) == True",
         "[tuple(t)[0] for t in space[0].get_xdata(\"管道系统\")] == [1000, 1040, 1070, 1071, "
         "1010]",
         "[t.value for t in space[0].get_xdata(\"管道系统\")][:4] == [\"污水\", 0.125, -7, 100000]",
         "tuple(space[0].get_xdata(\"管道系统\")[4].value) == (1.5, 2.5, 3.5)"});
}

TEST_F(NewDrawingValues, LongTextsAreReadByAnotherLibrary) {
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    const std::wstring text(4000, L'管');
    resbuf* chain = acutBuildList(1001, L"A", 1000, text.c_str(), 1000, L"next", 0);
    ASSERT_EQ(PelSetXdata(line, chain), 1);
    acutRelRb(chain);
    dxf_test::askAnother(drawing.database(), "long",
                         {"[t.value for t in space[0].get_xdata(\"A\")] == [\"管\" * 4000, "
                          "\"next\"]"});
}

TEST_F(NewDrawingValues, BracketsInRecordsAreReadByAnotherLibrary) {
    ASSERT_EQ(PelSetXRecord(L"SET", L"R", L"x"), 1);
    AcDbObjectId id;
    host_db::peek<AcDbDictionary>(dictionaryNamed(drawing.database(), L"SET"))->getAt(L"R", id);
    resbuf* chain = acutBuildList(8, L"a", 102, L"{B", 8, L"b", 102, L"}", 8, L"c", 0);
    dxf_test::changeObject<AcDbXrecord>(
        id, [chain](AcDbXrecord& record) { EXPECT_EQ(record.setFromRbChain(*chain), Acad::eOk); });
    acutRelRb(chain);
    dxf_test::askAnother(drawing.database(), "brackets",
                         {"[tuple(t) for t in doc.rootdict[\"SET\"][\"R\"].tags] == [(8, \"a\"), "
                          "(102, \"{B\"), (8, \"b\"), (102, \"}\"), (8, \"c\")]"});
}

/// A drawing that the other library wrote, version and form given.
class ForeignValues : public UtilitiesTest,
                      public ::testing::WithParamInterface<std::tuple<const char*, const char*>> {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        const auto [version, form] = GetParam();
        dxf_test::runScript("make_cases.py", {path.string(), version, form});
        drawing.openDxfFile(path.string());
    }

    /// The drawing as it would be saved, read anew.
    void reopen() {
        const std::string bytes = saved();
        dxf_test::writeFile(path.string(), bytes);
        drawing.openDxfFile(path.string());
    }
    std::string saved() const { return dxf_test::savedBytes(drawing.database()); }
    AcDbObjectId firstEntity() const { return entities().front(); }
    void ask(const std::vector<std::string>& questions) const {
        dxf_test::askAnother(drawing.database(), "foreign", questions);
    }

    /// Replaces and adds extended data, which the other library then finds, and so does the host.
    void exchangeExtendedData() {
        const AcDbObjectId line = firstEntity();
        EXPECT_EQ(
            xdataOf(line, L"管道系统"),
            (std::vector<std::wstring>{L"1001=管道系统", L"1000=污水", L"1070=7", L"1040=0.25"}));
        resbuf* chain = acutBuildList(1001, L"管道系统", 1000, L"雨水", 1001, L"PLAIN", 0);
        EXPECT_EQ(PelSetXdata(line, chain), 1);
        acutRelRb(chain);
        chain = acutBuildList(1001, L"新应用", 1000, L"x", 1070, 3, 0);
        EXPECT_EQ(PelSetXdata(line, chain), 1);
        acutRelRb(chain);
        ask({"[tuple(t) for t in space[0].get_xdata(\"管道系统\")] == [(1000, \"雨水\")]",
             "[tuple(t) for t in space[0].get_xdata(\"新应用\")] == [(1000, \"x\"), (1070, 3)]",
             "space[0].has_xdata(\"PLAIN\") == False", "(\"新应用\" in doc.appids) == True"});
        reopen();
        EXPECT_EQ(xdataOf(firstEntity(), L"新应用"),
                  (std::vector<std::wstring>{L"1001=新应用", L"1000=x", L"1070=3"}));
    }

    const std::filesystem::path path = drawing.folder().path() / "foreign.dxf";
};

constexpr const wchar_t* kSettings = L"TKVLT_DRAWING_SETTINGS";

TEST_P(ForeignValues, TextIsReadReplacedAndReadBack) {
    EXPECT_EQ(textOf(kSettings, L"DrawScale"), "500");
    EXPECT_EQ(PelSetXRecord(kSettings, L"DrawScale", L"比例 250"), 1);
    EXPECT_EQ(PelSetXRecord(kSettings, L"Unit", L"米"), 1);
    EXPECT_EQ(PelSetXRecord(L"新", L"New", L"n"), 1);
    ask({"[tuple(t) for t in doc.rootdict[\"TKVLT_DRAWING_SETTINGS\"][\"DrawScale\"].tags] == "
         "[(8, \"比例 250\")]",
         "[tuple(t) for t in doc.rootdict[\"TKVLT_DRAWING_SETTINGS\"][\"Unit\"].tags] == "
         "[(8, \"米\")]",
         "[tuple(t) for t in doc.rootdict[\"新\"][\"New\"].tags] == [(8, \"n\")]"});
    reopen();
    EXPECT_EQ(textOf(kSettings, L"DrawScale"), "比例 250");
    EXPECT_EQ(textOf(kSettings, L"Unit"), "米");
    EXPECT_EQ(textOf(L"新", L"New"), "n");
}

TEST_P(ForeignValues, UndoneTextsLeaveTheFileAsItWas) {
    const std::string before = saved();
    PelStartCommandGroup();
    EXPECT_EQ(PelSetXRecord(kSettings, L"DrawScale", L"250"), 1);
    EXPECT_EQ(PelSetXRecord(kSettings, L"Unit", L"m"), 1);
    EXPECT_EQ(PelSetXRecord(L"NEW", L"New", L"n"), 1);
    PelEndCommandGroup();
    EXPECT_NE(saved(), before);
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(textOf(kSettings, L"DrawScale"), "500");
}

TEST_P(ForeignValues, TextSetUndoneAndSetAgainIsSaved) {
    PelStartCommandGroup();
    EXPECT_EQ(PelSetXRecord(L"NEW", L"New", L"first"), 1);
    PelEndCommandGroup();
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(PelSetXRecord(L"NEW", L"New", L"second"), 1);
    ask({"[tuple(t) for t in doc.rootdict[\"NEW\"][\"New\"].tags] == [(8, \"second\")]"});
    reopen();
    EXPECT_EQ(textOf(L"NEW", L"New"), "second");
}

TEST_P(ForeignValues, ErasedDictionaryTakesItsRecordsOutOfTheFile) {
    const std::string before = saved();
    PelStartCommandGroup();
    drawing.erase(dictionaryNamed(drawing.database(), kSettings));
    PelEndCommandGroup();
    ask({"(\"TKVLT_DRAWING_SETTINGS\" in doc.rootdict) == False",
         "len([x for x in doc.objects.query(\"XRECORD\") if x.tags and x.tags[0].code == 8]) == "
         "0"});
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(textOf(kSettings, L"DrawScale"), "500");
}

TEST_P(ForeignValues, ExtendedDataAreReadReplacedAndReadBack) {
    exchangeExtendedData();
}

/// A drawing of the version that has extended data and no dictionaries.
class OldForeignValues : public ForeignValues {};

TEST_P(OldForeignValues, ExtendedDataAreReadReplacedAndReadBack) {
    exchangeExtendedData();
}

TEST_P(OldForeignValues, ExtensionDictionaryIsRefusedAndTheFileStays) {
    const std::string before = saved();
    AcDbObject* line = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(line, firstEntity(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eNotApplicable);
    line->close();
    EXPECT_EQ(saved(), before);
}

INSTANTIATE_TEST_SUITE_P(AllVersions, ForeignValues,
                         testing::Combine(testing::Values("R2000", "R2004", "R2007", "R2010",
                                                          "R2013", "R2018"),
                                          testing::Values("text", "binary")),
                         [](const auto& instance) {
                             return std::string(std::get<0>(instance.param)) + "_" +
                                    std::get<1>(instance.param);
                         });

INSTANTIATE_TEST_SUITE_P(R12, OldForeignValues,
                         testing::Combine(testing::Values("R12"),
                                          testing::Values("text", "binary")),
                         [](const auto& instance) {
                             return std::string(std::get<1>(instance.param));
                         });

} // namespace
} // namespace module_tests
