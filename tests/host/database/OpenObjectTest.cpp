#include "host/database/DatabaseFixture.h"

#include "database/AcDbArc.h"

#include <vector>

namespace {

using OpenObjectTest = DatabaseFixture;

TEST_F(OpenObjectTest, ManyReadersExcludeAWriter) {
    const AcDbObjectId id = addLine();
    AcDbObject* first = nullptr;
    AcDbObject* second = nullptr;
    AcDbObject* writer = nullptr;
    const std::size_t before = host_db::openObjectCount();
    ASSERT_EQ(acdbOpenAcDbObject(first, id, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(first, second);
    EXPECT_EQ(host_db::openObjectCount(), before + 2);
    EXPECT_EQ(acdbOpenAcDbObject(writer, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(writer, nullptr);
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(second->close(), Acad::eOk);
    EXPECT_EQ(second->close(), Acad::eInvalidOpenState);
    EXPECT_EQ(acdbOpenAcDbObject(writer, id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(writer->close(), Acad::eOk);
}

TEST_F(OpenObjectTest, AWriterExcludesEveryoneElse) {
    const AcDbObjectId id = addLine();
    AcDbObject* writer = nullptr;
    AcDbObject* other = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(writer, id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(other, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenAcDbObject(other, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
    EXPECT_EQ(writer->close(), Acad::eOk);
}

TEST_F(OpenObjectTest, TheTwoHundredFiftySeventhReaderIsRefused) {
    const AcDbObjectId id = addLine();
    AcDbObject* object = nullptr;
    for (int i = 0; i < 256; ++i) {
        ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead), Acad::eOk);
    }
    AcDbObject* extra = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(extra, id, AcDb::kForRead), Acad::eAtMaxReaders);
    for (int i = 0; i < 256; ++i) {
        ASSERT_EQ(object->close(), Acad::eOk);
    }
}

TEST_F(OpenObjectTest, UpgradeNeedsToBeTheOnlyReader) {
    const AcDbObjectId id = addLine();
    AcDbObject* object = nullptr;
    AcDbObject* second = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(object->upgradeOpen(), Acad::eWasOpenForRead);
    EXPECT_EQ(second->close(), Acad::eOk);
    EXPECT_EQ(object->upgradeOpen(), Acad::eOk);
    EXPECT_TRUE(object->isWriteEnabled());
    EXPECT_EQ(object->upgradeOpen(), Acad::eWasOpenForWrite);
    EXPECT_EQ(object->downgradeOpen(), Acad::eOk);
    EXPECT_FALSE(object->isWriteEnabled());
    EXPECT_EQ(object->downgradeOpen(), Acad::eWasOpenForRead);
    EXPECT_EQ(object->close(), Acad::eOk);
    EXPECT_EQ(object->upgradeOpen(), Acad::eInvalidOpenState);
    EXPECT_EQ(object->downgradeOpen(), Acad::eInvalidOpenState);
}

TEST_F(OpenObjectTest, TheClassMustFit) {
    const AcDbObjectId id = addLine();
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbArc::desc(), false),
              Acad::eNotThatKindOfClass);
    EXPECT_EQ(object, nullptr);
    ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbCurve::desc(), false), Acad::eOk);
    EXPECT_EQ(object->isA(), AcDbLine::desc());
    EXPECT_TRUE(object->isKindOf(AcDbEntity::desc()));
    EXPECT_FALSE(object->isKindOf(AcDbArc::desc()));
    EXPECT_EQ(AcDbArc::cast(object), nullptr);
    EXPECT_EQ(AcDbCurve::cast(object), object);
    EXPECT_EQ(object->close(), Acad::eOk);
    AcDbArc* arc = nullptr;
    EXPECT_EQ(acdbOpenObject(arc, id), Acad::eNotThatKindOfClass);
    EXPECT_EQ(arc, nullptr);
}

TEST_F(OpenObjectTest, NullAndForeignIdsHaveStatusesOfTheirOwn) {
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
    EXPECT_EQ(acdbOpenAcDbObject(object, AcDbObjectId::fromOldId(1), AcDb::kForRead),
              Acad::eInvalidObjectId);
    EXPECT_EQ(acdbOpenAcDbObject(object, AcDbObjectId::fromOldId(-1), AcDb::kForRead),
              Acad::eInvalidObjectId);
}

TEST_F(OpenObjectTest, AnErasedObjectKeepsItsIdAndHandle) {
    const AcDbObjectId id = addLine();
    const AcDbHandle handle = id.handle();
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(line->erase(), Acad::eNotOpenForWrite);
    ASSERT_EQ(line->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(line->erase(), Acad::eOk);
    EXPECT_EQ(line->close(), Acad::eOk);
    EXPECT_TRUE(id.isErased());
    EXPECT_FALSE(id.isValid());
    EXPECT_EQ(id.handle(), handle);
    EXPECT_EQ(acdbOpenObject(line, id), Acad::eWasErased);
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite, true), Acad::eOk);
    EXPECT_EQ(line->erase(false), Acad::eOk);
    EXPECT_EQ(line->close(), Acad::eOk);
    EXPECT_TRUE(id.isValid());
}

TEST_F(OpenObjectTest, AnIdOutlivesItsDatabase) {
    const AcDbObjectId id = addLine();
    closeDatabase();
    const AcDbDatabase next;
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead), Acad::eInvalidObjectId);
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(id.handle().isNull());
    EXPECT_EQ(id.database(), nullptr);
    EXPECT_NE(next.modelSpaceId().asOldId(), id.asOldId());
}

