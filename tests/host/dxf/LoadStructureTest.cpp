#include "DxfFile.h"
#include "LoadedDrawing.h"

#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbLine.h"
#include "database/AcDbUnknownObject.h"
#include "database/AcDbXrecord.h"
#include "database/XdataText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

using dxf_test::BinaryFile;
using dxf_test::LoadedDrawing;
using dxf_test::recordNames;
using dxf_test::TextFile;
using dxf_test::xdataLines;

namespace {

std::wstring layerOf(AcDbObjectId id) {
    CString name;
    host_db::peek<AcDbEntity>(id)->layer(name);
    return name.GetString();
}

std::vector<std::wstring> layersOf(const std::vector<AcDbObjectId>& entities) {
    std::vector<std::wstring> layers;
    for (const AcDbObjectId id : entities) {
        layers.push_back(layerOf(id));
    }
    return layers;
}

bool contains(const std::vector<std::wstring>& names, const std::wstring& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

TEST(LoadStructure, EntitiesAloneAreADrawing) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n3\n21\n4\n0\nENDSEC\n0\nEOF\n");
    const auto* const line = drawing.modelEntity<AcDbLine>(0);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->endPoint().y, 4.0);
    EXPECT_FALSE(drawing.database().layerZero().isNull());
    EXPECT_EQ(drawing.database().spaceIds().size(), 2U) << "model space and one paper space";
}

TEST(LoadStructure, NothingButTheEndIsAnEmptyDrawing) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes("0\nEOF\n");
    EXPECT_TRUE(drawing.modelSpace().empty());
    EXPECT_TRUE(recordNames(drawing.database().layerTableId()) == std::vector<std::wstring>{L"0"});
}

TEST(LoadStructure, CommentsStandAnywhere) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(
        "999\nfirst\n0\nSECTION\n999\nx\n2\nENTITIES\n999\ny\n0\nLINE\n999\nz\n8\nL\n0\nENDSEC\n"
        "999\nw\n0\nEOF\n999\nlast\n");
    EXPECT_EQ(layersOf(drawing.modelSpace()), (std::vector<std::wstring>{L"L"}));
}

TEST(LoadStructure, HandlesAreKeptAndMissingOnesAreNewAboveAllOthers) {
    TextFile file;
    file.section("HEADER").group(9, "$HANDSEED").group(5, "20").endSection();
    file.section("ENTITIES").group(0, "LINE").group(8, "A");
    file.group(0, "LINE").group(5, "FF").group(8, "B");
    file.group(0, "LINE").group(5, "20").group(8, "C").endSection().endOfFile();
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(file.bytes());
    const auto ids = drawing.modelSpace();
    ASSERT_EQ(ids.size(), 3U);
    EXPECT_GT(ids[0].handle().value(), 0xFFU) << "the file's own next handle is too low";
    EXPECT_EQ(ids[1].handle().value(), 0xFFU);
    EXPECT_EQ(ids[2].handle().value(), 0x20U);
    EXPECT_EQ(drawing.byHandle(0x20), ids[2]);
    EXPECT_GT(drawing.database().handseed().value(), ids[0].handle().value());
}

