#include "geometry/AcGeVector3d.h"

#include "geometry/AcGeMatrix3d.h"
#include "geometry/AcGePlane.h"
#include "geometry/Angles.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <cmath>

constinit const AcGeVector3d AcGeVector3d::kIdentity;
constinit const AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
constinit const AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
constinit const AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);

namespace {

double agreement(const AcGeVector3d& a, const AcGeVector3d& b, const AcGeTol& tol) {
    const double noise = host_geometry::roundingNoise({{a.x, a.y, a.z}, {b.x, b.y, b.z}});
    return host_geometry::agreeingAngle(tol, noise, std::min(a.length(), b.length()));
}

} // namespace

AcGeVector3d& AcGeVector3d::setLength(double length) {
    const double present = this->length();
    return present > 0.0 ? *this *= length / present : *this;
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const {
    return isZeroLength(tol) ? *this : *this / length();
}

double AcGeVector3d::angleTo(const AcGeVector3d& other) const {
    return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double AcGeVector3d::angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const {
    const double angle = angleTo(other);
    const bool clockwise = crossProduct(other).dotProduct(reference) < 0.0;
    return host_geometry::withinTurn(clockwise ? -angle : angle);
}

double AcGeVector3d::angleOnPlane(const AcGePlane& plane) const {
    AcGePoint3d origin;
    AcGeVector3d uAxis;
    AcGeVector3d vAxis;
    plane.get(origin, uAxis, vAxis);
    const AcGeVector3d first = uAxis.normal();
    const AcGeVector3d second = plane.normal().crossProduct(first);
    return host_geometry::withinTurn(std::atan2(dotProduct(second), dotProduct(first)));
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
    const double axisLength = axis.length();
    if (axisLength <= 0.0) {
        return *this;
    }
    const AcGeVector3d unit = axis / axisLength;
    const double cosine = std::cos(angle);
    return *this = *this * cosine + unit.crossProduct(*this) * std::sin(angle) +
                   unit * (unit.dotProduct(*this) * (1.0 - cosine));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

AcGeVector3d& AcGeVector3d::mirror(const AcGeVector3d& planeNormal) {
    const double square = planeNormal.lengthSqrd();
    return square > 0.0 ? *this -= planeNormal * (2.0 * dotProduct(planeNormal) / square) : *this;
}

AcGeVector3d AcGeVector3d::perpVector() const {
    const double nearPole = length() / 64.0;
    const bool alongZ = std::fabs(x) < nearPole && std::fabs(y) < nearPole;
    AcGeVector3d first = (alongZ ? kYAxis : kZAxis).crossProduct(*this);
    return first.setLength(1.0);
}

bool AcGeVector3d::isZeroLength(const AcGeTol& tol) const {
    return length() <= tol.equalVector();
}

bool AcGeVector3d::isUnitLength(const AcGeTol& tol) const {
    return std::fabs(length() - 1.0) <= tol.equalVector();
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& other, const AcGeTol& tol) const {
    const double angle = std::atan2(crossProduct(other).length(), std::fabs(dotProduct(other)));
    return angle <= agreement(*this, other, tol);
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& other, const AcGeTol& tol) const {
    return angleTo(other) <= agreement(*this, other, tol);
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& other, const AcGeTol& tol) const {
    const double off = std::atan2(std::fabs(dotProduct(other)), crossProduct(other).length());
    return off <= agreement(*this, other, tol);
}

bool AcGeVector3d::isEqualTo(const AcGeVector3d& other, const AcGeTol& tol) const {
    return (*this - other).length() <= tol.equalVector();
}
