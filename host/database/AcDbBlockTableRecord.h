#pragma once

#include "database/AcDbEntity.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbSymbolTableRecord.h"

#include <vector>

class AcDbBlockTableRecordIterator;

/// A block definition, model space or a layout's paper space: a base point and entities in drawing
/// order.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);

public:
    AcDbBlockTableRecord() = default;

    /// The base point, which a reference puts at its insertion point.
    AcGePoint3d origin() const { return origin_; }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);

    /// Adds an entity that is in no database yet at the end; the database takes it, and it stays
    /// open for write for the caller to close. The record must be open for write.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// A walk over the entities there are now; deleted by the caller.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    /// Model space or a layout's paper space.
    bool isLayout() const;
    /// The layout object of a space; null for other definitions.
    AcDbObjectId getLayoutId() const { return layout_; }
    /// The name starts with an asterisk and is no layout's.
    bool isAnonymous() const;
    bool hasAttributeDefinitions() const;

    /// Ids of all entities in drawing order, erased ones included.
    const std::vector<AcDbObjectId>& entityIds() const { return entities_; }

protected:
    /// A copy without the entities.
    AcDbBlockTableRecord(const AcDbBlockTableRecord& other);
    std::unique_ptr<AcDbObject> savedCopy() const override;
    void takeLists(AcDbObject& changed) override;
    void disown(const AcDbObject& owned) override;

private:
    friend class host_db::DatabaseBuilder;

    AcGePoint3d origin_;
    AcDbObjectId layout_;
    std::vector<AcDbObjectId> entities_;
};

/// Walks the entities of a block table record as they were when the walk began.
class AcDbBlockTableRecordIterator : public AcDbObjectIterator {
public:
    using AcDbObjectIterator::AcDbObjectIterator;

    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    /// Opens the entity; to be closed by the caller.
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;
};
