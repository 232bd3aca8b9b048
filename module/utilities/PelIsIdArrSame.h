#pragma once

#include "Export.h"
#include "platform.h"

/// 1 when the two lists hold the same ids equally often, in whatever order, else 0. Two empty lists
/// are the same. Cost: linear.
TKVLT_API int PelIsIdArrSame(const AcDbObjectIdArray& a, const AcDbObjectIdArray& b);
