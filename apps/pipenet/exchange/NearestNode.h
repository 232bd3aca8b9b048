#pragma once

#include "PlanCurve.h"

#include <vector>

namespace pipenet {

/// For each place the distance to the nearest of the others, or `farthest` when none is as near as
/// that. Looks at the neighbouring cells of a grid alone, so the cost grows with the number of
/// places, not with its square, unless they crowd.
std::vector<double> nearestOthers(const std::vector<PlanPoint>& places, double farthest);

} // namespace pipenet
