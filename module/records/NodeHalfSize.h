#pragma once

#include "platform.h"

namespace tkvlt {

/// Half the size of the well or tank behind `id`, in drawing units; 0.0 for anything else, the null
/// id included. An entity with text under the well system counts as a well, whatever else it
/// carries. A well's diameter is in metres and a tank's length in millimetres, so only the first is
/// multiplied by 1000.
double NodeHalfSize(const AcDbObjectId& id);

} // namespace tkvlt
