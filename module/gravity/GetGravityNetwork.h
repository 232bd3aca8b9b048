#pragma once

#include "frame/GravitySearchObject.h"

/// Rebuilds the gravity network around `startId` into `object`, which should be fresh: it is not
/// emptied first, and after a failure it keeps whatever had been built.
///
/// @param startId The start well, tank or pipe; a well or tank becomes the root.
/// @param endId   The entity at which the path ends, or the null id for none.
/// @param point   Decides between the two targets of a start pipe; drawing units.
/// @return 1 for a finished network, 0 for none: equal or null ends, an end of another system, a
/// start
///         that was not collected, a cycle, a lone well, or an end that was not reached.
TKVLT_API int GetGravityNetwork(GravitySearchObject* object, AcDbObjectId& startId,
                                AcDbObjectId& endId, AcGePoint3d& point);