/// Tables, three layouts, blocks and objects in the manner of R2000.
TextFile fullDrawing() {
    TextFile file;
    file.section("HEADER").group(9, "$ACADVER").group(1, "AC1015");
    file.group(9, "$DWGCODEPAGE").group(3, "ANSI_936").group(9, "$CLAYER").group(8, "pipes");
    file.group(9, "$HANDSEED").group(5, "1000").endSection();
    file.section("CLASSES").group(0, "CLASS").group(1, "X").group(2, "AcX").endSection();
    file.section("TABLES");
    file.group(0, "TABLE").group(2, "VPORT").group(5, "8").group(70, "1");
    file.group(0, "VPORT").group(5, "29").group(2, "*ACTIVE").group(0, "ENDTAB");
    file.group(0, "TABLE").group(2, "LAYER").group(5, "2").group(70, "2");
    file.group(0, "LAYER").group(5, "10").group(330, "2").group(100, "AcDbSymbolTableRecord");
    file.group(100, "AcDbLayerTableRecord").group(2, "0").group(70, "0").group(62, "7");
    file.group(0, "LAYER").group(5, "11").group(2, "Pipes").group(70, "5").group(62, "-3");
    file.group(1001, "LAYERAPP").group(1000, "on a layer").group(0, "ENDTAB");
    file.group(0, "TABLE").group(2, "STYLE").group(5, "3").group(70, "1");
    file.group(0, "STYLE").group(5, "12").group(2, "HZ").group(70, "0").group(40, 2.5);
    file.group(41, 0.8).group(50, 0.0).group(3, "txt.shx").group(4, "gbcbig.shx");
    file.group(0, "ENDTAB").group(0, "TABLE").group(2, "APPID").group(5, "9").group(70, "2");
    file.group(0, "APPID").group(5, "13").group(2, "ACAD").group(70, "0");
    file.group(0, "APPID").group(5, "14").group(2, "LayerApp").group(70, "0");
    file.group(0, "ENDTAB").group(0, "TABLE").group(2, "DIMSTYLE").group(5, "A").group(70, "1");
    file.group(0, "DIMSTYLE").group(105, "15").group(2, "ISO").group(70, "0").group(0, "ENDTAB");
    file.group(0, "TABLE").group(2, "BLOCK_RECORD").group(5, "1").group(70, "4");
    file.group(0, "BLOCK_RECORD").group(5, "1F").group(2, "*Model_Space");
    file.group(0, "BLOCK_RECORD").group(5, "1B").group(2, "*Paper_Space");
    file.group(0, "BLOCK_RECORD").group(5, "1C").group(2, "*Paper_Space0");
    file.group(0, "BLOCK_RECORD").group(5, "1D").group(2, "Well");
    file.group(0, "ENDTAB").endSection();
    file.section("BLOCKS");
    const struct {
        const char* owner;
        const char* name;
        const char* entityLayer;
    } blocks[] = {{"1F", "*Model_Space", nullptr},
                  {"1B", "*Paper_Space", nullptr},
                  {"1C", "*Paper_Space0", "sheet 2"},
                  {"1D", "Well", "inside"}};
    int handle = 0x40;
    const auto next = [&handle] {
        char text[8];
        snprintf(text, sizeof text, "%X", handle++);
        return std::string(text);
    };
    for (const auto& block : blocks) {
        file.group(0, "BLOCK").group(5, next()).group(330, block.owner).group(100, "AcDbEntity");
        file.group(8, "0").group(100, "AcDbBlockBegin").group(2, block.name).group(70, "0");
        file.group(10, 1.0).group(20, 2.0).group(30, 3.0).group(3, block.name).group(1, "");
        if (block.entityLayer != nullptr) {
            file.group(0, "CIRCLE").group(5, next()).group(330, block.owner);
            file.group(100, "AcDbEntity").group(8, block.entityLayer).group(100, "AcDbCircle");
            file.group(10, 0.0).group(20, 0.0).group(40, 1.0);
        }
        file.group(0, "ENDBLK").group(5, next()).group(8, "0");
    }
    return file.endSection();
}

