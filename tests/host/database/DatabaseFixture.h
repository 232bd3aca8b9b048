#pragma once

#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/AcDbLine.h"
#include "database/OpenObject.h"

#include <gtest/gtest.h>

#include <memory>

/// Points agree in each coordinate within `slack`.
inline void expectPoint(const AcGePoint3d& point, double x, double y, double z,
                        double slack = 1e-9) {
    EXPECT_NEAR(point.x, x, slack);
    EXPECT_NEAR(point.y, y, slack);
    EXPECT_NEAR(point.z, z, slack);
}

inline void expectBox(const AcDbExtents& box, const AcGePoint3d& min, const AcGePoint3d& max,
                      double slack = 1e-9) {
    expectPoint(box.minPoint(), min.x, min.y, min.z, slack);
    expectPoint(box.maxPoint(), max.x, max.y, max.z, slack);
}

/// An empty drawing that is the working one; afterwards nothing may be left open and no result
/// buffer alive that was not before.
class DatabaseFixture : public ::testing::Test {
protected:
    DatabaseFixture() : database_(std::make_unique<AcDbDatabase>()) {
        acdbHostApplicationServices()->setWorkingDatabase(database_.get());
    }
    ~DatabaseFixture() override {
        EXPECT_EQ(host_db::openObjectCount(), opensBefore_);
        EXPECT_EQ(host_db::liveResultBuffers(), buffersBefore_);
    }

    AcDbDatabase& database() { return *database_; }
    void closeDatabase() { database_.reset(); }

    /// Adds an entity to a block table record and closes it.
    static AcDbObjectId addTo(AcDbObjectId block, std::unique_ptr<AcDbEntity> entity) {
        AcDbBlockTableRecord* record = nullptr;
        EXPECT_EQ(acdbOpenObject(record, block, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(record->appendAcDbEntity(id, entity.get()), Acad::eOk);
        EXPECT_EQ(entity.release()->close(), Acad::eOk);
        EXPECT_EQ(record->close(), Acad::eOk);
        return id;
    }

    AcDbObjectId add(std::unique_ptr<AcDbEntity> entity) {
        return addTo(database_->modelSpaceId(), std::move(entity));
    }

    AcDbObjectId addLine(const AcGePoint3d& start = {}, const AcGePoint3d& end = {1.0, 0.0, 0.0}) {
        return add(std::make_unique<AcDbLine>(start, end));
    }

    AcDbObjectId addBlock(const ACHAR* name, const AcGePoint3d& origin = {}) {
        auto record = std::make_unique<AcDbBlockTableRecord>();
        record->setName(name);
        record->setOrigin(origin);
        return addRecord<AcDbBlockTable>(std::move(record));
    }

    template<typename Table, typename Record>
    AcDbObjectId addRecord(std::unique_ptr<Record> record) {
        Table* table = nullptr;
        EXPECT_EQ(database_->getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record.get()), Acad::eOk);
        EXPECT_EQ(record.release()->close(), Acad::eOk);
        EXPECT_EQ(table->close(), Acad::eOk);
        return id;
    }

private:
    std::size_t opensBefore_ = host_db::openObjectCount();
    std::size_t buffersBefore_ = host_db::liveResultBuffers();
    std::unique_ptr<AcDbDatabase> database_;
};
