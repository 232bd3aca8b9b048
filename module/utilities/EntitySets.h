#pragma once

#include "Export.h"
#include "platform.h"

/// Takes out of the selection set what does not carry exactly `value` under `key`. A missing text
/// counts as empty. An entity whose name the host does not give stays.
TKVLT_API void PelPurePipeSS(ads_name set, CString key, CString value);

/// Appends the ids of the set's entities to `ids`, which is not emptied, in set order; those
/// without a name or id are left out. 0 when the set has no length or is empty, else 1.
TKVLT_API int PelSS2IdArr(ads_name set, AcDbObjectIdArray& ids);

/// Erases the set's entities. The set stays the caller's.
TKVLT_API void PelDeleteSS(ads_name set);
