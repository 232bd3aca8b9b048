#include "host/database/DatabaseFixture.h"

#include "database/AcDbSymbolTableIterator.h"
#include "database/AcDbXrecord.h"
#include "database/SymbolTableSearch.h"

namespace {

using TablesTest = DatabaseFixture;

TEST_F(TablesTest, AnEmptyDrawingHasTheStandardRecords) {
    AcDbLinetypeTable* linetypes = nullptr;
    ASSERT_EQ(database().getLinetypeTable(linetypes, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(linetypes->has(L"continuous"));
    EXPECT_TRUE(linetypes->has(L"BYLAYER"));
    EXPECT_TRUE(linetypes->has(L"byblock"));
    EXPECT_FALSE(linetypes->has(L"DASHED"));
    linetypes->close();
    EXPECT_FALSE(database().layerZero().isNull());
    EXPECT_FALSE(database().textstyle().isNull());
    ASSERT_EQ(database().spaceIds().size(), 2U);
    EXPECT_EQ(database().spaceIds()[0], database().modelSpaceId());
    const auto* model = host_db::peek<AcDbBlockTableRecord>(database().modelSpaceId());
    EXPECT_EQ(model->name(), L"*Model_Space");
    EXPECT_TRUE(model->isLayout());
    EXPECT_FALSE(model->isAnonymous());
    EXPECT_EQ(model->ownerId(), database().blockTableId());
}

TEST_F(TablesTest, NamesAreFoundInAnyCaseAndReadBackInTheirOwnSpelling) {
    addBlock(L"Vlt_Well_04");
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(database().getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* record = nullptr;
    ASSERT_EQ(table->getAt(L"VLT_WELL_04", record, AcDb::kForRead), Acad::eOk);
    const ACHAR* name = nullptr;
    record->getName(name);
    EXPECT_STREQ(name, L"Vlt_Well_04");
    ACHAR* copy = nullptr;
    record->getName(copy);
    EXPECT_STREQ(copy, L"Vlt_Well_04");
    acutDelString(copy);
    record->close();
    AcDbObjectId id = database().layerZero();
    EXPECT_EQ(table->getAt(L"missing", id), Acad::eKeyNotFound);
    EXPECT_EQ(id, database().layerZero());
    EXPECT_EQ(table->getAt(L"missing", record, AcDb::kForRead), Acad::eKeyNotFound);
    EXPECT_EQ(record, nullptr);
    table->close();
    EXPECT_EQ(Acad::eKeyNotFound, 22);
}

TEST_F(TablesTest, AddingNeedsANewNameAndTheTableOpenForWrite) {
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(database().getLayerTable(table, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableRecord* layer = new AcDbLayerTableRecord;
    EXPECT_EQ(table->add(layer), Acad::eInvalidInput);
    layer->setName(L"管线");
    EXPECT_EQ(table->add(layer), Acad::eNotOpenForWrite);
    ASSERT_EQ(table->upgradeOpen(), Acad::eOk);
    ASSERT_EQ(table->add(layer), Acad::eOk);
    EXPECT_EQ(table->add(layer), Acad::eDuplicateKey);
    EXPECT_EQ(layer->setName(L"0"), Acad::eDuplicateKey);
    EXPECT_EQ(layer->setName(L"Pipes"), Acad::eOk);
    EXPECT_EQ(layer->setIsLocked(true), Acad::eOk);
    EXPECT_TRUE(layer->isLocked());
    EXPECT_FALSE(layer->isFrozen());
    EXPECT_EQ(layer->setIsFrozen(true), Acad::eOk);
    EXPECT_EQ(layer->flags(), 5);
    EXPECT_EQ(layer->setColorIndex(0), Acad::eInvalidInput);
    layer->close();
    EXPECT_FALSE(table->has(L"管线"));
    EXPECT_TRUE(table->has(L"PIPES"));
    AcDbTextStyleTableRecord style;
    style.setName(L"S");
    EXPECT_EQ(table->AcDbSymbolTable::add(&style), Acad::eNotThatKindOfClass);
    table->close();
}

TEST_F(TablesTest, ErasedRecordsAreNotFound) {
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"L");
    const AcDbObjectId id = addRecord<AcDbLayerTable>(std::move(layer));
    AcDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, id, AcDb::kForWrite), Acad::eOk);
    record->erase();
    record->close();
    AcDbLayerTable* table = nullptr;
    database().getSymbolTable(table, AcDb::kForRead);
    AcDbObjectId found;
    EXPECT_EQ(table->getAt(L"L", found), Acad::eKeyNotFound);
    EXPECT_EQ(table->getAt(L"l", found, true), Acad::eOk);
    EXPECT_EQ(found, id);
    AcDbSymbolTableIterator* walk = nullptr;
    ASSERT_EQ(table->newIterator(walk), Acad::eOk);
    ASSERT_FALSE(walk->done());
    EXPECT_EQ(walk->objectId(), database().layerZero());
    walk->step();
    EXPECT_TRUE(walk->done());
    delete walk;
    table->close();
}

TEST_F(TablesTest, EntitiesNameTheirLayer) {
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"管线");
    addRecord<AcDbLayerTable>(std::move(layer));
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, addLine(), AcDb::kForWrite), Acad::eOk);
    ACHAR* name = line->layer();
    EXPECT_STREQ(name, L"0");
    acutDelString(name);
    EXPECT_EQ(line->setLayer(L"none"), Acad::eKeyNotFound);
    EXPECT_EQ(line->setLayer(database().modelSpaceId()), Acad::eInvalidInput);
    EXPECT_EQ(line->setLayer(L"管线"), Acad::eOk);
    CString text;
    line->layer(text);
    EXPECT_EQ(text, L"管线");
    EXPECT_EQ(line->setColorIndex(257), Acad::eInvalidInput);
    EXPECT_EQ(line->colorIndex(), 256);
    EXPECT_EQ(line->setLinetype(L"CONTINUOUS"), Acad::eOk);
    name = line->linetype();
    EXPECT_STREQ(name, L"Continuous");
    acutDelString(name);
    line->close();
}

