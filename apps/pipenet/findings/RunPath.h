#pragma once

#include "CheckReport.h"
#include "PlanCurve.h"

#include <vector>

namespace pipenet {

/// The way of a run in plan, from its start to its end along its pipes as they are drawn, arcs as
/// short straight pieces. Where a pipe is joined at its side, or cut by a crossing, only the part
/// of it that belongs to the run is followed. Begins with the run's start and ends with its end,
/// and has no two equal points one after the other. The cost grows with the square of the number of
/// pipes.
std::vector<PlanPoint> runPath(const CheckedRun& run);

} // namespace pipenet