TextFile withEntitiesAndObjects() {
    TextFile file = fullDrawing();
    file.section("ENTITIES");
    file.group(0, "LINE").group(5, "60").group(330, "1B").group(67, "1").group(8, "sheet 1");
    file.group(0, "LINE").group(5, "61").group(330, "1F").group(8, "first");
    file.group(0, "LINE").group(5, "62").group(67, "1").group(410, "Plan B").group(8, "by name");
    file.group(0, "LINE").group(5, "63").group(8, "second").group(410, "Model");
    file.group(0, "LINE").group(5, "64").group(67, "1").group(8, "by flag");
    file.endSection().section("OBJECTS");
    file.group(0, "DICTIONARY").group(5, "C").group(330, "0").group(100, "AcDbDictionary");
    file.group(3, "SETTINGS").group(350, "70").group(3, "ACAD_LAYOUT").group(350, "1A");
    file.group(0, "DICTIONARY").group(5, "70").group(330, "C").group(100, "AcDbDictionary");
    file.group(281, "1").group(3, "Scale").group(360, "71");
    file.group(0, "XRECORD").group(5, "71").group(102, "{ACAD_REACTORS").group(330, "70");
    file.group(102, "}").group(330, "70").group(100, "AcDbXrecord").group(280, "1");
    file.group(8, "500").group(10, 1.0).group(20, 2.0).group(30, 3.0).group(40, 0.5);
    file.group(102, "{kept").group(70, "-7").group(90, "70000").group(330, "61");
    file.group(310, "00FF").group(1, "\xB9\xDC");
    file.group(0, "DICTIONARY").group(5, "1A").group(330, "C");
    const struct {
        const char* handle;
        const char* name;
        const char* block;
    } layouts[] = {{"72", "Plan B", "1C"}, {"73", "Model", "1F"}, {"74", "Plan A", "1B"}};
    for (const auto& layout : layouts) {
        file.group(0, "LAYOUT").group(5, layout.handle).group(330, "1A");
        file.group(100, "AcDbPlotSettings").group(1, "page").group(100, "AcDbLayout");
        file.group(1, layout.name).group(70, "1").group(71, "0").group(330, layout.block);
    }
    return file.endSection()
        .section("MINE")
        .group(1, "free")
        .group(0, "THING")
        .group(5, "61")
        .endSection()
        .endOfFile();
}

TEST(LoadStructure, SpacesHoldTheirEntitiesModelSpaceFirstThenLayoutsInFileOrder) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(withEntitiesAndObjects().bytes());
    const auto& spaces = drawing.database().spaceIds();
    ASSERT_EQ(spaces.size(), 3U);
    EXPECT_EQ(spaces[0], drawing.block(L"*model_space"));
    EXPECT_EQ(spaces[1], drawing.block(L"*Paper_Space0")) << "its layout object stands first";
    EXPECT_EQ(spaces[2], drawing.block(L"*Paper_Space"));
    EXPECT_EQ(layersOf(drawing.entitiesOf(spaces[0])),
              (std::vector<std::wstring>{L"first", L"second"}));
    EXPECT_EQ(layersOf(drawing.entitiesOf(spaces[1])),
              (std::vector<std::wstring>{L"sheet 2", L"by name"}));
    EXPECT_EQ(layersOf(drawing.entitiesOf(spaces[2])),
              (std::vector<std::wstring>{L"sheet 1", L"by flag"}));
    const auto* const sheet = host_db::peek<AcDbBlockTableRecord>(spaces[1]);
    EXPECT_EQ(sheet->getLayoutId(), drawing.byHandle(0x72));
    EXPECT_EQ(spaces[0].handle().value(), 0x1FU);
}

TEST(LoadStructure, TablesKeepRecordsHandlesAndProperties) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(withEntitiesAndObjects().bytes());
    const AcDbDatabase& database = drawing.database();
    EXPECT_EQ(database.layerTableId().handle().value(), 2U);
    EXPECT_EQ(database.blockTableId().handle().value(), 1U);
    const auto* const layer = host_db::peek<AcDbLayerTableRecord>(drawing.byHandle(0x11));
    ASSERT_NE(layer, nullptr);
    EXPECT_STREQ(layer->name(), L"Pipes");
    EXPECT_TRUE(layer->isOff());
    EXPECT_TRUE(layer->isFrozen());
    EXPECT_TRUE(layer->isLocked());
    EXPECT_EQ(layer->colorIndex(), 3);
    EXPECT_EQ(database.clayer(), drawing.byHandle(0x11)) << "named in another case";
    const auto* const style = host_db::peek<AcDbTextStyleTableRecord>(drawing.byHandle(0x12));
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->textSize(), 2.5);
    EXPECT_EQ(style->xScale(), 0.8);
    EXPECT_STREQ(style->fontFile(), L"txt.shx");
    EXPECT_STREQ(style->bigFontFile(), L"gbcbig.shx");
    ASSERT_NE(host_db::peek<AcDbDimStyleTableRecord>(drawing.byHandle(0x15)), nullptr);
    const auto* const well = host_db::peek<AcDbBlockTableRecord>(drawing.byHandle(0x1D));
    ASSERT_NE(well, nullptr);
    EXPECT_EQ(well->origin().z, 3.0);
    EXPECT_EQ(layersOf(well->entityIds()), (std::vector<std::wstring>{L"inside"}));
}

