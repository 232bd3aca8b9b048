#include "database/CircularPath.h"

#include <cmath>
#include <numbers>

namespace host_db {

CurvePath circularPath(const AcGePoint3d& center, const AcGeVector3d& normal, double radius,
                       double startAngle, double sweep) {
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(normal);
    ArcPiece arc;
    arc.center = center;
    arc.u = toWorld * AcGeVector3d(radius, 0.0, 0.0);
    arc.v = toWorld * AcGeVector3d(0.0, radius, 0.0);
    arc.from = startAngle;
    arc.to = startAngle + sweep;
    const auto at = [&](double angle) {
        return center + arc.u * std::cos(angle) + arc.v * std::sin(angle);
    };
    arc.start = at(arc.from);
    arc.end = sweep >= 2.0 * std::numbers::pi ? arc.start : at(arc.to);
    CurvePath path;
    path.add(arc);
    return path;
}

} // namespace host_db
