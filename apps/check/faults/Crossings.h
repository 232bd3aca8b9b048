#pragma once

#include "networks/GravityDrawing.h"
#include "networks/PressureForest.h"
#include "SystemUnderCheck.h"

namespace pipenet {

/// "crossing-without-joint" where two pipes of a gravity system cross in plan away from their ends
/// and from wells and tanks, and no chain goes from the one into the other: a warning where their
/// heights are told and are too near, else a note.
///
/// @param drawing turned to the system, with full pools.
void findCrossings(GravityDrawing& drawing, SystemUnderCheck& under);

/// "crossing-heights" where the search joins two pipes because they cross or touch in plan, though
/// their heights there differ by more than their diameters together.
void findCrossingHeights(const PressureForest& forest, SystemUnderCheck& under);

} // namespace pipenet
