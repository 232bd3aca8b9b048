#include "geometry/AcGeLinearEnt3d.h"

#include "geometry/AcGeLine3d.h"
#include "geometry/AcGePlane.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <cmath>

namespace {

Adesk::Boolean toBoolean(bool value) {
    return value ? Adesk::kTrue : Adesk::kFalse;
}

} // namespace

Adesk::Boolean AcGeLinearEnt3d::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kLinearEnt3d ? Adesk::kTrue : AcGeCurve3d::isKindOf(id);
}

AcGeVector3d AcGeLinearEnt3d::direction() const {
    AcGeVector3d unit = vector_;
    return unit.setLength(1.0);
}

void AcGeLinearEnt3d::getLine(AcGeLine3d& line) const {
    line.set(origin_, vector_);
}

double AcGeLinearEnt3d::noiseWith(const AcGePoint3d& point) const {
    return host_geometry::roundingNoise({origin_, point});
}

double AcGeLinearEnt3d::noiseWithBoth(const AcGeLinearEnt3d& line) const {
    return std::max(noiseWith(origin_), line.noiseWith(line.origin_));
}

double AcGeLinearEnt3d::agreement(const AcGeLinearEnt3d& line, const AcGeTol& tol) const {
    return host_geometry::agreeingAngle(tol, noiseWithBoth(line),
                                        std::min(vector_.length(), line.vector_.length()));
}

Adesk::Boolean AcGeLinearEnt3d::isParallelTo(const AcGeLinearEnt3d& line,
                                             const AcGeTol& tol) const {
    const double across = vector_.crossProduct(line.vector_).length();
    const double along = std::fabs(vector_.dotProduct(line.vector_));
    return toBoolean(std::atan2(across, along) <= agreement(line, tol));
}

Adesk::Boolean AcGeLinearEnt3d::isPerpendicularTo(const AcGeLinearEnt3d& line,
                                                  const AcGeTol& tol) const {
    const double across = vector_.crossProduct(line.vector_).length();
    const double along = std::fabs(vector_.dotProduct(line.vector_));
    return toBoolean(std::atan2(along, across) <= agreement(line, tol));
}

double AcGeLinearEnt3d::distanceToUnbounded(const AcGePoint3d& point,
                                            const AcGeVector3d& fallback) const {
    const AcGeVector3d arm = point - origin_;
    const AcGeVector3d& along = vector_.lengthSqrd() > 0.0 ? vector_ : fallback;
    const double length = along.length();
    return length > 0.0 ? arm.crossProduct(along).length() / length : arm.length();
}

Adesk::Boolean AcGeLinearEnt3d::isColinearTo(const AcGeLinearEnt3d& line,
                                             const AcGeTol& tol) const {
    const double reach = host_geometry::meetingDistance(tol, noiseWithBoth(line));
    return toBoolean(isParallelTo(line, tol) != Adesk::kFalse &&
                     distanceToUnbounded(line.origin_, line.vector_) <= reach &&
                     line.distanceToUnbounded(origin_, vector_) <= reach);
}

double AcGeLinearEnt3d::boundedParam(double param) const {
    AcGeInterval interval;
    getInterval(interval);
    return interval.clamp(param);
}

Adesk::Boolean AcGeLinearEnt3d::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point,
                                              const AcGeTol& tol) const {
    if (isParallelTo(line, tol) != Adesk::kFalse) {
        return Adesk::kFalse;
    }
    const AcGeVector3d across = vector_.crossProduct(line.vector_);
    // Of lines so long that this is infinite no meeting can be reckoned.
    const double square = across.lengthSqrd();
    if (!(square > 0.0 && std::isfinite(square))) {
        return Adesk::kFalse;
    }
    // The closest approach of the unbounded lines, drawn back to the bounded pieces: the place
    // here is cut to its ends first, then the other line's nearest place, then this one's again.
    const AcGeVector3d between = line.origin_ - origin_;
    const double unbounded = between.crossProduct(line.vector_).dotProduct(across) / square;
    const AcGePoint3d there =
        line.nearest(AcGeLinearEnt3d::evalPoint(boundedParam(unbounded)), tol).point;
    const AcGePoint3d here = nearest(there, tol).point;
    // Without bounds the two may meet farther out than the points that they are known by.
    const double noise = std::max(noiseWithBoth(line), host_geometry::roundingNoise({here, there}));
    const double reach = host_geometry::meetingDistance(tol, noise);
    if (here.distanceTo(there) > reach) {
        return Adesk::kFalse;
    }
    point = here;
    return Adesk::kTrue;
}

Adesk::Boolean AcGeLinearEnt3d::intersectWith(const AcGePlane& plane, AcGePoint3d& point,
                                              const AcGeTol& tol) const {
    const double noise = std::max(noiseWith(origin_), noiseWith(plane.pointOnPlane()));
    const double rise = vector_.dotProduct(plane.normal());
    const double along = vector_.crossProduct(plane.normal()).length();
    const double slope = std::atan2(std::fabs(rise), along);
    if (slope <= host_geometry::agreeingAngle(tol, noise, vector_.length())) {
        return Adesk::kFalse;
    }
    const AcGePoint3d place = evalPoint(boundedParam(-plane.signedDistanceTo(origin_) / rise));
    if (plane.distanceTo(place) > host_geometry::meetingDistance(tol, noise)) {
        return Adesk::kFalse;
    }
    point = place;
    return Adesk::kTrue;
}

Adesk::Boolean AcGeLinearEnt3d::overlap(const AcGeLinearEnt3d& line, AcGePoint3d& from,
                                        AcGePoint3d& to, const AcGeTol& tol) const {
    if (isColinearTo(line, tol) == Adesk::kFalse) {
        return Adesk::kFalse;
    }
    AcGeInterval shared;
    getInterval(shared);
    AcGePoint3d start;
    AcGePoint3d end;
    if (line.hasStartPoint(start) != Adesk::kFalse && line.hasEndPoint(end) != Adesk::kFalse) {
        const double first = paramOnUnbounded(start);
        const double last = paramOnUnbounded(end);
        shared.set(std::max(shared.lowerBound(), std::min(first, last)),
                   std::min(shared.upperBound(), std::max(first, last)));
    }
    const double reach = host_geometry::meetingDistance(tol, noiseWithBoth(line));
    if (!shared.isBounded() || shared.length() * vector_.length() <= reach) {
        return Adesk::kFalse;
    }
    from = evalPoint(shared.lowerBound());
    to = evalPoint(shared.upperBound());
    return Adesk::kTrue;
}

AcGePoint3d AcGeLinearEnt3d::evalPoint(double param) const {
    return origin_ + vector_ * param;
}

AcGeCurve3d::Place AcGeLinearEnt3d::nearest(const AcGePoint3d& point,
                                            const AcGeTol& /*tol*/) const {
    const double param = boundedParam(paramOnUnbounded(point));
    return {param, evalPoint(param)};
}

double AcGeLinearEnt3d::length(double fromParam, double toParam, double /*tol*/) const {
    return std::fabs(toParam - fromParam) * vector_.length();
}