TEST(LoadStructure, LayersThatEntitiesNameAreMadeOnce) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(withEntitiesAndObjects().bytes());
    const auto names = recordNames(drawing.database().layerTableId());
    EXPECT_EQ(std::count(names.begin(), names.end(), L"first"), 1);
    EXPECT_EQ(std::count(names.begin(), names.end(), L"0"), 1);
    EXPECT_EQ(names[0], L"0");
    EXPECT_EQ(names[1], L"Pipes");
}

TEST(LoadStructure, ApplicationsBeforeTheirTableAreThoseOfTheTable) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(withEntitiesAndObjects().bytes());
    const auto names = recordNames(drawing.database().regAppTableId());
    ASSERT_GE(names.size(), 2U);
    EXPECT_EQ(names[0], L"ACAD");
    EXPECT_EQ(names[1], L"LayerApp");
    EXPECT_FALSE(contains(names, L"LAYERAPP")) << "the same application in another case";
    const auto* const layer = host_db::peekObject(drawing.byHandle(0x11));
    EXPECT_TRUE(layer->hasXdataOf(drawing.database().applications().find(L"layerapp")));
    EXPECT_EQ(xdataLines(*layer),
              (std::vector<std::wstring>{L"1001=LAYERAPP", L"1000=on a layer"}));
}

TEST(LoadStructure, DictionariesAndXrecords) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(withEntitiesAndObjects().bytes());
    const AcDbObjectId rootId = drawing.database().namedObjectsDictionaryId();
    EXPECT_EQ(rootId.handle().value(), 0xCU);
    const auto* const root = host_db::peek<AcDbDictionary>(rootId);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->numEntries(), 2U);
    AcDbObjectId id;
    ASSERT_EQ(root->getAt(L"settings", id), Acad::eOk);
    const auto* const settings = host_db::peek<AcDbDictionary>(id);
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->ownerId(), rootId);
    ASSERT_EQ(settings->getAt(L"Scale", id), Acad::eOk);
    const auto* const record = host_db::peek<AcDbXrecord>(id);
    ASSERT_NE(record, nullptr);
    const auto& items = record->items();
    ASSERT_EQ(items.size(), 9U);
    EXPECT_EQ(items[0].type, 8);
    EXPECT_STREQ(std::get<CString>(items[0].value), L"500");
    EXPECT_EQ(std::get<AcGePoint3d>(items[1].value).z, 3.0);
    EXPECT_EQ(std::get<double>(items[2].value), 0.5);
    EXPECT_STREQ(std::get<CString>(items[3].value), L"{kept");
    EXPECT_EQ(std::get<std::int64_t>(items[4].value), -7);
    EXPECT_EQ(std::get<std::int64_t>(items[5].value), 70000);
    EXPECT_EQ(std::get<std::int64_t>(items[6].value), drawing.byHandle(0x61).asOldId());
    EXPECT_EQ(std::get<std::string>(items[7].value), std::string("\0\xFF", 2));
    EXPECT_STREQ(std::get<CString>(items[8].value), L"\x7BA1");
    EXPECT_NE(host_db::peek<AcDbUnknownObject>(drawing.byHandle(0x73)), nullptr);
}

