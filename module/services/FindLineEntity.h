#pragma once

#include "pressure/PressureSeg.h"

/// Counterpart of `FindGravityPath` for pressure networks; there for its callers to link to. Looks
/// at neither argument and changes nothing; always 1.
TKVLT_API int FindLineEntity(CArray<PressureSeg, PressureSeg&>& segs, CString name);
