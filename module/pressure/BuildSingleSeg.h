#pragma once

#include "pressure/PressureSeg.h"

namespace tkvlt {

/// Adds one pipe entity to `seg` without looking at any other; always 1, also when the entity
/// cannot be opened. Nothing is cleared first. The elevations follow the flow text: "起点标高" is
/// that at the upstream end.
int BuildSingleSeg(PressureSeg& seg, AcDbObjectId id);

} // namespace tkvlt
