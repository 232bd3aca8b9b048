#include "geometry/AcGeCircArc3d.h"

#include "geometry/AcGeMatrix3d.h"
#include "geometry/Angles.h"
#include "geometry/RoundingNoise.h"
#include "platform/PlatformException.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The end angle brought to more than 0 and at most one turn after the start angle. What falls
/// short of a turn by rounding alone is a whole one.
double endAfter(double startAng, double endAng) {
    double sweep = endAng - startAng;
    if (sweep <= 0.0) {
        sweep = host_geometry::withinTurn(sweep);
    }
    const double rounding = 8.0 * std::numeric_limits<double>::epsilon() *
                            std::max({std::fabs(startAng), std::fabs(endAng), 1.0});
    const bool whole = sweep == 0.0 || sweep >= host_geometry::twoPi - rounding;
    return startAng + (whole ? host_geometry::twoPi : sweep);
}

AcGeError checkThreePoints(const AcGePoint3d& start, const AcGePoint3d& point,
                           const AcGePoint3d& end) {
    if (start.isEqualTo(point)) {
        return AcGe::kEqualArg1Arg2;
    }
    if (start.isEqualTo(end)) {
        return AcGe::kEqualArg1Arg3;
    }
    if (point.isEqualTo(end)) {
        return AcGe::kEqualArg2Arg3;
    }
    const AcGeVector3d toPoint = point - start;
    const AcGeVector3d toEnd = end - start;
    const double angle =
        std::atan2(toPoint.crossProduct(toEnd).length(), std::fabs(toPoint.dotProduct(toEnd)));
    const double allowed = host_geometry::agreeingAngle(
        AcGeContext::gTol, host_geometry::roundingNoise({start, point, end}),
        std::min(toPoint.length(), toEnd.length()));
    return angle <= allowed ? AcGe::kLinearlyDependentArg1Arg2Arg3 : AcGe::kOk;
}

} // namespace

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) {
    set(center, normal, radius);
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal,
                             const AcGeVector3d& refVec, double radius, double startAng,
                             double endAng) {
    set(center, normal, refVec, radius, startAng, endAng);
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& point,
                             const AcGePoint3d& end) {
    set(start, point, end);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& center, const AcGeVector3d& normal,
                                  double radius) {
    return set(center, normal, normal.perpVector(), radius, 0.0, host_geometry::twoPi);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& center, const AcGeVector3d& normal,
                                  const AcGeVector3d& refVec, double radius, double startAng,
                                  double endAng) {
    center_ = center;
    normal_ = normal;
    normal_.setLength(1.0);
    refVec_ = refVec;
    refVec_.setLength(1.0);
    radius_ = radius;
    startAng_ = startAng;
    endAng_ = endAfter(startAng, endAng);
    start_ = onCircle(startAng_);
    end_ = endAng_ == startAng_ + host_geometry::twoPi ? start_ : onCircle(endAng_);
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& start, const AcGePoint3d& point,
                                  const AcGePoint3d& end) {
    AcGeError error = AcGe::kOk;
    return set(start, point, end, error);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& start, const AcGePoint3d& point,
                                  const AcGePoint3d& end, AcGeError& error) {
    error = checkThreePoints(start, point, end);
    if (error != AcGe::kOk) {
        return *this;
    }
    const AcGeVector3d toPoint = point - start;
    const AcGeVector3d toEnd = end - start;
    const AcGeVector3d across = toPoint.crossProduct(toEnd);
    const AcGeVector3d toCenter =
        (toEnd * toPoint.lengthSqrd() - toPoint * toEnd.lengthSqrd()).crossProduct(across) /
        (2.0 * across.lengthSqrd());
    center_ = start + toCenter;
    normal_ = across;
    normal_.setLength(1.0);
    refVec_ = -toCenter;
    refVec_.setLength(1.0);
    radius_ = toCenter.length();
    startAng_ = 0.0;
    endAng_ = refVec_.angleTo(toEnd - toCenter, normal_);
    start_ = start;
    end_ = end;
    return *this;
}