TEST(LoadStructure, OutlineAccountsForEveryByteOfTheFile) {
    const TextFile file = withEntitiesAndObjects();
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(file.bytes());
    const host_dxf::FileOutline& outline = drawing.outline();
    std::size_t place = 0;
    std::vector<std::string> sections;
    for (const host_dxf::FilePart& part : outline.parts) {
        EXPECT_LE(part.range.begin, part.bodyBegin);
        EXPECT_LE(part.bodyBegin, part.bodyEnd);
        EXPECT_LT(part.bodyEnd, part.range.end);
        if (part.kind == host_dxf::FilePart::Kind::Section) {
            EXPECT_EQ(part.range.begin, place) << part.name;
            place = part.range.end;
            sections.push_back(part.name);
        } else {
            EXPECT_LE(part.range.end, file.bytes().size());
        }
    }
    EXPECT_EQ(sections, (std::vector<std::string>{"HEADER", "CLASSES", "TABLES", "BLOCKS",
                                                  "ENTITIES", "OBJECTS", "MINE"}));
    EXPECT_EQ(outline.endOfFile, place);
    EXPECT_EQ(outline.endOfFile + std::string("0\nEOF\n").size(), file.bytes().size());
    ASSERT_EQ(outline.variables.size(), 4U);
    EXPECT_EQ(outline.variables[1].name, "$DWGCODEPAGE");
    EXPECT_EQ(
        file.bytes().substr(outline.variables[1].range.begin,
                            outline.variables[1].range.end - outline.variables[1].range.begin),
        "9\n$DWGCODEPAGE\n3\nANSI_936\n");
    EXPECT_EQ(outline.version, "AC1015");
    EXPECT_EQ(outline.handleSeed, 0x1000U);
}

TEST(LoadStructure, RecordsOfAPartFillItWithoutAGap) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(withEntitiesAndObjects().bytes());
    const auto& parts = drawing.outline().parts;
    const auto entities = std::find_if(parts.begin(), parts.end(),
                                       [](const auto& part) { return part.name == "ENTITIES"; });
    ASSERT_NE(entities, parts.end());
    std::size_t place = entities->bodyBegin;
    std::uint32_t line = entities->range.firstLine + 4;
    for (const std::uint64_t handle : {0x60, 0x61, 0x62, 0x63, 0x64}) {
        const AcDbObject* const entity = host_db::peekObject(drawing.byHandle(handle));
        ASSERT_NE(entity, nullptr);
        EXPECT_EQ(entity->sourceRange().begin, place);
        EXPECT_EQ(entity->sourceRange().firstLine, line);
        place = entity->sourceRange().end;
        const auto bytes = drawing.source().file().bytes().substr(
            entity->sourceRange().begin, place - entity->sourceRange().begin);
        line += static_cast<std::uint32_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    }
    EXPECT_EQ(place, entities->bodyEnd);
}

TEST(LoadStructure, OldDrawingsNameReferencesBeforeDefinitionsAndSpacesWithADollar) {
    TextFile file;
    file.section("HEADER").group(9, "$ACADVER").group(1, "AC1009").endSection();
    file.section("BLOCKS");
    file.group(0, "BLOCK").group(8, "0").group(2, "$MODEL_SPACE").group(70, "0");
    file.group(0, "ENDBLK").group(0, "BLOCK").group(8, "0").group(2, "$PAPER_SPACE");
    file.group(0, "ENDBLK").group(0, "BLOCK").group(8, "0").group(2, "OUTER").group(70, "0");
    file.group(0, "INSERT").group(8, "0").group(2, "INNER").group(0, "ENDBLK");
    file.group(0, "BLOCK").group(8, "0").group(2, "INNER").group(70, "0");
    file.group(0, "LINE").group(8, "0").group(0, "ENDBLK").endSection();
    file.section("ENTITIES").group(0, "LINE").group(8, "M");
    file.group(0, "LINE").group(8, "P").group(67, "1").endSection().endOfFile();
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(file.bytes());
    EXPECT_EQ(layersOf(drawing.modelSpace()), (std::vector<std::wstring>{L"M"}));
    ASSERT_EQ(drawing.database().spaceIds().size(), 2U);
    EXPECT_EQ(layersOf(drawing.entitiesOf(drawing.database().spaceIds()[1])),
              (std::vector<std::wstring>{L"P"}));
    const auto outer = drawing.entitiesOf(drawing.block(L"outer"));
    ASSERT_EQ(outer.size(), 1U);
    EXPECT_EQ(host_db::peek<AcDbBlockReference>(outer[0])->blockTableRecord(),
              drawing.block(L"INNER"));
    EXPECT_TRUE(drawing.block(L"$MODEL_SPACE").isNull());
}

