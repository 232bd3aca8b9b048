#include "database/DatabaseBuilder.h"

#include "host/database/DatabaseFixture.h"

#include "database/AcDbUnknownObject.h"

#include <limits>

namespace {

using host_db::DatabaseBuilder;
using host_db::EntityHeader;
using host_db::ObjectHeader;

class DatabaseBuilderTest : public ::testing::Test {
protected:
    static ObjectHeader header(std::uint64_t handle) {
        ObjectHeader result;
        result.handle = handle;
        result.source = {10, 20, 3, 0};
        return result;
    }

    static EntityHeader entityHeader(std::uint64_t handle) {
        EntityHeader result;
        result.handle = handle;
        result.source = {10, 20, 3, 0};
        return result;
    }

    AcDbObjectId addLine(AcDbObjectId block, std::uint64_t handle) {
        return builder_.addEntity(block, std::make_unique<AcDbLine>(), entityHeader(handle));
    }

    AcDbDatabase database_{false};
    DatabaseBuilder builder_{database_};
};

TEST_F(DatabaseBuilderTest, FinishCompletesAnEmptyFile) {
    builder_.finish();
    EXPECT_FALSE(database_.layerZero().isNull());
    EXPECT_FALSE(database_.layerZero().handle().isNull());
    EXPECT_FALSE(database_.blockTableId().handle().isNull());
    EXPECT_EQ(database_.spaceIds().size(), 2U);
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

TEST_F(DatabaseBuilderTest, ObjectsKeepTheFilesHandlesAndStandUnmodified) {
    const AcDbObjectId model = builder_.addBlock(L"*Model_Space", 0, header(0x1F));
    const AcDbObjectId line = addLine(model, 0x30);
    builder_.finish();
    EXPECT_EQ(model.handle().value(), 0x1FU);
    EXPECT_EQ(line.handle().value(), 0x30U);
    const auto* object = host_db::peek<AcDbLine>(line);
    ASSERT_NE(object, nullptr);
    EXPECT_FALSE(object->isModified());
    EXPECT_FALSE(object->isNewObject());
    EXPECT_EQ(object->sourceRange().begin, 10U);
    EXPECT_EQ(object->sourceRange().firstLine, 3U);
    EXPECT_EQ(object->layerId(), database_.layerZero());
    EXPECT_EQ(object->ownerId(), model);
    EXPECT_EQ(database_.modelSpaceId(), model);
}

TEST_F(DatabaseBuilderTest, ATakenHandleIsRefused) {
    const AcDbObjectId model = builder_.ensureBlock(L"*Model_Space");
    EXPECT_FALSE(addLine(model, 0x30).isNull());
    EXPECT_TRUE(builder_.isTaken(0x30));
    EXPECT_TRUE(addLine(model, 0x30).isNull());
    EXPECT_FALSE(builder_.claimHandle(0x30));
    EXPECT_TRUE(builder_.claimHandle(0x31));
    EXPECT_FALSE(builder_.claimHandle(0x31));
    EXPECT_FALSE(builder_.claimHandle(0));
    EXPECT_TRUE(addLine(model, 0x31).isNull());
    EXPECT_EQ(host_db::peek<AcDbBlockTableRecord>(model)->entityIds().size(), 1U);
}

TEST_F(DatabaseBuilderTest, AReservedHandleLeadsToTheLaterObject) {
    const AcDbObjectId later = builder_.idForHandle(0x50);
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, later, AcDb::kForRead), Acad::eInvalidObjectId);
    EXPECT_FALSE(builder_.isTaken(0x50));
    EXPECT_EQ(addLine(builder_.ensureBlock(L"*Model_Space"), 0x50), later);
    EXPECT_TRUE(builder_.idForHandle(0).isNull());
    AcDbObjectId found;
    EXPECT_EQ(database_.getAcDbObjectId(found, false, AcDbHandle(0x50)), Acad::eOk);
    EXPECT_EQ(found, later);
    EXPECT_EQ(database_.getAcDbObjectId(found, false, AcDbHandle(0x51)), Acad::eUnknownHandle);
}

