#include "application/AcApDocument.h"
#include "application/HostDocuments.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbLine.h"
#include "database/OpenObject.h"
#include "database/ResultBuffer.h"
#include "database/SymbolTables.h"
#include "Siblings.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

constexpr const wchar_t* system = L"管道系统";
constexpr const wchar_t* size = L"管径";

/// A drawing with one line in it; at the end nothing may be left open and no chain alive.
class XdataTest : public ::testing::Test {
protected:
    XdataTest()
        : document(host::newDocument()),
          line(PutEntityToDatabase(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(5, 0, 0)))) {}
    ~XdataTest() override {
        EXPECT_EQ(host_db::openObjectCount(), 0U);
        EXPECT_EQ(host_db::liveResultBuffers(), 0U);
        host::closeDocument(document);
    }

    AcDbDatabase* database() const { return document->database(); }

    /// Registers the applications that the chain names, sets it on the line and releases it.
    void put(resbuf* chain) const {
        for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
            if (item->restype == 1001) {
                ASSERT_EQ(database()->registerApplication(item->resval.rstring), Acad::eOk);
            }
        }
        AcDbObject* object = nullptr;
        ASSERT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(object->setXData(chain), Acad::eOk);
        object->close();
        acutRelRb(chain);
    }

    /// What the line's data read item by item: codes and texts, other values as a dash.
    std::wstring dump() const {
        AcDbObject* object = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForRead), Acad::eOk);
        resbuf* chain = object->xData();
        object->close();
        std::wstring text;
        for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
            const bool isText = item->restype == 1001 || item->restype == 1000;
            text += std::to_wstring(item->restype) + L":" + (isText ? item->resval.rstring : L"-") +
                    L";";
        }
        acutRelRb(chain);
        return text;
    }

    AcDbObjectId addBlock(const wchar_t* name) const {
        AcDbBlockTable* table = nullptr;
        EXPECT_EQ(database()->getBlockTable(table, AcDb::kForWrite), Acad::eOk);
        auto* record = new AcDbBlockTableRecord;
        EXPECT_EQ(record->setName(name), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        record->close();
        table->close();
        return id;
    }

    AcApDocument* document;
    AcDbObjectId line;
};

TEST_F(XdataTest, MissingApplicationLeavesTheOutput) {
    CString value(L"before");
    EXPECT_EQ(GetXdata(line, system, value), 0);
    EXPECT_EQ(value, L"before");
    put(acutBuildList(1001, size, 1000, L"300", RTNONE));
    EXPECT_EQ(GetXdata(line, system, value), 0);
    EXPECT_EQ(value, L"before");
}

TEST_F(XdataTest, FirstStringItemIsTheValue) {
    put(acutBuildList(1001, system, 1070, 7, 1000, L"污水", 1000, L"雨水", RTNONE));
    CString value;
    EXPECT_NE(GetXdata(line, system, value), 0);
    EXPECT_EQ(value, L"污水");
}

TEST_F(XdataTest, ApplicationWithoutAStringGivesAnEmptyText) {
    put(acutBuildList(1001, system, 1070, 7, 1001, size, 1000, L"300", RTNONE));
    CString value(L"before");
    EXPECT_NE(GetXdata(line, system, value), 0);
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_NE(GetXdata(line, size, value), 0);
    EXPECT_EQ(value, L"300");
}

TEST_F(XdataTest, EmptyStringIsAValue) {
    put(acutBuildList(1001, system, 1000, L"", 1000, L"b", RTNONE));
    CString value(L"before");
    EXPECT_NE(GetXdata(line, system, value), 0);
    EXPECT_TRUE(value.IsEmpty());
}

TEST_F(XdataTest, ApplicationNamesIgnoreCase) {
    put(acutBuildList(1001, L"Pipe_Key", 1000, L"a", RTNONE));
    CString value;
    EXPECT_NE(GetXdata(line, L"PIPE_KEY", value), 0);
    EXPECT_EQ(value, L"a");
}

