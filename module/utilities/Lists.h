#pragma once

#include "Export.h"
#include "platform.h"

/// 1 when `id` is in the list, else 0.
TKVLT_API int PelIsIdInIdArr(AcDbObjectIdArray& ids, AcDbObjectId id);

/// 1 when `text` is in the list, compared with regard to case, else 0. `index` has no effect: the
/// place of the match is written to a copy.
TKVLT_API int PelIsCStringInCStringArray(const CStringArray& texts, const CString& text, int index);

/// Index of the least value, the first of equal ones; -1 for an empty list and for one without a
/// value below 99999999999999.9.
TKVLT_API int PelFindMinIndex(CArray<double, double>& values);
