#include "database/AcDbUnknownEntity.h"

#include "database/AcDbUnknownObject.h"

ACRX_DEFINE_MEMBERS(AcDbUnknownEntity, AcDbEntity, nullptr)
ACRX_DEFINE_MEMBERS(AcDbUnknownObject, AcDbObject, nullptr)

AcRxObject* AcDbUnknownObject::clone() const {
    return new AcDbUnknownObject(*this);
}

AcRxObject* AcDbUnknownEntity::clone() const {
    return new AcDbUnknownEntity(*this);
}

bool AcDbUnknownEntity::addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const {
    for (const AcGePoint3d& point : outline_) {
        box.addPoint(transform * point);
    }
    return !outline_.empty();
}
