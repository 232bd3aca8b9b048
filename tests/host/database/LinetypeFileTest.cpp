#include "database/LinetypeFile.h"

#include "host/database/DatabaseFixture.h"
#include "platform/SupportFiles.h"
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
              (std::vector<double>{1.0, -2.0, 3.0, -4.0, 0.0, -5.0}));
    const LinetypeDefinition y = found(L"*X,\nA,1,-2,[\"GAS\",\nS1,S=3],\n-4\n");
    EXPECT_EQ(y.dashes[1].text, L"GAS");
    EXPECT_EQ(y.dashes[1].scale, 3.0);
    EXPECT_EQ(y.dashes[2].length, -4.0);
}

TEST(LinetypeFileTest, TextBelongsToTheDashBeforeIt) {
    const LinetypeDefinition x =
        found(L"*X,\nA,.5,-.2,[\"GAS\",STANDARD,S=.1,R=90,X=-0.1,Y=-.05],-.25\n");
    ASSERT_EQ(x.dashes.size(), 3U);
    EXPECT_FALSE(x.dashes[0].hasText);
    EXPECT_FALSE(x.dashes[2].hasText);
    const LinetypeDefinition::Dash& dash = x.dashes[1];
    EXPECT_EQ(dash.length, -0.2);
    EXPECT_TRUE(dash.hasText);
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
        L"A,1,-1,[T,s]",
        L"A,1,-1,[SHAPE,file.shx,S=2]",
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
