#include "database/AcDbEntity.h"

#include "database/AcDbBlockReference.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/OpenObject.h"

ACRX_DEFINE_MEMBERS(AcDbEntity, AcDbObject, nullptr)

namespace {

/// Where names are looked up for an entity: its own database, else the working one.
AcDbDatabase* homeOf(const AcDbEntity& entity) {
    AcDbDatabase* database = entity.database();
    return database != nullptr ? database : acdbHostApplicationServices()->workingDatabase();
}

Acad::ErrorStatus findIn(const AcDbDatabase* database, AcDbObjectId tableId, const ACHAR* name,
                         AcDbObjectId& id) {
    const auto* table = database == nullptr ? nullptr : host_db::peek<AcDbSymbolTable>(tableId);
    return table == nullptr ? Acad::eNoDatabase : table->getAt(name, id);
}

} // namespace

ACHAR* AcDbEntity::layer() const {
    CString name;
    layer(name);
    ACHAR* copy = nullptr;
    acutNewString(name, copy);
    return copy;
}

Acad::ErrorStatus AcDbEntity::layer(CString& name) const {
    const auto* record = host_db::peek<AcDbLayerTableRecord>(layerId_);
    if (record == nullptr) {
        name.Empty();
    } else {
        name = record->name();
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name) {
    const AcDbDatabase* database = homeOf(*this);
    AcDbObjectId id;
    const Acad::ErrorStatus status =
        findIn(database, database == nullptr ? id : database->layerTableId(), name, id);
    return status == Acad::eOk ? setLayer(id) : status;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id) {
    return host_db::peek<AcDbLayerTableRecord>(id) == nullptr ? Acad::eInvalidInput
                                                              : change(layerId_, id);
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color) {
    return color > 256 ? Acad::eInvalidInput : change(colorIndex_, color);
}

AcDbObjectId AcDbEntity::linetypeId() const {
    const AcDbDatabase* owner = database();
    return linetypeId_.isNull() && owner != nullptr ? owner->byLayerLinetype() : linetypeId_;
}

ACHAR* AcDbEntity::linetype() const {
    const auto* record = host_db::peek<AcDbLinetypeTableRecord>(linetypeId_);
    ACHAR* copy = nullptr;
    acutNewString(record == nullptr ? L"ByLayer" : record->name().GetString(), copy);
    return copy;
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name) {
    const AcDbDatabase* database = homeOf(*this);
    AcDbObjectId id;
    const Acad::ErrorStatus status =
        findIn(database, database == nullptr ? id : database->linetypeTableId(), name, id);
    return status == Acad::eOk ? setLinetype(id) : status;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id) {
    return host_db::peek<AcDbLinetypeTableRecord>(id) == nullptr ? Acad::eInvalidInput
                                                                 : change(linetypeId_, id);
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility) {
    return change(visibility_, visibility);
}

AcDbObjectId AcDbEntity::blockId() const {
    const auto* reference = host_db::peek<AcDbBlockReference>(ownerId());
    return reference == nullptr ? ownerId() : reference->ownerId();
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
    AcDbExtents box;
    if (!addExtents(AcGeMatrix3d::kIdentity, box)) {
        return Acad::eInvalidExtents;
    }
    extents = box;
    return Acad::eOk;
}

bool AcDbEntity::addExtents(const AcGeMatrix3d& /*transform*/, AcDbExtents& /*box*/) const {
    return false;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
    const AcDbDatabase* from = database != nullptr ? database : homeOf(*this);
    if (from != nullptr && prepareWrite() == Acad::eOk) {
        layerId_ = from->clayer();
        linetypeId_.setNull();
        colorIndex_ = 256;
        visibility_ = AcDb::kVisible;
    }
}

void AcDbEntity::onAdded(AcDbDatabase& database) {
    AcDbObject::onAdded(database);
    if (layerId_.isNull() || layerId_.database() != &database) {
        layerId_ = database.clayer();
    }
    if (linetypeId_.database() != &database) {
        linetypeId_.setNull();
    }
}
