#include "gravity/GetPointOnArcAtDist.h"

namespace tkvlt {

Acad::ErrorStatus GetPointOnArcAtDist(const AcGeCircArc3d& arc, double distance,
                                      AcGePoint3d& point) {
    const AcGePlane plane(arc.center(), arc.normal());
    const double referenceAngle = arc.refVec().angleOnPlane(plane);
    // A geometric arc cannot measure along itself to a point; a database arc can.
    const AcDbArc measured(arc.center(), arc.normal(), arc.radius(),
                           arc.startAng() + referenceAngle, arc.endAng() + referenceAngle);
    return measured.getPointAtDist(distance, point);
}

} // namespace tkvlt
