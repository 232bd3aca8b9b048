#pragma once

#include "geometry/AcGeLineSeg3d.h"

namespace host_geometry {

/// A straight piece that counts beyond its ends where it is prolonged. The parameter is that of the
/// piece itself, 0 at its start and 1 at its end.
class ProlongedSegment final : public AcGeLineSeg3d {
public:
    ProlongedSegment(const AcGePoint3d& start, const AcGePoint3d& end, bool beforeStart,
                     bool beyondEnd);

    ProlongedSegment* copy() const override { return new ProlongedSegment(*this); }
    void getInterval(AcGeInterval& interval) const override { interval = interval_; }
    using AcGeCurve3d::getInterval;
    Adesk::Boolean hasStartPoint(AcGePoint3d& point) const override;
    Adesk::Boolean hasEndPoint(AcGePoint3d& point) const override;

protected:
    Place nearest(const AcGePoint3d& point, const AcGeTol& tol) const override;

private:
    AcGeInterval interval_;
};

} // namespace host_geometry
