#include "database/LinetypeFile.h"

#include "host/database/DatabaseFixture.h"
#include "platform/SupportFiles.h"
#include "ShapeFileBytes.h"
#include "siblings/TemporaryFolder.h"

#include <numbers>

namespace {

using host_db::findLinetype;
using host_db::LinetypeDefinition;

std::vector<double> lengthsOf(const LinetypeDefinition& definition) {
    std::vector<double> lengths;
    for (const LinetypeDefinition::Dash& dash : definition.dashes) {
        lengths.push_back(dash.length);
    }
    return lengths;
}

LinetypeDefinition found(std::wstring_view file, std::wstring_view name = L"X") {
    LinetypeDefinition definition;
    EXPECT_EQ(findLinetype(file, name, definition), Acad::eOk);
    return definition;
}

TEST(LinetypeFileTest, SimpleDefinition) {
    const LinetypeDefinition x = found(L"*X,Dash dot __ . __\nA,.5,-0.25,0,-2.5e-1\n");
    EXPECT_EQ(x.name, L"X");
    EXPECT_EQ(x.description, L"Dash dot __ . __");
    EXPECT_EQ(lengthsOf(x), (std::vector<double>{0.5, -0.25, 0.0, -0.25}));
}

TEST(LinetypeFileTest, NamesAreFoundInAnyCaseAndKeepTheirSpelling) {
    const wchar_t file[] = L"*Abc,\nA,1,-1\n*Äöü管,second\nA,2,-2\n";
    EXPECT_EQ(found(file, L"aBC").name, L"Abc");
    EXPECT_EQ(found(file, L"äÖÜ管").description, L"second");
    LinetypeDefinition none;
    EXPECT_EQ(findLinetype(file, L"Ab", none), Acad::eKeyNotFound);
    EXPECT_EQ(findLinetype(L"", L"X", none), Acad::eKeyNotFound);
}

TEST(LinetypeFileTest, OfOneNameTwiceTheFirstCounts) {
    EXPECT_EQ(found(L"*X,first\nA,1,-1\n*x,second\nA,2,-2\n").description, L"first");
}

TEST(LinetypeFileTest, CommentsBlankLinesAndAnyLineEndsArePassedOver) {
    const LinetypeDefinition x = found(
        L";; *X,not this\r\nA,9,-9\r\n\r\n  *X , commas, too \r\n;A,8,-8\r\n\t\r\n A , 1 , -2 ");
    EXPECT_EQ(x.name, L"X");
    EXPECT_EQ(x.description, L"commas, too");
    EXPECT_EQ(lengthsOf(x), (std::vector<double>{1.0, -2.0}));
}

TEST(LinetypeFileTest, NameWithoutADescription) {
    const LinetypeDefinition x = found(L"*X\na,1,-2\n");
    EXPECT_EQ(x.description, L"");
    EXPECT_EQ(x.dashes.size(), 2U);
}

TEST(LinetypeFileTest, DefinitionRunsOverSeveralLines) {
    EXPECT_EQ(lengthsOf(found(L"*X,\nA,1,-2,\n3,-4\n; between\n,0\n-5\n*Y,\nA,7,-7\n")),
              (std::vector<double>{1.0, -2.0, 3.0, -4.0, 0.0}))
        << "the line -5 neither follows a comma nor begins with one";
    const LinetypeDefinition y = found(L"*X,\nA,1,-2,[\"GAS\",\nS1,S=3],\n-4\n");
    EXPECT_EQ(y.dashes[1].text, L"GAS");
    EXPECT_EQ(y.dashes[1].scale, 3.0);
    EXPECT_EQ(y.dashes[2].length, -4.0);
}

TEST(LinetypeFileTest, CommaBetweenTwoLinesCountsOnceWhereverItStands) {
    for (const wchar_t* const body : {L"A,1,\n-2\n", L"A,1\n,-2\n", L"A,1,\n,-2\n"}) {
        EXPECT_EQ(lengthsOf(found(std::wstring(L"*X,\n") + body)), (std::vector<double>{1, -2}));
    }
}

TEST(LinetypeFileTest, EndMarkBelongsToNoDefinition) {
    for (const wchar_t* const end : {L"\n\x1A", L"\x1A", L"\r\n\x1A\r\n", L" \x1A\x1A"}) {
        EXPECT_EQ(lengthsOf(found(std::wstring(L"*X,\nA,1,-2") + end)),
                  (std::vector<double>{1, -2}));
    }
    // Two files put together.
    EXPECT_EQ(lengthsOf(found(L"*Y,\nA,3,-4\n\x1A*X,\nA,1,-2\n\x1A")),
              (std::vector<double>{1, -2}));
}

TEST(LinetypeFileTest, StrayLineBehindADefinitionIsPassedOver) {
    const wchar_t file[] = L"*X,\nA,1,-2\nwritten by hand\n\n3,-4\n*Y,\nA,5,-6\nend, of file,\n";
    EXPECT_EQ(lengthsOf(found(file, L"X")), (std::vector<double>{1, -2}));
    EXPECT_EQ(lengthsOf(found(file, L"Y")), (std::vector<double>{5, -6}));
}

TEST(LinetypeFileTest, CommentBehindThePatternIsPassedOver) {
    EXPECT_EQ(lengthsOf(found(L"*X,\nA,1,-2 ; inches, \n3\n")), (std::vector<double>{1, -2}));
    EXPECT_EQ(lengthsOf(found(L"*X,\nA,1,-2\n; next,\n3\n")), (std::vector<double>{1, -2}));
    EXPECT_EQ(lengthsOf(found(L"*X,\nA,1, ; goes on\n-2;\n")), (std::vector<double>{1, -2}));
    EXPECT_EQ(found(L"*X,\nA,1,-2,[\"a;b\",s]\n").dashes[1].text, L"a;b");
}

TEST(LinetypeFileTest, ShapeIsNamedWithoutQuotes) {
    const LinetypeDefinition x =
        found(L"*X,\nA,.25,-.1,[BOX,ltypes.shx,S=.1,U=90,X=-.1,Y=2],-.1,1\n");
    ASSERT_EQ(x.dashes.size(), 4U);
    const LinetypeDefinition::Dash& dash = x.dashes[1];
    EXPECT_EQ(dash.mark, LinetypeDefinition::Mark::Shape);
    EXPECT_EQ(dash.text, L"BOX");
    EXPECT_EQ(dash.style, L"ltypes.shx");
    EXPECT_EQ(dash.scale, 0.1);
    EXPECT_DOUBLE_EQ(dash.rotation, std::numbers::pi / 2);
    EXPECT_TRUE(dash.isUpright);
    EXPECT_EQ(dash.x, -0.1);
    EXPECT_EQ(dash.y, 2.0);
    EXPECT_EQ(x.dashes[2].mark, LinetypeDefinition::Mark::None);
}

TEST(LinetypeFileTest, TextBelongsToTheDashBeforeIt) {
    const LinetypeDefinition x =
        found(L"*X,\nA,.5,-.2,[\"GAS\",STANDARD,S=.1,R=90,X=-0.1,Y=-.05],-.25\n");
    ASSERT_EQ(x.dashes.size(), 3U);
    EXPECT_EQ(x.dashes[0].mark, LinetypeDefinition::Mark::None);
    EXPECT_EQ(x.dashes[2].mark, LinetypeDefinition::Mark::None);
    const LinetypeDefinition::Dash& dash = x.dashes[1];
    EXPECT_EQ(dash.length, -0.2);
    EXPECT_EQ(dash.mark, LinetypeDefinition::Mark::Text);
    EXPECT_EQ(dash.text, L"GAS");
    EXPECT_EQ(dash.style, L"STANDARD");
    EXPECT_EQ(dash.scale, 0.1);
    EXPECT_DOUBLE_EQ(dash.rotation, std::numbers::pi / 2);
    EXPECT_FALSE(dash.isAbsolute);
    EXPECT_FALSE(dash.isUpright);
    EXPECT_EQ(dash.x, -0.1);
    EXPECT_EQ(dash.y, -0.05);
}

TEST(LinetypeFileTest, TextsSettingsAreOptionalAndMayStandInAnyOrder) {
    const auto dashOf = [](const std::wstring& inside) {
        return found(L"*X,\nA,1,-2,[" + inside + L"]\n").dashes[1];
    };
    const LinetypeDefinition::Dash plain = dashOf(L"\"a,b]\" , s1");
    EXPECT_EQ(plain.text, L"a,b]");
    EXPECT_EQ(plain.style, L"s1");
    EXPECT_EQ(plain.scale, 1.0);
    EXPECT_EQ(plain.rotation, 0.0);
    EXPECT_EQ(dashOf(L"\"T\",s,y=2,x=1").y, 2.0);
    EXPECT_TRUE(dashOf(L"\"T\",s,A=0").isAbsolute);
    EXPECT_TRUE(dashOf(L"\"T\",s,u=0").isUpright);
    EXPECT_DOUBLE_EQ(dashOf(L"\"T\",s,R=1.5r").rotation, 1.5);
    EXPECT_DOUBLE_EQ(dashOf(L"\"T\",s,R=50G").rotation, std::numbers::pi / 4);
    EXPECT_DOUBLE_EQ(dashOf(L"\"T\",s,R=45d").rotation, std::numbers::pi / 4);
}

TEST(LinetypeFileTest, MalformedDefinitionIsRefusedWhole) {
    const std::wstring_view bodies[] = {
        L"",
        L"B,1,-1",
        L"A",
        L"A,1",
        L"A,-1,1",
        L"A,1,,-1",
        L"A,1,x",
        L"A,1,-1m",
        L"A,1,inf",
        L"A,1,-1,1,-1,1,-1,1,-1,1,-1,1,-1,1",
        L"A,[\"T\",s],1,-1",
        L"A,1,-1,[\"T\",s],[\"T\",s]",
        L"A,1,-1,[\"T\",s",
        L"A,1,-1,[\"T\"]",
        L"A,1,-1,[\"T\",]",
        L"A,1,-1,[T]",
        L"A,1,-1,[,s.shx]",
        L"A,1,-1,[SHAPE,]",
        L"A,1,-1,[\"SHAPE,s.shx]",
        L"A,1,-1,[SHAPE,s.shx],[SHAPE,s.shx]",
        L"A,1,-1,[\"T\",s,Q=1]",
        L"A,1,-1,[\"T\",s,S=]",
        L"A,1,-1,[\"T\",s,S]",
    };
    for (const std::wstring_view body : bodies) {
        SCOPED_TRACE(host_text::toUtf8(body));
        LinetypeDefinition kept;
        kept.name = L"kept";
        const std::wstring file = L"*X,\n" + std::wstring(body) + L"\n*Y,\nA,1,-1\n";
        EXPECT_EQ(findLinetype(file, L"X", kept), Acad::eInvalidInput);
        EXPECT_EQ(kept.name, L"kept");
        EXPECT_EQ(findLinetype(file, L"Y", kept), Acad::eOk) << "the others are good";
    }
}

TEST(LinetypeFileTest, TwelveDashesAreTheMost) {
    EXPECT_EQ(found(L"*X,\nA,1,-1,1,-1,1,-1,1,-1,1,-1,1,-1\n").dashes.size(), 12U);
}

TEST(LinetypeFileTest, BytesAreUtf8OrElseCodePage936) {
    EXPECT_EQ(host_db::decodeLinetypeFile("\xEF\xBB\xBF*\xE6\xB0\xB4"), L"*水");
    EXPECT_EQ(host_db::decodeLinetypeFile("*\xE6\xB0\xB4"), L"*水");
    EXPECT_EQ(host_db::decodeLinetypeFile("*\xB9\xDC"), L"*管"); // B9 DC is 管 in GBK
    EXPECT_EQ(host_db::decodeLinetypeFile(""), L"");
}

/// A drawing beside a folder with files of linetypes.
class LoadLinetypeTest : public DatabaseFixture {
protected:
    LoadLinetypeTest() { host::setSupportFolders({folder.text()}); }
    ~LoadLinetypeTest() override { host::setSupportFolders({}); }

