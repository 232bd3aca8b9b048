#include "geometry/AcGePlane.h"

#include "geometry/AcGeLinearEnt3d.h"
#include "geometry/AcGeMatrix3d.h"
#include "geometry/RoundingNoise.h"

#include <cmath>

AcGePlane::AcGePlane(const AcGePoint3d& point, const AcGeVector3d& normal)
    : origin_(point), uAxis_(normal.perpVector()), normal_(normal) {
    normal_.setLength(1.0);
    vAxis_ = normal_.crossProduct(uAxis_);
}

AcGePlane::AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis,
                     const AcGeVector3d& vAxis)
    : origin_(origin), uAxis_(uAxis), vAxis_(vAxis), normal_(uAxis.crossProduct(vAxis)) {
    normal_.setLength(1.0);
}

void AcGePlane::get(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const {
    origin = origin_;
    uAxis = uAxis_;
    vAxis = vAxis_;
}

double AcGePlane::signedDistanceTo(const AcGePoint3d& point) const {
    return (point - origin_).dotProduct(normal_);
}

double AcGePlane::distanceTo(const AcGePoint3d& point) const {
    return std::fabs(signedDistanceTo(point));
}

AcGePoint3d AcGePlane::closestPointTo(const AcGePoint3d& point) const {
    return point - normal_ * signedDistanceTo(point);
}

Adesk::Boolean AcGePlane::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point,
                                        const AcGeTol& tol) const {
    return line.intersectWith(*this, point, tol);
}

Adesk::Boolean AcGePlane::isParallelTo(const AcGePlane& other, const AcGeTol& tol) const {
    return normal_.isParallelTo(other.normal_, tol) ? Adesk::kTrue : Adesk::kFalse;
}

Adesk::Boolean AcGePlane::isCoplanarTo(const AcGePlane& other, const AcGeTol& tol) const {
    return isParallelTo(other, tol) != Adesk::kFalse ? isOn(other.origin_, tol) : Adesk::kFalse;
}

Adesk::Boolean AcGePlane::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kPlane ? Adesk::kTrue : AcGeEntity3d::isKindOf(id);
}

AcGePlane& AcGePlane::transformBy(const AcGeMatrix3d& matrix) {
    return set(matrix * origin_, matrix * uAxis_, matrix * vAxis_);
}

Adesk::Boolean AcGePlane::isOn(const AcGePoint3d& point, const AcGeTol& tol) const {
    const double noise = host_geometry::roundingNoise({origin_, point});
    const bool on = distanceTo(point) <= host_geometry::meetingDistance(tol, noise);
    return on ? Adesk::kTrue : Adesk::kFalse;
}
