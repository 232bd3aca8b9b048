#pragma once

#include "pressure/PressureSeg.h"

/// Rebuilds the pressure network that hangs on a picked pipe as a tree of segments.
///
/// @param segs    gets the segments appended; it should be empty, and is never emptied here. It
///                grows by its usual steps afterwards.
/// @param startId the picked pipe.
/// @param point   the picked point, drawing units: the reading begins at the end nearest to it, and
///                what hangs on that end stays outside.
/// @param rootSeg set to 0 when the root is found.
/// @return 1 when the search succeeded. 0 with `segs` and `rootSeg` untouched when the entity is no
///         pipe of a system or was not collected; 0 with the whole tree in `segs`, without meters
///         and valves, when the network closes on itself.
TKVLT_API int GetPressureNetwork(CArray<PressureSeg, PressureSeg&>& segs, AcDbObjectId startId,
                                 AcGePoint3d point, int& rootSeg);
