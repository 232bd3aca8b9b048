#pragma once

#include "networks/PressureForest.h"
#include "SystemUnderCheck.h"

namespace pipenet {

/// Looks at the free ends of a pressure system: "end-in-foreign-well" for one in a well of another
/// system, "gap-at-joint" for one that all but meets another pipe. Any other free end is the end of
/// a line and no fault.
void findPressureEnds(const PressureForest& forest, SystemUnderCheck& under);

} // namespace pipenet
