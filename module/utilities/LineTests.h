#pragma once

#include "Export.h"
#include "platform.h"

/// Whether the line q1 to q2 lies along the line p1 to p2 and they overlap, drawing units. 0: the
/// sine of the angle between them exceeds 0.1, q1 is more than 50.0 off the line, or they lie end
/// to end. 1: q lies within the reach of p, with 0.5 of play at each end. 2: it stuck out and its
/// ends were cut back.
TKVLT_API int PelSeeIfCould(AcGePoint3d p1, AcGePoint3d p2, AcGePoint3d& q1, AcGePoint3d& q2);

/// Index of the point nearest to `from` among those whose direction from it, or the opposite one,
/// agrees in plan with that to `to` (sine at most 0.1); the first of equally near ones, -1 for
/// none. Distances are measured in space from `from` at height 0.
TKVLT_API int PelFindClosetPointWithDirection(AcGePoint3d from, AcGePoint3d to,
                                              AcGePoint3dArray& points);
