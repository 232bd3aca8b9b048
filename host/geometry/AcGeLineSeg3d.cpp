#include "geometry/AcGeLineSeg3d.h"

#include "geometry/AcGeMatrix3d.h"
#include "geometry/RoundingNoise.h"

AcGePoint3d AcGeLineSeg3d::midPoint() const {
    return {(origin_.x + end_.x) * 0.5, (origin_.y + end_.y) * 0.5, (origin_.z + end_.z) * 0.5};
}

Adesk::Boolean AcGeLineSeg3d::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kLineSeg3d ? Adesk::kTrue : AcGeLinearEnt3d::isKindOf(id);
}

AcGeLineSeg3d& AcGeLineSeg3d::transformBy(const AcGeMatrix3d& matrix) {
    return set(matrix * origin_, matrix * end_);
}

AcGePoint3d AcGeLineSeg3d::evalPoint(double param) const {
    return param == 1.0 ? end_ : AcGeLinearEnt3d::evalPoint(param);
}

Adesk::Boolean AcGeLineSeg3d::hasStartPoint(AcGePoint3d& point) const {
    point = origin_;
    return Adesk::kTrue;
}

Adesk::Boolean AcGeLineSeg3d::hasEndPoint(AcGePoint3d& point) const {
    point = end_;
    return Adesk::kTrue;
}

/// What the general way finds, without asking for the bounds and for the point by virtual calls.
AcGeCurve3d::Place AcGeLineSeg3d::nearest(const AcGePoint3d& point, const AcGeTol& /*tol*/) const {
    const double param = AcGeInterval(0.0, 1.0).clamp(paramOnUnbounded(point));
    return {param, AcGeLineSeg3d::evalPoint(param)};
}

double AcGeLineSeg3d::noiseWith(const AcGePoint3d& point) const {
    return host_geometry::roundingNoise({origin_, end_, point});
}
