#include "geometry/AcGeEntity3d.h"

#include "geometry/AcGeMatrix3d.h"

AcGeEntity3d& AcGeEntity3d::translateBy(const AcGeVector3d& offset) {
    return transformBy(AcGeMatrix3d().setToTranslation(offset));
}

AcGeEntity3d& AcGeEntity3d::rotateBy(double angle, const AcGeVector3d& axis,
                                     const AcGePoint3d& origin) {
    return transformBy(AcGeMatrix3d().setToRotation(angle, axis, origin));
}

AcGeEntity3d& AcGeEntity3d::mirror(const AcGePlane& plane) {
    return transformBy(AcGeMatrix3d().setToMirroring(plane));
}

AcGeEntity3d& AcGeEntity3d::scaleBy(double factor, const AcGePoint3d& origin) {
    return transformBy(AcGeMatrix3d().setToScaling(factor, origin));
}
