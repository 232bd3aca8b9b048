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

constinit const AcGeCircArc3d::Shape AcGeCircArc3d::kUnitCircle;

AcGeCircArc3d::AcGeCircArc3d(const AcGeCircArc3d& other)
    : AcGeCurve3d(other), shape_(other.shape_ ? std::make_unique<Shape>(*other.shape_) : nullptr) {}

AcGeCircArc3d& AcGeCircArc3d::operator=(const AcGeCircArc3d& other) {
    if (!other.shape_) {
        shape_.reset();
    } else if (this != &other) {
        own() = *other.shape_;
    }
    return *this;
}

AcGeCircArc3d::Shape& AcGeCircArc3d::own() {
    if (!shape_) {
        shape_ = std::make_unique<Shape>();
    }
    return *shape_;
}

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
    Shape& shape = own();
    shape.center = center;
    shape.normal = normal;
    shape.normal.setLength(1.0);
    shape.refVec = refVec;
    shape.refVec.setLength(1.0);
    shape.radius = radius;
    shape.startAng = startAng;
    shape.endAng = endAfter(startAng, endAng);
    shape.start = onCircle(startAng);
    shape.end =
        shape.endAng == startAng + host_geometry::twoPi ? shape.start : onCircle(shape.endAng);
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
    if (circleHolds(start) && circleHolds(point) && circleHolds(end)) {
        return layOnCircle(start, end, across.dotProduct(normal()) < 0.0);
    }
    const AcGeVector3d toCenter =
        (toEnd * toPoint.lengthSqrd() - toPoint * toEnd.lengthSqrd()).crossProduct(across) /
        (2.0 * across.lengthSqrd());
    Shape& shape = own();
    shape.center = start + toCenter;
    shape.normal = across;
    shape.normal.setLength(1.0);
    shape.refVec = -toCenter;
    shape.refVec.setLength(1.0);
    shape.radius = toCenter.length();
    shape.startAng = 0.0;
    shape.endAng = shape.refVec.angleTo(toEnd - toCenter, shape.normal);
    shape.start = start;
    shape.end = end;
    return *this;
}

/// Whether the point meets the whole circle.
bool AcGeCircArc3d::circleHolds(const AcGePoint3d& point) const {
    const AcGeVector3d arm = point - center();
    const double above = arm.dotProduct(normal());
    const double beside = (arm - normal() * above).length() - radius();
    return std::hypot(above, beside) <=
           host_geometry::meetingDistance(AcGeContext::gTol, AcGeCircArc3d::noiseWith(point));
}

AcGeCircArc3d& AcGeCircArc3d::layOnCircle(const AcGePoint3d& start, const AcGePoint3d& end,
                                          bool turnsRound) {
    Shape& shape = own();
    if (turnsRound) {
        shape.normal.negate();
    }
    const AcGeVector3d arm = start - shape.center;
    shape.refVec = arm - shape.normal * arm.dotProduct(shape.normal);
    shape.refVec.setLength(1.0);
    shape.startAng = 0.0;
    shape.endAng = shape.refVec.angleTo(end - shape.center, shape.normal);
    shape.start = start;
    shape.end = end;
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
    Shape& shape = arc.own();
    shape.center = start + toCenter;
    shape.normal = bulge > 0.0 ? normal : -normal;
    shape.normal.setLength(1.0);
    shape.refVec = -toCenter;
    shape.refVec.setLength(1.0);
    shape.radius = chord.length() * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    shape.startAng = 0.0;
    shape.endAng = 4.0 * std::atan(std::fabs(bulge));
    shape.start = start;
    shape.end = end;
    return arc;
}

AcGePoint3d AcGeCircArc3d::onCircle(double angle) const {
    return center() + (refVec() * std::cos(angle) + quarterVec() * std::sin(angle)) * radius();
}

double AcGeCircArc3d::length(double fromParam, double toParam, double /*tol*/) const {
    return radius() * std::fabs(toParam - fromParam);
}

Adesk::Boolean AcGeCircArc3d::isInside(const AcGePoint3d& point, const AcGeTol& tol) const {
    const double reach = host_geometry::meetingDistance(tol, noiseWith(point));
    const double distance = plane().closestPointTo(point).distanceTo(center());
    return distance < radius() - reach ? Adesk::kTrue : Adesk::kFalse;
}

Adesk::Boolean AcGeCircArc3d::tangent(const AcGePoint3d& point, AcGeLine3d& line,
                                      const AcGeTol& tol) const {
    if (isOn(point, tol) == Adesk::kFalse) {
        return Adesk::kFalse;
    }
    const AcGePoint3d place = closestPointTo(point, tol);
    AcGeVector3d along = normal().crossProduct(place - center());
    line.set(place, along.setLength(1.0));
    return Adesk::kTrue;
}

AcGeCircArc3d& AcGeCircArc3d::reverseParam() {
    Shape& shape = own();
    shape.normal.negate();
    const double formerStart = shape.startAng;
    shape.startAng = -shape.endAng;
    shape.endAng = -formerStart;
    std::swap(shape.start, shape.end);
    return *this;
}

Adesk::Boolean AcGeCircArc3d::isKindOf(AcGe::EntityId id) const {
    return id == AcGe::kCircArc3d ? Adesk::kTrue : AcGeCurve3d::isKindOf(id);
}

AcGeCircArc3d& AcGeCircArc3d::transformBy(const AcGeMatrix3d& matrix) {
    const AcGeVector3d quarter = matrix * quarterVec();
    const AcGeVector3d reference = matrix * refVec();
    Shape& shape = own();
    shape.radius *= reference.length();
    shape.refVec = reference;
    shape.refVec.setLength(1.0);
    shape.normal = reference.crossProduct(quarter);
    shape.normal.setLength(1.0);
    shape.center.transformBy(matrix);
    shape.start.transformBy(matrix);
    shape.end.transformBy(matrix);
    return *this;
}

AcGePoint3d AcGeCircArc3d::evalPoint(double param) const {
    if (param == startAng()) {
        return startPoint();
    }
    return param == endAng() ? endPoint() : onCircle(param);
}

AcGeCurve3d::Place AcGeCircArc3d::nearest(const AcGePoint3d& point, const AcGeTol& tol) const {
    const AcGeVector3d arm = point - center();
    AcGeVector3d outward = arm - normal() * arm.dotProduct(normal());
    if (outward.length() <= host_geometry::meetingDistance(tol, noiseWith(point))) {
        return {startAng(), startPoint()};
    }
    const double angle = std::atan2(outward.dotProduct(quarterVec()), outward.dotProduct(refVec()));
    const double passed = host_geometry::withinTurn(angle - startAng());
    if (passed > 0.0 && passed < sweepAng()) {
        return {startAng() + passed, center() + outward.setLength(radius())};
    }
    const bool startIsNearer = point.distanceTo(startPoint()) <= point.distanceTo(endPoint());
    return startIsNearer ? Place{startAng(), startPoint()} : Place{endAng(), endPoint()};
}

Adesk::Boolean AcGeCircArc3d::hasStartPoint(AcGePoint3d& point) const {
    point = startPoint();
    return Adesk::kTrue;
}

Adesk::Boolean AcGeCircArc3d::hasEndPoint(AcGePoint3d& point) const {
    point = endPoint();
    return Adesk::kTrue;
}

double AcGeCircArc3d::noiseWith(const AcGePoint3d& point) const {
    return host_geometry::roundingNoise({center(), startPoint(), endPoint(), point});
}