TEST_F(DatabaseBuilderTest, ObjectsWithoutHandlesGetOnesThatNoOtherHas) {
    const AcDbObjectId model = builder_.ensureBlock(L"*Model_Space");
    const AcDbObjectId nameless = addLine(model, 0);
    for (std::uint64_t handle = 1; handle <= 20; ++handle) {
        ASSERT_FALSE(addLine(model, handle).isNull());
    }
    builder_.finish();
    EXPECT_GT(nameless.handle().value(), 20U);
    EXPECT_NE(nameless.handle(), model.handle());
}

TEST_F(DatabaseBuilderTest, TheSeedIsAboveEveryHandle) {
    builder_.setHandleSeed(0x100);
    const AcDbObjectId model = builder_.ensureBlock(L"*Model_Space");
    addLine(model, 0x2000);
    addLine(model, 0x10);
    builder_.finish();
    EXPECT_GT(database_.handseed().value(), 0x2000U);
}

TEST_F(DatabaseBuilderTest, TheVeryLastHandleMayBeUsed) {
    constexpr std::uint64_t kLast = std::numeric_limits<std::uint64_t>::max();
    const AcDbObjectId model = builder_.ensureBlock(L"*Model_Space");
    addLine(model, kLast);
    addLine(model, kLast - 1);
    const AcDbObjectId nameless = addLine(model, 0);
    builder_.finish();
    EXPECT_NE(nameless.handle().value(), kLast);
    EXPECT_NE(nameless.handle().value(), 0U);
    EXPECT_NE(nameless.handle(), model.handle());
}

TEST_F(DatabaseBuilderTest, TablesTakeTheFilesHandlesEvenWhenReferredToBefore) {
    const AcDbObjectId early = builder_.idForHandle(0x2);
    ASSERT_TRUE(builder_.adoptTable(DatabaseBuilder::Table::Layer, header(0x2)));
    EXPECT_EQ(database_.layerTableId(), early);
    EXPECT_FALSE(builder_.adoptTable(DatabaseBuilder::Table::Block, header(0x2)));
    EXPECT_TRUE(builder_.adoptNamedObjects(header(0xC)));
    EXPECT_EQ(database_.namedObjectsDictionaryId().handle().value(), 0xCU);
    builder_.finish();
    EXPECT_EQ(host_db::peekObject(database_.layerZero())->ownerId(), early);
    EXPECT_FALSE(host_db::peekObject(early)->isModified());
}

TEST_F(DatabaseBuilderTest, SpacesStandInTheGivenOrder) {
    const AcDbObjectId paper0 = builder_.addBlock(L"*Paper_Space0", 0, header(1));
    const AcDbObjectId paper = builder_.addBlock(L"*Paper_Space", 0, header(2));
    const AcDbObjectId model = builder_.addBlock(L"*Model_Space", 0, header(3));
    const AcDbObjectId spaces[] = {model, paper, paper0};
    builder_.setSpaces(spaces);
    builder_.finish();
    ASSERT_EQ(database_.spaceIds().size(), 3U);
    EXPECT_EQ(database_.spaceIds()[1], paper);
    EXPECT_EQ(database_.spaceIds()[2], paper0);
}

TEST_F(DatabaseBuilderTest, WithoutLayoutsPaperSpacesCountInTableOrder) {
    builder_.addBlock(L"*Paper_Spaceship", 0, header(9));
    const AcDbObjectId paper0 = builder_.addBlock(L"*PAPER_SPACE0", 0, header(1));
    const AcDbObjectId paper = builder_.addBlock(L"*PAPER_SPACE", 0, header(2));
    const AcDbObjectId model = builder_.addBlock(L"*MODEL_SPACE", 0, header(3));
    builder_.finish();
    ASSERT_EQ(database_.spaceIds().size(), 3U);
    EXPECT_EQ(database_.spaceIds()[0], model);
    EXPECT_EQ(database_.spaceIds()[1], paper0);
    EXPECT_EQ(database_.spaceIds()[2], paper);
}

