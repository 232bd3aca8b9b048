#include "utilities/EraseObjects.h"

#include "utilities/DocumentLock.h"

int PelEraseObject(AcDbObjectId entity) {
    const tkvlt::DocumentLock lock;
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, entity, AcDb::kForWrite) != Acad::eOk) {
        return 0;
    }
    object->erase(true);
    object->close();
    return 1;
}

int PelEraseObject(ads_name entity) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk) {
        return 0;
    }
    entity[0] = 0;
    entity[1] = 0;
    return EraseObject(id);
}

void PelEraseObject(AcDbObjectIdArray& entities) {
    for (int i = 0; i < entities.length(); ++i) {
        PelEraseObject(entities[i]);
    }
}
