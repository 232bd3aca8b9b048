#include "SavedDrawing.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDb3dPolyline.h"
#include "database/AcDbArc.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbLine.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbText.h"
#include "dxf/SaveDxf.h"

#include <gtest/gtest.h>

#include <memory>

using dxf_test::addEntity;
using dxf_test::addRecord;
using dxf_test::askAnother;
using dxf_test::changeObject;
using dxf_test::LoadedDrawing;
using dxf_test::savedBytes;

namespace {

using VersionFormPage = std::tuple<std::string, std::string, std::string>;

class SaveVersions : public testing::TestWithParam<VersionFormPage> {
protected:
    SaveVersions()
        : bytes_(dxf_test::richCase(std::get<0>(GetParam()), std::get<1>(GetParam()),
                                    std::get<2>(GetParam()))),
          drawing_(LoadedDrawing::fromBytes(bytes_)) {}

    bool isR12() const { return std::get<0>(GetParam()) == "R12"; }
    std::string name() const {
        return std::get<0>(GetParam()) + std::get<1>(GetParam()) + std::get<2>(GetParam());
    }
    AcDbObjectId model() const { return drawing_.database().modelSpaceId(); }
    AcDbObjectId entity(std::size_t index) const { return drawing_.modelEntityId(index); }
    /// R12 has no place for dictionaries and xrecords.
    void refuseObjects() const;
    void ask(const std::vector<std::string>& questions) const {
        askAnother(drawing_.database(), name(), questions);
    }