TEST_F(DatabaseBuilderTest, OfTwoRecordsOfOneNameTheFirstIsFound) {
    const AcDbObjectId first = builder_.addBlock(L"WELL", 0, header(1));
    const AcDbObjectId second = builder_.addBlock(L"Well", 0, header(2));
    EXPECT_FALSE(second.isNull());
    EXPECT_EQ(builder_.findRecord(DatabaseBuilder::Table::Block, L"well"), first);
}

TEST_F(DatabaseBuilderTest, DictionariesMayNameObjectsBeforeTheyAreThere) {
    const AcDbObjectId root = database_.namedObjectsDictionaryId();
    builder_.addDictionaryEntry(root, L"LATER", builder_.idForHandle(0x77));
    const auto* dictionary = host_db::peek<AcDbDictionary>(root);
    AcDbObjectId id;
    EXPECT_EQ(dictionary->getAt(L"LATER", id), Acad::eKeyNotFound);
    const AcDbObjectId added =
        builder_.addObject(std::make_unique<AcDbUnknownObject>(L"GROUP"), root, header(0x77));
    EXPECT_EQ(dictionary->getAt(L"later", id), Acad::eOk);
    EXPECT_EQ(id, added);
    EXPECT_STREQ(host_db::peekObject(id)->dxfTypeName(), L"GROUP");
    auto record = std::make_unique<AcDbXrecord>();
    DatabaseBuilder::setXrecordItems(*record, {{8, CString(L"500")}});
    const AcDbObjectId xrecord = builder_.addObject(std::move(record), root, header(0x78));
    EXPECT_FALSE(host_db::peekObject(xrecord)->isModified());
    resbuf* chain = nullptr;
    host_db::peek<AcDbXrecord>(xrecord)->rbChain(&chain);
    EXPECT_STREQ(chain->resval.rstring, L"500");
    acutRelRb(chain);
}

TEST_F(DatabaseBuilderTest, AttributesBelongToTheirReference) {
    const AcDbObjectId model = builder_.ensureBlock(L"*Model_Space");
    const AcDbObjectId well = builder_.addBlock(L"WELL", 0, header(0x20));
    builder_.setBlockOrigin(well, {1.0, 2.0, 3.0});
    const AcDbObjectId insert = builder_.addEntity(
        model, std::make_unique<AcDbBlockReference>(AcGePoint3d(), well), entityHeader(0x30));
    const AcDbObjectId attribute =
        builder_.addAttribute(insert, std::make_unique<AcDbAttribute>(), entityHeader(0x31));
    builder_.setAttributesEnd(insert, {40, 50, 9, 0});
    EXPECT_EQ(host_db::peekObject(attribute)->ownerId(), insert);
    const auto* reference = host_db::peek<AcDbBlockReference>(insert);
    EXPECT_EQ(reference->attributesEnd().begin, 40U);
    EXPECT_EQ(host_db::peek<AcDbBlockTableRecord>(model)->entityIds().size(), 1U);
    EXPECT_EQ(host_db::peek<AcDbBlockTableRecord>(well)->origin().z, 3.0);
    EXPECT_TRUE(builder_.addAttribute(model, std::make_unique<AcDbAttribute>(), entityHeader(0x32))
                    .isNull());
}

TEST_F(DatabaseBuilderTest, ManyObjectsAreFoundByHandle) {
    const AcDbObjectId model = builder_.ensureBlock(L"*Model_Space");
    std::vector<AcDbObjectId> ids;
    for (std::uint64_t i = 1; i <= 200'000; ++i) {
        ids.push_back(addLine(model, i * 3));
    }
    builder_.finish();
    for (std::uint64_t i = 1; i <= 200'000; i += 997) {
        AcDbObjectId id;
        ASSERT_EQ(database_.getAcDbObjectId(id, false, AcDbHandle(i * 3)), Acad::eOk);
        ASSERT_EQ(id, ids[i - 1]);
        ASSERT_FALSE(builder_.isTaken(i * 3 + 1) && i * 3 + 1 < 600'000);
    }
}

} // namespace
