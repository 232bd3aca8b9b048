#include "records/PipeLength.h"

#include <cmath>

namespace tkvlt {

double LengthAlong(const AcGeCurve3d& curve, const AcGePoint3d& p1, const AcGePoint3d& p2) {
    const AcGePoint3d c1 = curve.closestPointTo(p1);
    const AcGePoint3d c2 = curve.closestPointTo(p2);
    const double tolerance = AcGeContext::gTol.equalPoint();
    const double length1 = curve.length(0.0, curve.paramOf(c1), tolerance);
    const double length2 = curve.length(0.0, curve.paramOf(c2), tolerance);
    const double missed = c1.distanceTo(p1) + c2.distanceTo(p2);
    return std::fabs(length2 - length1) + missed;
}

} // namespace tkvlt