TEST(LoadStructure, SecondDefinitionOfANameLeavesTheFirst) {
    TextFile file;
    file.section("BLOCKS");
    file.group(0, "BLOCK").group(2, "A").group(0, "LINE").group(8, "one").group(0, "ENDBLK");
    file.group(0, "BLOCK").group(2, "a").group(0, "LINE").group(8, "two").group(0, "ENDBLK");
    file.endSection().endOfFile();
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(file.bytes());
    EXPECT_EQ(layersOf(drawing.entitiesOf(drawing.block(L"A"))),
              (std::vector<std::wstring>{L"one"}));
}

/// One line with extended data in `bytes`, in a drawing of that version and code page.
std::string lineWithXdata(const char* version, const char* codePage, const TextFile& xdata) {
    TextFile file;
    file.section("HEADER").group(9, "$ACADVER").group(1, version);
    file.group(9, "$DWGCODEPAGE").group(3, codePage).endSection().section("ENTITIES");
    file.group(0, "LINE").group(5, "A").group(8, "0").group(10, 0.0).raw(xdata.bytes());
    return file.endSection().endOfFile().bytes();
}

TEST(LoadXdata, EveryKindOfItem) {
    TextFile xdata;
    xdata.group(1001, "APP").group(1000, "text").group(1002, "{").group(1003, "0");
    xdata.group(1004, "01fF").group(1005, "1F").group(1010, 1.0).group(1020, 2.0).group(1030, 3.0);
    xdata.group(1040, 0.5).group(1041, -1.5).group(1042, 2.0).group(1070, "-3");
    xdata.group(1071, "70000").group(1002, "}").group(1011, 7.0).group(1021, 8.0);
    const LoadedDrawing drawing =
        LoadedDrawing::fromBytes(lineWithXdata("AC1015", "ANSI_1252", xdata));
    const auto* const line = drawing.modelEntity<AcDbLine>(0);
    ASSERT_NE(line, nullptr);
    const std::vector<std::wstring> expected = {
        L"1001=APP", L"1000=text", L"1002={", L"1003=0",  L"1004=1 255", L"1005=1F", L"1010=1,2,3",
        L"1040=0.5", L"1041=-1.5", L"1042=2", L"1070=-3", L"1071=70000", L"1002=}",  L"1011=7,8,0"};
    EXPECT_EQ(xdataLines(*line), expected);
}

TEST(LoadXdata, ApplicationsByNameInTheDrawingsOwnEncoding) {
    // The application's name and its text, in the Chinese code page and in UTF-8.
    const struct {
        const char* version;
        const char* name;
        const char* text;
    } cases[] = {
        {"AC1015", "\xB9\xDC\xB5\xC0\xCF\xB5\xCD\xB3", "\xCE\xDB\xCB\xAE"},
        {"AC1032", "\xE7\xAE\xA1\xE9\x81\x93\xE7\xB3\xBB\xE7\xBB\x9F", "\xE6\xB1\xA1\xE6\xB0\xB4"},
        {"AC1009", "\\U+7BA1\\U+9053\\U+7CFB\\U+7EDF", "\\U+6C61\\U+6C34"},
    };
    for (const auto& drawn : cases) {
        TextFile xdata;
        xdata.group(1001, "OTHER").group(1000, "no").group(1001, drawn.name);
        xdata.group(1070, "1").group(1000, drawn.text).group(1000, "later").group(1001, "EMPTY");
        xdata.group(1001, "other").group(1000, "second of that name");
        const LoadedDrawing drawing =
            LoadedDrawing::fromBytes(lineWithXdata(drawn.version, "ANSI_936", xdata));
        const auto* const line = drawing.modelEntity<AcDbLine>(0);
        ASSERT_NE(line, nullptr);
        CString text = L"before";
        bool hasApp = false;
        EXPECT_TRUE(host_db::firstXdataString(*line, L"\x7BA1\x9053\x7CFB\x7EDF", text, hasApp));
        EXPECT_STREQ(text, L"\x6C61\x6C34") << drawn.version;
        EXPECT_TRUE(host_db::firstXdataString(*line, L"Other", text, hasApp));
        EXPECT_STREQ(text, L"no");
        EXPECT_TRUE(host_db::firstXdataString(*line, L"empty", text, hasApp));
        EXPECT_STREQ(text, L"");
        text = L"kept";
        EXPECT_FALSE(host_db::firstXdataString(*line, L"MISSING", text, hasApp));
        EXPECT_FALSE(hasApp);
        EXPECT_STREQ(text, L"kept");
        EXPECT_EQ(xdataLines(*line, L"\x7BA1\x9053\x7CFB\x7EDF"),
                  (std::vector<std::wstring>{L"1001=\x7BA1\x9053\x7CFB\x7EDF", L"1070=1",
                                             L"1000=\x6C61\x6C34", L"1000=later"}));
        EXPECT_TRUE(
            contains(recordNames(drawing.database().regAppTableId()), L"\x7BA1\x9053\x7CFB\x7EDF"))
            << "registered although the drawing has no such table";
    }
}