    Acad::ErrorStatus load(const wchar_t* name, const wchar_t* file = L"test.lin") {
        return database().loadLineTypeFile(name, file);
    }
    const AcDbLinetypeTable& table() {
        return *host_db::peek<AcDbLinetypeTable>(database().linetypeTableId());
    }

    sibling_tests::TemporaryFolder folder;
};

TEST_F(LoadLinetypeTest, LinetypeIsARecordOfTheTable) {
    folder.write("test.lin", "*Dd,two\nA,3,-1,[\"T\",standard,S=2,A=90,X=4,Y=5],0,-2\n");
    ASSERT_EQ(load(L"DD"), Acad::eOk);
    const auto* const record = host_db::peek<AcDbLinetypeTableRecord>(table().find(L"dd"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->name(), L"Dd");
    EXPECT_STREQ(record->comments(), L"two");
    EXPECT_EQ(record->ownerId(), database().linetypeTableId());
    EXPECT_EQ(record->numDashes(), 4);
    EXPECT_EQ(record->dashLengthAt(1), -1.0);
    EXPECT_EQ(record->dashLengthAt(4), 0.0);
    EXPECT_EQ(record->dashLengthAt(-1), 0.0);
    EXPECT_EQ(record->patternLength(), 6.0);
    const host_db::LinetypeDash& dash = record->dashes()[1];
    EXPECT_EQ(dash.flags, 3); // text, absolute
    EXPECT_EQ(dash.style, database().textstyle());
    EXPECT_EQ(dash.scale, 2.0);
    EXPECT_EQ(dash.offset.x, 4.0);
    EXPECT_EQ(dash.offset.y, 5.0);
    EXPECT_EQ(dash.text, L"T");
}

TEST_F(LoadLinetypeTest, UprightTextHasItsFlag) {
    folder.write("test.lin", "*U,\nA,3,-1,[\"T\",standard,S=2,U=30],-2\n");
    ASSERT_EQ(load(L"U"), Acad::eOk);
    const auto* const record = host_db::peek<AcDbLinetypeTableRecord>(table().find(L"U"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->dashes()[1].flags, 2 + 8); // text, upright
    EXPECT_DOUBLE_EQ(record->dashes()[1].rotation, std::numbers::pi / 6);
}

/// Loads linetypes with shapes: 130 TRACK, 135 Box and, with a Chinese name, 300.
class LoadShapesTest : public LoadLinetypeTest {
protected:
    LoadShapesTest() {
        folder.write("Own.SHX", database_test::shapeFileBytes(
                                    {{130, "TRACK"}, {135, "Box"}, {300, "\xBE\xAE"}})); // 井, GBK
    }

    const AcDbLinetypeTableRecord& loaded(const wchar_t* name) {
        EXPECT_EQ(load(name), Acad::eOk);
        return *host_db::peek<AcDbLinetypeTableRecord>(table().find(name));
    }
    /// The records that stand for shape files.
    std::vector<const AcDbTextStyleTableRecord*> shapeStyles() {
        std::vector<const AcDbTextStyleTableRecord*> found;
        for (const AcDbObjectId id : styles().recordIds()) {
            const auto* const style = host_db::peek<AcDbTextStyleTableRecord>(id);
            if (style != nullptr && style->isShapeFile()) {
                found.push_back(style);
            }
        }
        return found;
    }
    const AcDbTextStyleTable& styles() {
        return *host_db::peek<AcDbTextStyleTable>(database().textStyleTableId());
    }
};

TEST_F(LoadShapesTest, DashHasTheShapesNumberAndAStyleOfItsFile) {
    folder.write("test.lin", "*B,box\nA,1,-.5,[BOX,own.shx,S=.2,A=45,X=-.1,Y=.3],-.25\n");
    const host_db::LinetypeDash dash = loaded(L"B").dashes()[1];
    EXPECT_EQ(dash.flags, 4 + 1); // shape, absolute
    EXPECT_EQ(dash.shapeNumber, 135);
    EXPECT_EQ(dash.scale, 0.2);
    EXPECT_DOUBLE_EQ(dash.rotation, std::numbers::pi / 4);
    EXPECT_EQ(dash.offset.x, -0.1);
    EXPECT_EQ(dash.offset.y, 0.3);
    EXPECT_EQ(dash.text, L"");
    ASSERT_EQ(shapeStyles().size(), 1U);
    EXPECT_EQ(dash.style, shapeStyles()[0]->objectId());
    EXPECT_EQ(shapeStyles()[0]->name(), L"");
    EXPECT_EQ(shapeStyles()[0]->flags(), 1);
    EXPECT_EQ(shapeStyles()[0]->fontFile(), L"own.shx");
    EXPECT_FALSE(styles().has(L"")) << "a record without a name is found by no name";
}

TEST_F(LoadShapesTest, OneFileHasOneStyle) {
    folder.write("other.shx", database_test::shapeFileBytes({{7, "TRACK"}}));
    folder.write("test.lin", "*P,\nA,1,-1,[track,own],-1,[Box,OWN.SHX]\n"
                             "*Q,\nA,1,-1,[井,Own.shx]\n*R,\nA,1,-1,[TRACK,other.shx]\n");
    const auto dashes = loaded(L"P").dashes();
    EXPECT_EQ(dashes[1].shapeNumber, 130);
    EXPECT_EQ(dashes[2].shapeNumber, 135);
    EXPECT_EQ(dashes[1].style, dashes[2].style);
    EXPECT_EQ(shapeStyles().size(), 1U);
    EXPECT_EQ(shapeStyles()[0]->fontFile(), L"own.shx") << "the ending is put there";
    const auto chinese = loaded(L"Q").dashes();
    EXPECT_EQ(chinese[1].shapeNumber, 300);
    EXPECT_EQ(chinese[1].style, dashes[1].style);
    EXPECT_EQ(shapeStyles().size(), 1U);
    EXPECT_EQ(loaded(L"R").dashes()[1].shapeNumber, 7);
    EXPECT_EQ(shapeStyles().size(), 2U);
}

TEST_F(LoadShapesTest, MissingShapeOrFileLoadsNothing) {
    folder.write("font.shx", "Any unifont 1.0\r\n\x1A\x01");
    folder.write("test.lin", "*A1,\nA,1,-1,[TRACK,none.shx]\n*A2,\nA,1,-1,[NONE,own.shx]\n"
                             "*A3,\nA,1,-1,[TRACK,own.shx],-1,[NONE,own.shx]\n"
                             "*A4,\nA,1,-1,[TRACK,font.shx]\n"
                             "*A5,\nA,1,-1,[TRACK,/proc/self/none.shx]\n"
                             "*A6,\nA,1,-1,[TRACK,own.shx],-1,[\"T\",nostyle]\n");
    const std::size_t before = table().recordIds().size();
    for (const wchar_t* const name : {L"A1", L"A2", L"A3", L"A4", L"A5"}) {
        EXPECT_EQ(load(name), Acad::eFileNotFound) << host_text::toUtf8(name);
    }
    EXPECT_EQ(load(L"A6"), Acad::eInvalidKey);
    EXPECT_EQ(table().recordIds().size(), before);
    EXPECT_EQ(shapeStyles().size(), 0U);
}

TEST_F(LoadShapesTest, TableThatIsHeldLoadsNothing) {
    folder.write("test.lin", "*B,\nA,1,-1,[BOX,own.shx]\n");
    AcDbTextStyleTable* styleTable = nullptr;
    ASSERT_EQ(database().getSymbolTable(styleTable, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(load(L"B"), Acad::eWasOpenForRead);
    styleTable->close();
    AcDbLinetypeTable* held = nullptr;
    ASSERT_EQ(database().getSymbolTable(held, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(load(L"B"), Acad::eWasOpenForRead);
    held->close();
    EXPECT_EQ(shapeStyles().size(), 0U);
    EXPECT_FALSE(table().has(L"B"));
    EXPECT_EQ(load(L"B"), Acad::eOk);
}

// The system opens this file and fails to read its first page.
TEST_F(LoadLinetypeTest, FileThatCannotBeReadIsAnAccessError) {
    EXPECT_EQ(load(L"GOOD", L"/proc/self/mem"), Acad::eFileAccessErr);
    EXPECT_FALSE(table().has(L"GOOD"));
}

TEST_F(LoadLinetypeTest, FileIsFoundInAnyCase) {
    folder.write("Test.LIN", "*X,\nA,1,-1\n");
    EXPECT_EQ(load(L"X", L"tEST.lin"), Acad::eOk);
}

TEST_F(LoadLinetypeTest, WhatCannotBeLoadedChangesNothing) {
    folder.write("test.lin", "*GOOD,\nA,1,-1\n*BAD,\nA,x\n*STYLED,\nA,1,-1,[\"T\",nostyle]\n");
    const std::size_t before = table().recordIds().size();
    EXPECT_EQ(load(L""), Acad::eInvalidInput);
    EXPECT_EQ(load(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(load(L"GOOD", L""), Acad::eInvalidInput);
    EXPECT_EQ(load(L"GOOD", nullptr), Acad::eInvalidInput);
    EXPECT_EQ(load(L"GOOD", L"missing.lin"), Acad::eFileNotFound);
    EXPECT_EQ(load(L"MISSING"), Acad::eKeyNotFound);
    EXPECT_EQ(load(L"BAD"), Acad::eInvalidInput);
    EXPECT_EQ(load(L"STYLED"), Acad::eInvalidKey);
    EXPECT_EQ(load(L"continuous"), Acad::eDuplicateKey);
    AcDbLinetypeTable* held = nullptr;
    ASSERT_EQ(database().getSymbolTable(held, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(load(L"GOOD"), Acad::eWasOpenForRead);
    held->close();
    EXPECT_EQ(table().recordIds().size(), before);
    EXPECT_EQ(load(L"GOOD"), Acad::eOk);
    EXPECT_EQ(load(L"good"), Acad::eDuplicateKey);
    EXPECT_EQ(table().recordIds().size(), before + 1);
}

TEST_F(LoadLinetypeTest, OwnFilesOfTheHostHoldTheSameNames) {
    host::setSupportFolders({});
    for (const wchar_t* const name : {L"DASHED", L"DASHED2", L"HIDDEN", L"DOT", L"DASHDOT",
                                      L"DIVIDE", L"CENTER", L"PHANTOM", L"FENCE"}) {
        double lengths[2] = {0.0, 0.0};
        for (const int i : {0, 1}) {
            AcDbDatabase other;
            EXPECT_EQ(other.loadLineTypeFile(name, i == 0 ? L"acad.lin" : L"acadiso.lin"),
                      Acad::eOk);
            const auto* const all = host_db::peek<AcDbLinetypeTable>(other.linetypeTableId());
            lengths[i] = host_db::peek<AcDbLinetypeTableRecord>(all->find(name))->patternLength();
        }
        EXPECT_NEAR(lengths[1] / lengths[0], 24.0, 1e-9) << host_text::toUtf8(name);
    }
}

} // namespace
