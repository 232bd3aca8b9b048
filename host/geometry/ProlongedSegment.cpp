#include "geometry/ProlongedSegment.h"

#include <limits>

namespace host_geometry {

namespace {

constexpr double kBoundless = std::numeric_limits<double>::infinity();

} // namespace

ProlongedSegment::ProlongedSegment(const AcGePoint3d& start, const AcGePoint3d& end,
                                   bool beforeStart, bool beyondEnd)
    : AcGeLineSeg3d(start, end),
      interval_(beforeStart ? -kBoundless : 0.0, beyondEnd ? kBoundless : 1.0) {}

Adesk::Boolean ProlongedSegment::hasStartPoint(AcGePoint3d& point) const {
    return interval_.isBoundedBelow() ? AcGeLineSeg3d::hasStartPoint(point) : Adesk::kFalse;
}

Adesk::Boolean ProlongedSegment::hasEndPoint(AcGePoint3d& point) const {
    return interval_.isBoundedAbove() ? AcGeLineSeg3d::hasEndPoint(point) : Adesk::kFalse;
}

AcGeCurve3d::Place ProlongedSegment::nearest(const AcGePoint3d& point,
                                             const AcGeTol& /*tol*/) const {
    const double param = interval_.clamp(paramOnUnbounded(point));
    return {param, evalPoint(param)};
}

} // namespace host_geometry