TEST_F(TablesTest, BlockTableRecordsWalkTheirEntities) {
    const AcDbObjectId first = addLine();
    const AcDbObjectId second = addLine();
    AcDbBlockTableRecord* model = nullptr;
    ASSERT_EQ(acdbOpenObject(model, database().modelSpaceId(), AcDb::kForRead), Acad::eOk);
    AcDbLine extra;
    EXPECT_EQ(model->appendAcDbEntity(&extra), Acad::eNotOpenForWrite);
    EXPECT_TRUE(extra.objectId().isNull());
    AcDbBlockTableRecordIterator* walk = nullptr;
    ASSERT_EQ(model->newIterator(walk), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(walk->getEntityId(id), Acad::eOk);
    EXPECT_EQ(id, first);
    walk->step();
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(walk->getEntity(entity), Acad::eOk);
    EXPECT_EQ(entity->objectId(), second);
    EXPECT_EQ(entity->blockId(), model->objectId());
    entity->close();
    walk->step();
    EXPECT_TRUE(walk->done());
    EXPECT_EQ(walk->getEntityId(id), Acad::eInvalidIndex);
    delete walk;
    model->close();
}

TEST_F(TablesTest, ApplicationsAreRegisteredOnce) {
    EXPECT_EQ(acdbTblSearch(L"APPID", L"管径"), nullptr);
    EXPECT_EQ(acdbRegApp(L"管径"), RTNORM);
    EXPECT_EQ(acdbRegApp(L"管径"), RTNORM);
    EXPECT_EQ(acdbRegApp(L""), RTERROR);
    resbuf* found = acdbTblSearch(L"appid", L"管径");
    ASSERT_NE(found, nullptr);
    EXPECT_STREQ(found->resval.rstring, L"APPID");
    EXPECT_STREQ(found->rbnext->resval.rstring, L"管径");
    acutRelRb(found);
    EXPECT_EQ(acdbTblSearch(L"NOTABLE", L"0"), nullptr);
    const auto* table = host_db::peek<AcDbRegAppTable>(database().regAppTableId());
    EXPECT_EQ(table->recordIds().size(), 2U);
    EXPECT_FALSE(table->find(L"管径").handle().isNull());
}

class DictionaryTest : public DatabaseFixture {
protected:
    AcDbDictionary* openRoot(AcDb::OpenMode mode) {
        AcDbDictionary* root = nullptr;
        EXPECT_EQ(database().getNamedObjectsDictionary(root, mode), Acad::eOk);
        return root;
    }
};

TEST_F(DictionaryTest, NestedDictionariesHoldXrecords) {
    AcDbDictionary* root = openRoot(AcDb::kForWrite);
    AcDbObjectId id;
    auto* settings = new AcDbDictionary;
    ASSERT_EQ(root->setAt(L"TKVLT_DRAWING_SETTINGS", settings, id), Acad::eOk);
    EXPECT_EQ(settings->ownerId(), root->objectId());
    auto* record = new AcDbXrecord;
    ASSERT_EQ(settings->setAt(L"DrawScale", record, id), Acad::eOk);
    resbuf* chain = acutBuildList(8, L"500", 0);
    EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
    record->close();
    settings->close();
    root->close();

    root = openRoot(AcDb::kForRead);
    AcDbObject* object = nullptr;
    EXPECT_EQ(root->getAt(L"missing", object, AcDb::kForRead), Acad::eKeyNotFound);
    EXPECT_EQ(object, nullptr);
    ASSERT_EQ(root->getAt(L"tkvlt_drawing_settings", object, AcDb::kForRead), Acad::eOk);
    AcDbDictionary* nested = AcDbDictionary::cast(object);
    ASSERT_NE(nested, nullptr);
    AcDbObject* inner = nullptr;
    ASSERT_EQ(nested->getAt(L"DrawScale", inner, AcDb::kForRead), Acad::eOk);
    chain = nullptr;
    ASSERT_EQ(AcDbXrecord::cast(inner)->rbChain(&chain), Acad::eOk);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->restype, 8);
    EXPECT_STREQ(chain->resval.rstring, L"500");
    acutRelRb(chain);
    inner->close();
    nested->close();
    root->close();
}

