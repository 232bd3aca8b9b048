#include "geometry/AcGeLine3d.h"

#include "geometry/AcGeMatrix3d.h"

Adesk::Boolean AcGeLine3d::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kLine3d ? Adesk::kTrue : AcGeLinearEnt3d::isKindOf(id);
}

AcGeLine3d& AcGeLine3d::transformBy(const AcGeMatrix3d& matrix) {
    return set(matrix * origin_, matrix * vector_);
}
