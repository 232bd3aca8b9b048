#include "geometry/AcGePoint3d.h"

#include "geometry/AcGeMatrix3d.h"
#include "geometry/AcGePlane.h"
#include "geometry/RoundingNoise.h"

constinit const AcGePoint3d AcGePoint3d::kOrigin;

bool AcGePoint3d::isEqualTo(const AcGePoint3d& other, const AcGeTol& tol) const {
    const double noise = host_geometry::roundingNoise({*this, other});
    return distanceTo(other) <= host_geometry::meetingDistance(tol, noise);
}

AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const {
    return plane.closestPointTo(*this);
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis,
                                   const AcGePoint3d& origin) {
    AcGeVector3d arm = *this - origin;
    return *this = origin + arm.rotateBy(angle, axis);
}

AcGePoint3d& AcGePoint3d::mirror(const AcGePlane& plane) {
    const AcGeVector3d down = plane.normal() * plane.signedDistanceTo(*this);
    return *this -= down * 2.0;
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& origin) {
    return *this = origin + (*this - origin) * factor;
}
