#include "database/AcDbExtents.h"

#include <algorithm>

namespace {
constexpr double kFar = 1e20;
}

AcDbExtents::AcDbExtents() : min_(kFar, kFar, kFar), max_(-kFar, -kFar, -kFar) {}

void AcDbExtents::set(const AcGePoint3d& min, const AcGePoint3d& max) {
    min_ = min;
    max_ = max;
}

bool AcDbExtents::isEmpty() const {
    return min_.x > max_.x || min_.y > max_.y || min_.z > max_.z;
}

void AcDbExtents::addPoint(const AcGePoint3d& point) {
    min_.set(std::min(min_.x, point.x), std::min(min_.y, point.y), std::min(min_.z, point.z));
    max_.set(std::max(max_.x, point.x), std::max(max_.y, point.y), std::max(max_.z, point.z));
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
