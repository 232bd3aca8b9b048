#include "database/AcDbBlockTableRecord.h"

#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbDatabase.h"
#include "database/ListRemoval.h"
#include "database/OpenObject.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, L"BLOCK_RECORD")

AcDbBlockTableRecord::AcDbBlockTableRecord(const AcDbBlockTableRecord& other)
    : AcDbSymbolTableRecord(other), origin_(other.origin_), layout_(other.layout_) {}

std::unique_ptr<AcDbObject> AcDbBlockTableRecord::savedCopy() const {
    return std::unique_ptr<AcDbObject>(new AcDbBlockTableRecord(*this));
}

void AcDbBlockTableRecord::takeLists(AcDbObject& changed) {
    AcDbSymbolTableRecord::takeLists(changed);
    entities_ = std::move(static_cast<AcDbBlockTableRecord&>(changed).entities_);
}

void AcDbBlockTableRecord::disown(const AcDbObject& owned) {
    host_db::eraseLast(entities_, owned.objectId());
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    return change(origin_, origin);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    if (entity == nullptr) {
        return Acad::eNullEntityPointer;
    }
    if (objectId().isNull()) {
        return Acad::eNotInDatabase;
    }
    Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        status = database()->addAcDbObject(id, entity, objectId());
    }
    if (status == Acad::eOk) {
        entities_.push_back(id);
    }
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator,
                                                    bool /*atBeginning*/, bool skipDeleted) const {
    std::vector<AcDbObjectId> ids;
    std::copy_if(entities_.begin(), entities_.end(), std::back_inserter(ids),
                 [&](AcDbObjectId id) { return !skipDeleted || id.isValid(); });
    iterator = new AcDbBlockTableRecordIterator(std::move(ids));
    return Acad::eOk;
}

bool AcDbBlockTableRecord::isLayout() const {
    const AcDbDatabase* owner = database();
    return owner != nullptr && std::find(owner->spaceIds().begin(), owner->spaceIds().end(),
                                         objectId()) != owner->spaceIds().end();
}

bool AcDbBlockTableRecord::isAnonymous() const {
    return name().Find(L'*') == 0 && !isLayout();
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    return std::any_of(entities_.begin(), entities_.end(), [](AcDbObjectId id) {
        return host_db::peek<AcDbAttributeDefinition>(id) != nullptr;
    });
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
    id = objectId();
    return done() ? Acad::eInvalidIndex : Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const {
    return acdbOpenAcDbEntity(entity, objectId(), mode, openErased);
}