TEST(OpenDatabasesTest, IdsFindTheirDrawingInWhateverOrderDrawingsClose) {
    std::vector<std::unique_ptr<AcDbDatabase>> databases;
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < 4; ++i) {
        databases.push_back(std::make_unique<AcDbDatabase>());
        ids.push_back(databases.back()->layerZero());
    }
    for (const std::size_t closed : {3U, 1U, 2U, 0U}) {
        databases[closed].reset();
        for (std::size_t i = 0; i < ids.size(); ++i) {
            EXPECT_EQ(ids[i].database(), databases[i].get());
        }
        EXPECT_EQ(AcDbObjectId().database(), nullptr);
    }
    const AcDbDatabase next;
    EXPECT_EQ(next.layerZero().database(), &next);
    EXPECT_EQ(ids.back().database(), nullptr);
}

TEST_F(OpenObjectTest, WhatWasLeftOpenGoesWithTheDatabase) {
    const AcDbObjectId id = addLine();
    const std::size_t before = host_db::openObjectCount();
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(host_db::openObjectCount(), before + 1);
    closeDatabase();
    EXPECT_EQ(host_db::openObjectCount(), before);
}

TEST_F(OpenObjectTest, SettersNeedTheObjectOpenForWrite) {
    const AcDbObjectId id = addLine({0.0, 0.0, 0.0}, {5.0, 0.0, 0.0});
    const std::uint64_t revision = database().revision();
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(line->setEndPoint({9.0, 0.0, 0.0}), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->endPoint().x, 5.0);
    EXPECT_EQ(database().revision(), revision);
    ASSERT_EQ(line->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(line->setEndPoint({9.0, 0.0, 0.0}), Acad::eOk);
    EXPECT_EQ(line->endPoint().x, 9.0);
    EXPECT_EQ(line->close(), Acad::eOk);
    EXPECT_GT(database().revision(), revision);
}

TEST_F(OpenObjectTest, EntityNamesLeadToIdsAndBack) {
    const AcDbObjectId id = addLine();
    ads_name name = {7, 7};
    ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
    AcDbObjectId back;
    EXPECT_EQ(acdbGetObjectId(back, name), Acad::eOk);
    EXPECT_EQ(back, id);
    EXPECT_EQ(acdbGetAdsName(name, AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(name[0], 0);
    EXPECT_EQ(name[1], 0);
    EXPECT_EQ(acdbGetObjectId(back, name), Acad::eInvalidAdsName);
    EXPECT_EQ(back, id);
    ACHAR text[17];
    id.handle().getIntoAsciiBuffer(text);
    ASSERT_EQ(acdbHandEnt(text, name), RTNORM);
    EXPECT_EQ(name[0], id.asOldId());
    EXPECT_EQ(acdbHandEnt(L"FFFFFF", name), RTERROR);
    EXPECT_EQ(name[0], 0);
}

TEST_F(OpenObjectTest, AnObjectOutsideADatabaseIsTheCallers) {
    AcDbLine line;
    EXPECT_TRUE(line.objectId().isNull());
    EXPECT_EQ(line.setEndPoint({2.0, 0.0, 0.0}), Acad::eOk);
    EXPECT_EQ(line.close(), Acad::eOk);
    EXPECT_EQ(line.erase(), Acad::eNotInDatabase);
    AcDbHandle handle(5);
    line.getAcDbHandle(handle);
    EXPECT_TRUE(handle.isNull());
}

TEST(AcDbHandleTest, IsHexadecimalText) {
    ACHAR buffer[17];
    AcDbHandle(0x1F3C).getIntoAsciiBuffer(buffer);
    EXPECT_STREQ(buffer, L"1F3C");
    AcDbHandle().getIntoAsciiBuffer(buffer);
    EXPECT_STREQ(buffer, L"0");
    AcDbHandle(0xFFFFFFFFFFFFFFFFULL).getIntoAsciiBuffer(buffer);
    EXPECT_STREQ(buffer, L"FFFFFFFFFFFFFFFF");
    EXPECT_EQ(AcDbHandle(L"1f3C").value(), 0x1F3CU);
    EXPECT_EQ(AcDbHandle(L"0000000000000000A").value(), 0U);
    EXPECT_TRUE(AcDbHandle(L"12G").isNull());
    EXPECT_TRUE(AcDbHandle(L"").isNull());
    EXPECT_EQ(AcDbHandle(0x123456789ULL).low(), 0x23456789U);
    EXPECT_EQ(AcDbHandle(0x123456789ULL).high(), 1U);
}

} // namespace