TEST_F(XdataTest, EachFormReadsTheSame) {
    put(acutBuildList(1001, system, 1000, L"污水", RTNONE));
    ads_name name = {0, 0};
    ASSERT_EQ(acdbGetAdsName(name, line), Acad::eOk);
    CString byName;
    EXPECT_NE(GetXdata(name, system, byName), 0);
    EXPECT_EQ(byName, L"污水");

    AcDbLine* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, line, AcDb::kForWrite), Acad::eOk);
    CString byObject;
    EXPECT_NE(GetXdata(opened, system, byObject), 0);
    EXPECT_EQ(byObject, L"污水");
    EXPECT_TRUE(opened->isWriteEnabled());
    opened->close();
}

TEST_F(XdataTest, WhatCannotBeOpenedCarriesNothing) {
    put(acutBuildList(1001, system, 1000, L"污水", RTNONE));
    CString value(L"before");
    EXPECT_EQ(GetXdata(AcDbObjectId::kNull, system, value), 0);
    const ads_name none = {0, 0};
    EXPECT_EQ(GetXdata(none, system, value), 0);
    EXPECT_EQ(GetXdata(static_cast<AcDbObject*>(nullptr), system, value), 0);
    EXPECT_EQ(GetXdata(line, nullptr, value), 0);

    AcDbLine* writer = nullptr;
    ASSERT_EQ(acdbOpenObject(writer, line, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(GetXdata(line, system, value), 0);
    writer->close();
    ASSERT_EQ(EraseObject(line), 1);
    EXPECT_EQ(GetXdata(line, system, value), 0);
    EXPECT_EQ(value, L"before");
}

TEST_F(XdataTest, ReadersDoNotHinder) {
    put(acutBuildList(1001, system, 1000, L"污水", RTNONE));
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, line, AcDb::kForRead), Acad::eOk);
    CString value;
    EXPECT_NE(GetXdata(line, system, value), 0);
    EXPECT_EQ(SetXdata(line, system, L"x"), 0);
    reader->close();
}

