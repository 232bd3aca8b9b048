#include "geometry/AcGeVector2d.h"

#include "geometry/Angles.h"

#include <cmath>

constinit const AcGeVector2d AcGeVector2d::kIdentity;
constinit const AcGeVector2d AcGeVector2d::kXAxis(1.0, 0.0);
constinit const AcGeVector2d AcGeVector2d::kYAxis(0.0, 1.0);

double AcGeVector2d::length() const {
    return std::sqrt(lengthSqrd());
}

double AcGeVector2d::angle() const {
    return host_geometry::withinTurn(std::atan2(y, x));
}

double AcGeVector2d::angleTo(const AcGeVector2d& other) const {
    return std::atan2(std::fabs(x * other.y - y * other.x), dotProduct(other));
}

AcGeVector2d AcGeVector2d::normal(const AcGeTol& tol) const {
    return isZeroLength(tol) ? *this : *this / length();
}

AcGeVector2d& AcGeVector2d::rotateBy(double angle) {
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return set(x * cosine - y * sine, x * sine + y * cosine);
}

bool AcGeVector2d::isEqualTo(const AcGeVector2d& other, const AcGeTol& tol) const {
    return (*this - other).length() <= tol.equalVector();
}
