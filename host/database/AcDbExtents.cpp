#include "database/AcDbExtents.h"

void AcDbExtents::set(const AcGePoint3d& min, const AcGePoint3d& max) {
    min_ = min;
    max_ = max;
}

void AcDbExtents::addExt(const AcDbExtents& other) {
    if (!other.isEmpty()) {
        addPoint(other.min_);
        addPoint(other.max_);
    }
}

void AcDbExtents::expandBy(const AcGeVector3d& vector) {
    if (!isEmpty()) {
        const AcDbExtents moved(min_ + vector, max_ + vector);
        addExt(moved);
    }
}

void AcDbExtents::transformBy(const AcGeMatrix3d& transform) {
    if (isEmpty()) {
        return;
    }
    AcDbExtents box;
    for (unsigned corner = 0; corner < 8; ++corner) {
        const AcGePoint3d point((corner & 1U) != 0 ? max_.x : min_.x,
                                (corner & 2U) != 0 ? max_.y : min_.y,
                                (corner & 4U) != 0 ? max_.z : min_.z);
        box.addPoint(transform * point);
    }
    *this = box;
}
