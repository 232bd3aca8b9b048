#pragma once

#include "database/CurvePath.h"

namespace host_db {

/// A circular arc about `center` from `startAngle` on through `sweep` radians, measured from the X
/// axis of the coordinate system that belongs to `normal` (of length one). A sweep of a whole turn
/// ends exactly where it starts.
CurvePath circularPath(const AcGePoint3d& center, const AcGeVector3d& normal, double radius,
                       double startAngle, double sweep);

} // namespace host_db
