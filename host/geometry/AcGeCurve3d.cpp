#include "geometry/AcGeCurve3d.h"

#include "geometry/RoundingNoise.h"

Adesk::Boolean AcGeCurve3d::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kCurve3d ? Adesk::kTrue : AcGeEntity3d::isKindOf(id);
}

void AcGeCurve3d::getInterval(AcGeInterval& interval, AcGePoint3d& start, AcGePoint3d& end) const {
    getInterval(interval);
    hasStartPoint(start);
    hasEndPoint(end);
}

double AcGeCurve3d::paramOf(const AcGePoint3d& point, const AcGeTol& tol) const {
    return nearest(point, tol).param;
}

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGePoint3d& point, const AcGeTol& tol) const {
    return nearest(point, tol).point;
}

double AcGeCurve3d::distanceTo(const AcGePoint3d& point, const AcGeTol& tol) const {
    return point.distanceTo(nearest(point, tol).point);
}

Adesk::Boolean AcGeCurve3d::isOn(const AcGePoint3d& point, const AcGeTol& tol) const {
    double param = 0.0;
    return isOn(point, param, tol);
}

Adesk::Boolean AcGeCurve3d::isOn(const AcGePoint3d& point, double& param,
                                 const AcGeTol& tol) const {
    const Place place = nearest(point, tol);
    if (place.point.distanceTo(point) > host_geometry::meetingDistance(tol, noiseWith(point))) {
        return Adesk::kFalse;
    }
    param = place.param;
    return Adesk::kTrue;
}

Adesk::Boolean AcGeCurve3d::isClosed(const AcGeTol& tol) const {
    AcGePoint3d start;
    AcGePoint3d end;
    const bool bounded = hasStartPoint(start) != Adesk::kFalse && hasEndPoint(end) != Adesk::kFalse;
    return bounded && start.isEqualTo(end, tol) ? Adesk::kTrue : Adesk::kFalse;
}
