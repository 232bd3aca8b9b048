#pragma once

#include "exchange/PipeModel.h"

namespace pipenet {

/// Metres that a unit of the model's map stands for. The model's own units decide, unless the map
/// is a mere scheme: where half of the pipes are drawn at less than half or more than twice their
/// length, it is enlarged by the middle ratio, and a note says so.
double metresOfMapUnit(PipeModel& model);

/// The length of a path of points.
double wayOf(const std::vector<PlanPoint>& path);

} // namespace pipenet
