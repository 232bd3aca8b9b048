#pragma once

#include "platform.h"

namespace tkvlt {

/// The point at `distance` along `arc` from its start, drawing units. The status is that of the
/// database arc that measures it; `point` is set on `eOk` alone.
Acad::ErrorStatus GetPointOnArcAtDist(const AcGeCircArc3d& arc, double distance,
                                      AcGePoint3d& point);

} // namespace tkvlt