TEST_F(XdataTest, SettingRegistersTheApplication) {
    AcDbRegAppTable* table = nullptr;
    ASSERT_EQ(database()->getRegAppTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_FALSE(table->has(system));
    table->close();
    EXPECT_EQ(SetXdata(line, system, L"污水"), 1);
    ASSERT_EQ(database()->getRegAppTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(table->has(system));
    table->close();
    EXPECT_EQ(dump(), L"1001:管道系统;1000:污水;");
}

TEST_F(XdataTest, SettingReplacesOneApplicationAndKeepsTheOthers) {
    put(acutBuildList(1001, system, 1070, 7, 1000, L"污水", 1000, L"rest", 1001, size, 1000, L"300",
                      1040, 2.5, RTNONE));
    EXPECT_EQ(SetXdata(line, system, L"雨水"), 1);
    CString value;
    EXPECT_NE(GetXdata(line, system, value), 0);
    EXPECT_EQ(value, L"雨水");
    const std::wstring all = dump();
    EXPECT_NE(all.find(L"1001:管径;1000:300;1040:-;"), std::wstring::npos);
    EXPECT_NE(all.find(L"1001:管道系统;1000:雨水;"), std::wstring::npos);
    EXPECT_EQ(all.find(L"rest"), std::wstring::npos);
    EXPECT_EQ(all.find(L"1070"), std::wstring::npos);
}

TEST_F(XdataTest, SettingAnEmptyTextKeepsTheApplication) {
    EXPECT_EQ(SetXdata(line, system, L""), 1);
    EXPECT_EQ(dump(), L"1001:管道系统;1000:;");
}

TEST_F(XdataTest, SettingOnAnOpenObject) {
    AcDbLine* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, line, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(SetXdata(opened, size, L"400"), 1);
    EXPECT_TRUE(opened->isWriteEnabled());
    opened->close();
    EXPECT_EQ(dump(), L"1001:管径;1000:400;");

    ASSERT_EQ(acdbOpenObject(opened, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(SetXdata(opened, size, L"500"), 0);
    EXPECT_EQ(SetXdata(opened, system, L"污水"), 0);
    opened->close();
    AcDbRegAppTable* table = nullptr;
    ASSERT_EQ(database()->getRegAppTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_FALSE(table->has(system)); // what cannot be written registers nothing
    table->close();
    EXPECT_EQ(dump(), L"1001:管径;1000:400;");
}

TEST_F(XdataTest, SettingOnAnObjectThatIsNotInADrawingYet) {
    auto* fresh = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 1, 0));
    EXPECT_EQ(SetXdata(fresh, size, L"400"), 1);
    const AcDbObjectId id = PutEntityToDatabase(fresh);
    CString value;
    EXPECT_NE(GetXdata(id, size, value), 0);
    EXPECT_EQ(value, L"400");
}

TEST_F(XdataTest, SettingFailsWhereNothingCanBeWritten) {
    EXPECT_EQ(SetXdata(AcDbObjectId::kNull, system, L"a"), 0);
    EXPECT_EQ(SetXdata(static_cast<AcDbObject*>(nullptr), system, L"a"), 0);
    EXPECT_EQ(SetXdata(line, nullptr, L"a"), 0);
    // More than the 16383 bytes that an object's extended data may take.
    EXPECT_EQ(SetXdata(line, system, CString(L'x', 20000)), 0);
    EXPECT_EQ(dump(), L"");
}

TEST_F(XdataTest, ErasingTakesAnObjectAway) {
    EXPECT_EQ(EraseObject(line), 1);
    EXPECT_TRUE(line.isErased());
    EXPECT_EQ(EraseObject(line), 0);
    EXPECT_EQ(EraseObject(AcDbObjectId::kNull), 0);
}

TEST_F(XdataTest, ErasingNeedsTheObjectFree) {
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(EraseObject(line), 0);
    reader->close();
    EXPECT_FALSE(line.isErased());
}

TEST_F(XdataTest, NewEntitiesGoToTheEndOfModelSpace) {
    auto* entity = new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6));
    AcDbObjectId id;
    ASSERT_EQ(PutEntityToDatabase(entity, id), Acad::eOk);
    EXPECT_FALSE(entity->isReadEnabled());
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, database()->modelSpaceId(), AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(space->entityIds().size(), 2U);
    EXPECT_EQ(space->entityIds()[0], line);
    EXPECT_EQ(space->entityIds()[1], id);
    space->close();
    AcDbLine* read = nullptr;
    ASSERT_EQ(acdbOpenObject(read, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(read->startPoint().y, 2.0);
    read->close();
}

TEST_F(XdataTest, EntityThatIsNotTakenStaysTheCallers) {
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, database()->modelSpaceId(), AcDb::kForRead), Acad::eOk);
    const auto entity = std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6));
    AcDbObjectId id = line;
    EXPECT_EQ(PutEntityToDatabase(entity.get(), id), Acad::eWasOpenForRead);
    EXPECT_EQ(id, line);
    EXPECT_TRUE(PutEntityToDatabase(entity.get()).isNull());
    space->close();
    EXPECT_EQ(PutEntityToDatabase(nullptr, id), Acad::eNullEntityPointer);
}

TEST_F(XdataTest, BlockNameIsTheDefinitionsOwnSpelling) {
    const AcDbObjectId definition = addBlock(L"vlt_Well_04");
    const AcDbObjectId id =
        PutEntityToDatabase(new AcDbBlockReference(AcGePoint3d(0, 0, 0), definition));
    CString name;
    EXPECT_TRUE(GetBlockRefName(id, name));
    EXPECT_EQ(name, L"vlt_Well_04");
}

TEST_F(XdataTest, BlockNameOfWhatIsNoReferenceStays) {
    CString name(L"before");
    EXPECT_FALSE(GetBlockRefName(line, name));
    EXPECT_FALSE(GetBlockRefName(AcDbObjectId::kNull, name));
    const AcDbObjectId lost =
        PutEntityToDatabase(new AcDbBlockReference(AcGePoint3d(0, 0, 0), AcDbObjectId::kNull));
    EXPECT_FALSE(GetBlockRefName(lost, name));
    EXPECT_EQ(name, L"before");
}

TEST(XdataWithoutADrawing, NothingCanBePut) {
    const auto entity = std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6));
    AcDbObjectId id;
    EXPECT_EQ(PutEntityToDatabase(entity.get(), id), Acad::eNoDatabase);
    EXPECT_EQ(SetXdata(entity.get(), L"a", L"b"), 0);
    CString value;
    EXPECT_EQ(GetXdata(entity.get(), L"a", value), 0);
}

} // namespace