TEST(LoadXdata, CommentsAreNoItems) {
    TextFile xdata;
    xdata.group(1001, "A").group(999, "note").group(1000, "x").group(999, "note");
    const LoadedDrawing drawing =
        LoadedDrawing::fromBytes(lineWithXdata("AC1015", "ANSI_1252", xdata));
    EXPECT_EQ(xdataLines(*drawing.modelEntity<AcDbLine>(0)),
              (std::vector<std::wstring>{L"1001=A", L"1000=x"}));
}

TEST(LoadXdata, FileThatNamesNoEncodingIsUtf8WhenItsBytesAre) {
    const std::string head = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n";
    const std::string tail = "\n0\nENDSEC\n0\nEOF\n";
    const LoadedDrawing unicode = LoadedDrawing::fromBytes(head + "\xE7\xAE\xA1" + tail);
    EXPECT_EQ(layerOf(unicode.modelEntityId(0)), L"\x7BA1");
    const LoadedDrawing western = LoadedDrawing::fromBytes(head + "\xE7\xAE" + tail);
    EXPECT_EQ(layerOf(western.modelEntityId(0)), L"\x00E7\x00AE");
}

void writeBinary(BinaryFile& file, const char* version) {
    file.text(0, "SECTION").text(2, "HEADER").text(9, "$ACADVER").text(1, version);
    file.text(9, "$DWGCODEPAGE").text(3, "ANSI_936").text(0, "ENDSEC");
    file.text(0, "SECTION").text(2, "ENTITIES").text(0, "CIRCLE").text(5, "1A");
    file.text(8, "\xB9\xDC").int16(62, 5).real(10, 1.5).real(20, -2.0).real(30, 0.0);
    file.real(40, 0.25).text(1001, "APP").text(1000, "\xCE\xDB").real(1040, 2.5);
    file.int16(1070, -1).int32(1071, 70000).chunk(1004, std::string_view("\0\xFE", 2));
    file.text(0, "ENDSEC").text(0, "EOF");
}

TEST(LoadBinary, BothWidthsOfGroupCodes) {
    for (const auto codes : {BinaryFile::Codes::Short, BinaryFile::Codes::Wide}) {
        BinaryFile file(codes);
        writeBinary(file, codes == BinaryFile::Codes::Short ? "AC1009" : "AC1015");
        const LoadedDrawing drawing = LoadedDrawing::fromBytes(file.bytes());
        const auto* const circle = drawing.modelEntity<AcDbCircle>(0);
        ASSERT_NE(circle, nullptr);
        EXPECT_EQ(circle->center().x, 1.5);
        EXPECT_EQ(circle->center().y, -2.0);
        EXPECT_EQ(circle->radius(), 0.25);
        EXPECT_EQ(circle->colorIndex(), 5);
        EXPECT_EQ(circle->objectId().handle().value(), 0x1AU);
        EXPECT_EQ(layerOf(circle->objectId()), L"\x7BA1");
        EXPECT_EQ(xdataLines(*circle),
                  (std::vector<std::wstring>{L"1001=APP", L"1000=\x6C61", L"1040=2.5", L"1070=-1",
                                             L"1071=70000", L"1004=0 254"}));
    }
}

} // namespace