TEST_F(DictionaryTest, AnEntryTakesThePlaceOfTheOneBefore) {
    AcDbDictionary* root = openRoot(AcDb::kForWrite);
    AcDbObjectId first;
    AcDbObjectId second;
    const Adesk::UInt32 before = root->numEntries();
    auto* old = new AcDbXrecord;
    ASSERT_EQ(root->setAt(L"R", old, first), Acad::eOk);
    AcDbXrecord refused;
    EXPECT_EQ(root->setAt(L"r", &refused, second), Acad::eWasOpenForWrite);
    old->close();
    auto* next = new AcDbXrecord;
    ASSERT_EQ(root->setAt(L"r", next, second), Acad::eOk);
    next->close();
    EXPECT_TRUE(first.isErased());
    EXPECT_EQ(root->numEntries(), before + 1);
    CString name;
    EXPECT_EQ(root->nameAt(second, name), Acad::eOk);
    EXPECT_EQ(name, L"r");
    EXPECT_EQ(root->remove(L"R"), Acad::eOk);
    EXPECT_EQ(root->remove(L"R"), Acad::eKeyNotFound);
    EXPECT_FALSE(root->has(second));
    root->close();
}

TEST_F(DictionaryTest, FailedEntriesStayTheCallers) {
    AcDbDictionary* root = openRoot(AcDb::kForRead);
    AcDbXrecord record;
    AcDbObjectId id;
    EXPECT_EQ(root->setAt(L"R", &record, id), Acad::eNotOpenForWrite);
    EXPECT_EQ(root->setAt(L"", &record, id), Acad::eInvalidKey);
    EXPECT_EQ(root->setAt(L"R", nullptr, id), Acad::eNullObjectPointer);
    EXPECT_TRUE(record.objectId().isNull());
    root->close();
    AcDbDictionary loose;
    EXPECT_EQ(loose.setAt(L"R", &record, id), Acad::eNotInDatabase);
}

TEST_F(DictionaryTest, AnIteratorWalksInOrder) {
    AcDbDictionary* root = openRoot(AcDb::kForWrite);
    AcDbObjectId id;
    for (const ACHAR* name : {L"b", L"a", L"c"}) {
        auto* record = new AcDbXrecord;
        ASSERT_EQ(root->setAt(name, record, id), Acad::eOk);
        record->close();
    }
    const std::unique_ptr<AcDbDictionaryIterator> walk(root->newIterator());
    std::wstring names;
    for (; !walk->done(); walk->next()) {
        names += walk->name();
    }
    EXPECT_EQ(names, L"bac");
    root->close();
}

TEST_F(DictionaryTest, XrecordsRefuseWhatNoFileHolds) {
    AcDbXrecord record;
    resbuf* chain = acutBuildList(8, L"x", RTSTR, L"y", 0);
    EXPECT_EQ(record.setFromRbChain(*chain), Acad::eInvalidResBuf);
    acutRelRb(chain);
    chain = acutBuildList(-4, L"x", 0);
    EXPECT_EQ(record.setFromRbChain(*chain), Acad::eInvalidResBuf);
    acutRelRb(chain);
    ASSERT_EQ(record.rbChain(&chain), Acad::eOk);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(DictionaryTest, AnObjectMayHaveADictionaryOfItsOwn) {
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, addLine(), AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(line->extensionDictionary().isNull());
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eAlreadyInDb);
    const auto* own = host_db::peek<AcDbDictionary>(line->extensionDictionary());
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->ownerId(), line->objectId());
    line->close();
}

} // namespace
