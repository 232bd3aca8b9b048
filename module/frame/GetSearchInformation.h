#pragma once

#include "frame/SearchObject.h"

/// Takes a picked network entity to the search of its pipe system and hands back the network.
///
/// @param object  Out. Set it to null first: with an entity without a system name, and with a
/// system
///                that the settings do not know, it is left as it was. The caller deletes the
///                object.
/// @param startId The picked well, tank or pipe.
/// @param endId   An entity at which a path ends, or the null id. Read by the gravity search alone.
/// @param point   The point of the pick, in drawing units.
/// @return 1 when the search succeeded, and for a system that the settings do not know (without an
///         object); 0 when there is no system name or the search failed.
TKVLT_API int GetSearchInformation(SearchObject*& object, AcDbObjectId& startId,
                                   AcDbObjectId& endId, AcGePoint3d point);
