#include "Xdata.h"

#include "database/AcDbBlockReference.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/ResultBuffer.h"
#include "database/XdataText.h"
#include "OpenedObject.h"

#include <memory>

using siblings::OpenedObject;

namespace {

/// The drawing that an object belongs to, or will: one outside any drawing is about to enter the
/// working one.
AcDbDatabase* drawingOf(const AcDbObject& object) {
    AcDbDatabase* drawing = object.database();
    return drawing != nullptr ? drawing : acdbHostApplicationServices()->workingDatabase();
}

} // namespace

int GetXdata(AcDbObjectId id, const wchar_t* applicationName, CString& value) {
    const OpenedObject<AcDbObject> object(id, AcDb::kForRead);
    return object ? GetXdata(object.get(), applicationName, value) : 0;
}

int GetXdata(const AcDbObject* object, const wchar_t* applicationName, CString& value) {
    if (object == nullptr || applicationName == nullptr) {
        return 0;
    }
    bool present = false;
    host_db::firstXdataString(*object, applicationName, value, present);
    return present ? 1 : 0;
}

int GetXdata(const ads_name name, const wchar_t* applicationName, CString& value) {
    AcDbObjectId id;
    return acdbGetObjectId(id, name) == Acad::eOk ? GetXdata(id, applicationName, value) : 0;
}

int SetXdata(AcDbObjectId id, const wchar_t* applicationName, const CString& value) {
    const OpenedObject<AcDbObject> object(id, AcDb::kForWrite);
    return object ? SetXdata(object.get(), applicationName, value) : 0;
}

int SetXdata(AcDbObject* object, const wchar_t* applicationName, const CString& value) {
    if (object == nullptr || applicationName == nullptr || !object->isWriteEnabled()) {
        return 0;
    }
    AcDbDatabase* drawing = drawingOf(*object);
    if (drawing == nullptr || drawing->registerApplication(applicationName) != Acad::eOk) {
        return 0;
    }
    const std::unique_ptr<resbuf, int (*)(resbuf*)> chain(
        acutBuildList(AcDb::kDxfRegAppName, applicationName, AcDb::kDxfXDAsciiString,
                      value.GetString(), RTNONE),
        acutRelRb);
    return object->setXData(chain.get()) == Acad::eOk ? 1 : 0;
}

int EraseObject(AcDbObjectId id) {
    const OpenedObject<AcDbObject> object(id, AcDb::kForWrite);
    return object && object->erase() == Acad::eOk ? 1 : 0;
}

Acad::ErrorStatus PutEntityToDatabase(AcDbEntity* entity, AcDbObjectId& id) {
    if (entity == nullptr) {
        return Acad::eNullEntityPointer;
    }
    const AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) {
        return Acad::eNoDatabase;
    }
    const OpenedObject<AcDbBlockTableRecord> space(drawing->currentSpaceId(), AcDb::kForWrite);
    if (!space) {
        return space.status();
    }
    const Acad::ErrorStatus status = space->appendAcDbEntity(id, entity);
    if (status == Acad::eOk) {
        entity->close();
    }
    return status;
}

AcDbObjectId PutEntityToDatabase(AcDbEntity* entity) {
    AcDbObjectId id;
    return PutEntityToDatabase(entity, id) == Acad::eOk ? id : AcDbObjectId::kNull;
}

bool GetBlockRefName(AcDbObjectId id, CString& name) {
    const OpenedObject<AcDbBlockReference> reference(id, AcDb::kForRead);
    if (!reference) {
        return false;
    }
    const OpenedObject<AcDbBlockTableRecord> definition(reference->blockTableRecord(),
                                                        AcDb::kForRead);
    return definition && definition->getName(name) == Acad::eOk;
}