AcGeCircArc3d AcGeCircArc3d::fromBulge(const AcGePoint3d& start, const AcGePoint3d& end,
                                       double bulge, const AcGeVector3d& normal) {
    const AcGeVector3d chord = end - start;
    const AcGeVector3d toLeft = normal.crossProduct(chord) / normal.length();
    if (bulge == 0.0 || chord.lengthSqrd() <= 0.0) {
        AfxThrowInvalidArgException();
    }
    const AcGeVector3d toCenter = chord * 0.5 + toLeft * ((1.0 - bulge * bulge) / (4.0 * bulge));
    AcGeCircArc3d arc;
    arc.center_ = start + toCenter;
    arc.normal_ = bulge > 0.0 ? normal : -normal;
    arc.normal_.setLength(1.0);
    arc.refVec_ = -toCenter;
    arc.refVec_.setLength(1.0);
    arc.radius_ = chord.length() * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    arc.startAng_ = 0.0;
    arc.endAng_ = 4.0 * std::atan(std::fabs(bulge));
    arc.start_ = start;
    arc.end_ = end;
    return arc;
}

AcGePoint3d AcGeCircArc3d::onCircle(double angle) const {
    return center_ + (refVec_ * std::cos(angle) + quarterVec() * std::sin(angle)) * radius_;
}

double AcGeCircArc3d::length(double fromParam, double toParam, double /*tol*/) const {
    return radius_ * std::fabs(toParam - fromParam);
}

Adesk::Boolean AcGeCircArc3d::isInside(const AcGePoint3d& point, const AcGeTol& tol) const {
    const double reach = host_geometry::meetingDistance(tol, noiseWith(point));
    const double distance = plane().closestPointTo(point).distanceTo(center_);
    return distance < radius_ - reach ? Adesk::kTrue : Adesk::kFalse;
}

Adesk::Boolean AcGeCircArc3d::tangent(const AcGePoint3d& point, AcGeLine3d& line,
                                      const AcGeTol& tol) const {
    if (isOn(point, tol) == Adesk::kFalse) {
        return Adesk::kFalse;
    }
    const AcGePoint3d place = closestPointTo(point, tol);
    AcGeVector3d along = normal_.crossProduct(place - center_);
    line.set(place, along.setLength(1.0));
    return Adesk::kTrue;
}

AcGeCircArc3d& AcGeCircArc3d::reverseParam() {
    normal_.negate();
    const double formerStart = startAng_;
    startAng_ = -endAng_;
    endAng_ = -formerStart;
    std::swap(start_, end_);
    return *this;
}

Adesk::Boolean AcGeCircArc3d::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kCircArc3d ? Adesk::kTrue : AcGeCurve3d::isKindOf(id);
}

AcGeCircArc3d& AcGeCircArc3d::transformBy(const AcGeMatrix3d& matrix) {
    const AcGeVector3d quarter = matrix * quarterVec();
    const AcGeVector3d reference = matrix * refVec_;
    radius_ *= reference.length();
    refVec_ = reference;
    refVec_.setLength(1.0);
    normal_ = reference.crossProduct(quarter);
    normal_.setLength(1.0);
    center_.transformBy(matrix);
    start_.transformBy(matrix);
    end_.transformBy(matrix);
    return *this;
}

AcGePoint3d AcGeCircArc3d::evalPoint(double param) const {
    if (param == startAng_) {
        return start_;
    }
    return param == endAng_ ? end_ : onCircle(param);
}

AcGeCurve3d::Place AcGeCircArc3d::nearest(const AcGePoint3d& point, const AcGeTol& tol) const {
    const AcGeVector3d arm = point - center_;
    AcGeVector3d outward = arm - normal_ * arm.dotProduct(normal_);
    if (outward.length() <= host_geometry::meetingDistance(tol, noiseWith(point))) {
        return {startAng_, start_};
    }
    const double angle = std::atan2(outward.dotProduct(quarterVec()), outward.dotProduct(refVec_));
    const double passed = host_geometry::withinTurn(angle - startAng_);
    if (passed > 0.0 && passed < sweepAng()) {
        return {startAng_ + passed, center_ + outward.setLength(radius_)};
    }
    const bool startIsNearer = point.distanceTo(start_) <= point.distanceTo(end_);
    return startIsNearer ? Place{startAng_, start_} : Place{endAng_, end_};
}

Adesk::Boolean AcGeCircArc3d::hasStartPoint(AcGePoint3d& point) const {
    point = start_;
    return Adesk::kTrue;
}

Adesk::Boolean AcGeCircArc3d::hasEndPoint(AcGePoint3d& point) const {
    point = end_;
    return Adesk::kTrue;
}

double AcGeCircArc3d::noiseWith(const AcGePoint3d& point) const {
    return host_geometry::roundingNoise({center_, start_, end_, point});
}
