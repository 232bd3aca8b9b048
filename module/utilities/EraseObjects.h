#pragma once

#include "Export.h"
#include "platform.h"

/// Erases the entity under a write lock on the current document. 0 when it cannot be opened for
/// write, else 1.
TKVLT_API int PelEraseObject(AcDbObjectId entity);

/// Erases the entity of a name and zeroes the name, so that it cannot be used again; it is zeroed
/// also when the erasing fails. 0 for the name of no object, with the name as it was, and when the
/// entity cannot be erased. Takes no document lock itself.
TKVLT_API int PelEraseObject(ads_name entity);

/// Erases each entity of the list under a lock of its own, in order.
TKVLT_API void PelEraseObject(AcDbObjectIdArray& entities);
