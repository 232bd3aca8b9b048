#pragma once

#include "services/Seg.h"

/// Builds the stretch around one pipe, up to the wells or tanks at its two ends, without a network.
///
/// @param seg  A default-constructed record. Its `kind` becomes that of the pipe's system; with a
///             system that the settings do not know it is left untouched.
/// @param pipe The pipe entity.
/// @return 0 when the system is unknown or no gravity segment could be built; 1 for gravity with a
///         well or tank at both ends, and always for pressure; 2 for gravity with one at one end.
TKVLT_API int GetSingleSeg(Seg& seg, const AcDbObjectId& pipe);
