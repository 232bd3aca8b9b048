#include "geometry/AcGePoint2d.h"

#include "geometry/AcGePoint3d.h"

constinit const AcGePoint2d AcGePoint2d::kOrigin;

double AcGePoint2d::distanceTo(const AcGePoint2d& other) const {
    return (*this - other).length();
}

bool AcGePoint2d::isEqualTo(const AcGePoint2d& other, const AcGeTol& tol) const {
    return AcGePoint3d(x, y, 0.0).isEqualTo(AcGePoint3d(other.x, other.y, 0.0), tol);
}

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& origin) {
    AcGeVector2d arm = *this - origin;
    return *this = origin + arm.rotateBy(angle);
}