    std::string bytes_;
    LoadedDrawing drawing_;
};

TEST_P(SaveVersions, UnchangedDrawingKeepsEveryByte) {
    ASSERT_GT(bytes_.size(), 10000U);
    EXPECT_TRUE(savedBytes(drawing_.database()) == bytes_);
    EXPECT_TRUE(savedBytes(drawing_.database()) == bytes_) << "a second time";
}

TEST_P(SaveVersions, ChangedEntities) {
    changeObject<AcDbLine>(entity(0), [](AcDbLine& line) {
        line.setStartPoint({2.5, -2.25, 0.125});
        line.setColorIndex(6);
    });
    changeObject<AcDbArc>(entity(1), [](AcDbArc& arc) { arc.setRadius(0.1); });
    changeObject<AcDbBlockReference>(entity(3), [](AcDbBlockReference& reference) {
        reference.setPosition({11.0, 20.0, 0.0});
    });
    changeObject<AcDbText>(
        entity(6), [](AcDbText& text) { text.setTextString(L"\x6807\x9AD8 ^ \x1F600 13"); });
    ask({"tuple(space[0].dxf.start) == (2.5, -2.25, 0.125)", "space[0].dxf.color == 6",
         "tuple(space[0].dxf.end) == (1e7, 3, 4)", "space[1].dxf.radius == 0.1",
         "space[1].dxf.start_angle == 30", "tuple(space[3].dxf.insert) == (11, 20, 0)",
         "space[3].attribs[0].dxf.text == \"\xE4\xBA\x95-1\"", "space[3].dxf.rotation == 90"});
    const LoadedDrawing again = LoadedDrawing::fromBytes(savedBytes(drawing_.database()));
    EXPECT_STREQ(again.modelEntity<AcDbText>(6)->textStringConst(), L"\x6807\x9AD8 ^ \x1F600 13");
    EXPECT_EQ(again.modelEntity<AcDbLine>(0)->startPoint().x, 2.5);
}

TEST_P(SaveVersions, ExtendedDataChangedAddedTakenOut) {
    dxf_test::setXdata(entity(0), L"\x7BA1\x9053\x7CFB\x7EDF", {L"\x7ED9\x6C34"});
    dxf_test::setXdata(entity(0), L"PLAIN", {});
    dxf_test::setXdata(entity(1), L"\x65B0\x5E94\x7528", {L"first", L"second"});
    ask({"space[0].get_xdata(\"\xE7\xAE\xA1\xE9\x81\x93\xE7\xB3\xBB\xE7\xBB\x9F\") == "
         "[(1000, \"\xE7\xBB\x99\xE6\xB0\xB4\")]",
         "space[0].has_xdata(\"PLAIN\") == False",
         "space[1].get_xdata(\"\xE6\x96\xB0\xE5\xBA\x94\xE7\x94\xA8\") == "
         "[(1000, \"first\"), (1000, \"second\")]",
         "(\"\xE6\x96\xB0\xE5\xBA\x94\xE7\x94\xA8\" in doc.appids) == True"});
}

TEST_P(SaveVersions, ErasedEntitiesAreLeftOutWithAllThatBelongsToThem) {
    const std::size_t count = drawing_.modelSpace().size();
    for (const std::size_t index : {0U, 3U, 4U}) {
        dxf_test::eraseObject(entity(index));
    }
    ask({"len(space) == " + std::to_string(count - 3), "space[0].dxftype() == \"ARC\"",
         "space[1].dxftype() == \"CIRCLE\"", "space[2].dxftype() == \"POLYLINE\"",
         "len(space[2].vertices) == 3"});
}

AcDbObjectId addDefinition(AcDbDatabase& database) {
    auto* const block = new AcDbBlockTableRecord;
    block->setName(L"\x9600\x95E8");
    const AcDbObjectId id = addRecord(database.blockTableId(), block);
    addEntity(id, new AcDbCircle({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 0.75));
    auto* const definition = new AcDbAttributeDefinition;
    definition->setTag(L"NO");
    definition->setPrompt(L"number");
    definition->setHeight(0.5);
    addEntity(id, definition);
    return id;
}

TEST_P(SaveVersions, NewLayerBlockReferenceAndCurves) {
    AcDbDatabase& database = drawing_.database();
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"\x65B0\x5C42");
    layer->setColorIndex(4);
    const AcDbObjectId layerId = addRecord(database.layerTableId(), layer);
    database.setClayer(layerId);
    const std::size_t first = drawing_.modelSpace().size();
    auto* const line = new AcDbLine({1.0, 2.0, 3.0}, {4.0, 5.0, 6.25});
    line->setLayer(layerId);
    const AcDbObjectId lineId = addEntity(model(), line);
    dxf_test::setXdata(lineId, L"\x65B0\x5E94\x7528", {L"x"});
    auto* const light = new AcDbPolyline;
    light->addVertexAt(0, {0.0, 0.0}, 0.5, 0.25, 0.5);
    light->addVertexAt(1, {3.0, 0.0});
    addEntity(model(), light);
    auto* const flat = new AcDb2dPolyline;
    flat->appendVertex({{0.0, 0.0, 0.0}, 1.0});
    flat->appendVertex({{2.0, 0.0, 0.0}});
    flat->setClosed(1);
    addEntity(model(), flat);
    auto* const spatial = new AcDb3dPolyline;
    spatial->appendVertex({{1.0, 2.0, 3.0}});
    spatial->appendVertex({{4.0, 5.0, 6.0}});
    addEntity(model(), spatial);
    addEntity(model(), new AcDbText({1.0, 1.0, 0.0}, L"\x65B0 text", {}, 2.5, 0.0));
    const AcDbObjectId reference =
        addEntity(model(), new AcDbBlockReference({7.0, 8.0, 0.0}, addDefinition(database)));
    changeObject<AcDbBlockReference>(reference, [](AcDbBlockReference& opened) {
        auto* const attribute = new AcDbAttribute;
        attribute->setTag(L"NO");
        attribute->setTextString(L"V-7");
        attribute->setHeight(0.5);
        ASSERT_EQ(opened.appendAttribute(attribute), Acad::eOk);
        attribute->close();
    });
    const auto at = [first](int offset) {
        return "space[" + std::to_string(first + static_cast<std::size_t>(offset)) + "]";
    };
    ask({at(0) + ".dxf.layer == \"\xE6\x96\xB0\xE5\xB1\x82\"",
         "doc.layers.get(\"\xE6\x96\xB0\xE5\xB1\x82\").dxf.color == 4",
         "doc.header[\"$CLAYER\"] == \"\xE6\x96\xB0\xE5\xB1\x82\"",
         "tuple(" + at(0) + ".dxf.end) == (4, 5, 6.25)",
         at(0) + ".get_xdata(\"\xE6\x96\xB0\xE5\xBA\x94\xE7\x94\xA8\") == [(1000, \"x\")]",
         isR12() ? at(1) + ".vertices[0].dxf.bulge == 0.5"
                 : at(1) + "[0] == (0, 0, 0.25, 0.5, 0.5)",
         "len(" + at(2) + ".vertices) == 2", at(2) + ".is_closed == True",
         at(2) + ".vertices[0].dxf.bulge == 1.0",
         "[tuple(v.dxf.location) for v in " + at(3) + ".vertices] == [(1, 2, 3), (4, 5, 6)]",
         at(4) + ".dxf.text == \"\xE6\x96\xB0 text\"",
         at(5) + ".dxf.name == \"\xE9\x98\x80\xE9\x97\xA8\"",
         at(5) + ".attribs[0].dxf.text == \"V-7\"",
         "[e.dxftype() for e in doc.blocks.get(\"\xE9\x98\x80\xE9\x97\xA8\")] == "
         "[\"CIRCLE\", \"ATTDEF\"]",
         "int(doc.header.get(\"$HANDSEED\", \"0\"), 16) > int(" + at(5) + ".dxf.handle, 16)"});
}

TEST_P(SaveVersions, NewEntityInADefinitionAndInEveryLayout) {
    AcDbDatabase& database = drawing_.database();
    addEntity(drawing_.block(L"\x68C0\x67E5\x4E95"),
              new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    for (const AcDbObjectId space : database.spaceIds()) {
        addEntity(space, new AcDbLine({5.0, 5.0, 0.0}, {6.0, 5.0, 0.0}));
    }
    std::vector<std::string> questions = {
        "tuple(list(doc.blocks.get(\"\xE6\xA3\x80\xE6\x9F\xA5\xE4\xBA\x95\"))[-1].dxf.end) == (1, "
        "0, 0)",
        "tuple(space[-1].dxf.end) == (6, 5, 0)",
        "tuple(list(doc.layout(\"Layout1\"))[-1].dxf.end) == (6, 5, 0)"};
    if (!isR12()) {
        questions.emplace_back(
            "tuple(list(doc.layout(\"\xE5\xB8\x83\xE5\xB1\x80 2\"))[-1].dxf.end) == (6, 5, 0)");
    }
    ask(questions);
}

AcDbObjectId setting(const LoadedDrawing& drawing) {
    AcDbObjectId id;
    host_db::peek<AcDbDictionary>(drawing.database().namedObjectsDictionaryId())
        ->getAt(L"TKVLT_DRAWING_SETTINGS", id);
    host_db::peek<AcDbDictionary>(id)->getAt(L"DrawScale", id);
    return id;
}

void setItems(AcDbXrecord& record, resbuf* chain) {
    EXPECT_EQ(record.setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
}

void SaveVersions::refuseObjects() const {
    changeObject<AcDbDictionary>(
        drawing_.database().namedObjectsDictionaryId(), [](AcDbDictionary& root) {
            const auto record = std::make_unique<AcDbXrecord>();
            AcDbObjectId id;
            EXPECT_EQ(root.setAt(L"SET", record.get(), id), Acad::eNotApplicable);
            EXPECT_TRUE(id.isNull());
        });
    changeObject<AcDbObject>(entity(0), [](AcDbObject& line) {
        EXPECT_EQ(line.createExtensionDictionary(), Acad::eNotApplicable);
    });
    EXPECT_TRUE(savedBytes(drawing_.database()) == bytes_);
}

TEST_P(SaveVersions, XrecordsSetAddedAndTakenOut) {
    if (isR12()) {
        refuseObjects();
        return;
    }
    changeObject<AcDbXrecord>(setting(drawing_), [](AcDbXrecord& record) {
        setItems(record, acutBuildList(8, L"1000", 40, 0.5, RTNONE));
    });
    AcDbObjectId added;
    AcDbXrecord* const fresh = new AcDbXrecord;
    changeObject<AcDbDictionary>(
        drawing_.database().namedObjectsDictionaryId(),
        [&](AcDbDictionary& root) { EXPECT_EQ(root.setAt(L"\x65B0", fresh, added), Acad::eOk); });
    setItems(*fresh, acutBuildList(1, L"\x6587", 90, 70000, RTNONE));
    fresh->close();
    changeObject<AcDbObject>(entity(0), [](AcDbObject& line) {
        EXPECT_EQ(line.createExtensionDictionary(), Acad::eOk);
    });
    ask({"[tuple(t) for t in doc.rootdict[\"TKVLT_DRAWING_SETTINGS\"][\"DrawScale\"].tags] == "
         "[(8, \"1000\"), (40, 0.5)]",
         "[tuple(t) for t in doc.rootdict[\"\xE6\x96\xB0\"].tags] == "
         "[(1, \"\xE6\x96\x87\"), (90, 70000)]",
         "space[0].has_extension_dict == True",
         "space[0].get_extension_dict().dictionary.dxf.owner == space[0].dxf.handle"});
    dxf_test::eraseObject(added);
    dxf_test::eraseObject(setting(drawing_));
    ask({"(\"\xE6\x96\xB0\" in doc.rootdict) == False",
         "len(doc.rootdict[\"TKVLT_DRAWING_SETTINGS\"]) == 0"});
}

INSTANTIATE_TEST_SUITE_P(
    AllVersions, SaveVersions,
    testing::Combine(testing::Values("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"),
                     testing::Values("text", "binary"), testing::Values("ANSI_936")),
    [](const auto& instance) {
        return std::get<0>(instance.param) + "_" + std::get<1>(instance.param);
    });

TEST(SaveNew, NewDrawingIsCompleteForAnotherLibrary) {
    AcDbDatabase database;
    askAnother(database, "empty", {"doc.dxfversion == \"AC1032\"", "len(space) == 0"});
    auto* const line = new AcDbLine({1.0, 2.0, 0.0}, {3.0, 4.0, 0.0});
    const AcDbObjectId id = addEntity(database.modelSpaceId(), line);
    dxf_test::setXdata(id, L"\x7BA1\x9053\x7CFB\x7EDF", {L"\x6C61\x6C34"});
    addEntity(database.spaceIds()[1], new AcDbLine({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}));
    AcDbObjectId record;
    auto* const fresh = new AcDbXrecord;
    changeObject<AcDbDictionary>(database.namedObjectsDictionaryId(), [&](AcDbDictionary& root) {
        ASSERT_EQ(root.setAt(L"SET", fresh, record), Acad::eOk);
    });
    setItems(*fresh, acutBuildList(8, L"500", RTNONE));
    fresh->close();
    askAnother(database, "new",
               {"tuple(space[0].dxf.end) == (3, 4, 0)", "len(doc.layout(\"Layout1\")) == 1",
                "int(space[0].dxf.handle, 16) == " + std::to_string(id.handle().value()),
                "space[0].get_xdata(\"\xE7\xAE\xA1\xE9\x81\x93\xE7\xB3\xBB\xE7\xBB\x9F\") == "
                "[(1000, \"\xE6\xB1\xA1\xE6\xB0\xB4\")]",
                "[tuple(t) for t in doc.rootdict[\"SET\"].tags] == [(8, \"500\")]",
                "(\"ACAD_LAYOUT\" in doc.rootdict) == True"});
}

} // namespace
