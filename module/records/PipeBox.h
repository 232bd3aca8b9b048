#pragma once

#include "records/Pipe.h"
#include "records/PlanBox.h"

namespace tkvlt {

/// The pipe's curve and chord in plan; for an arc its whole circle.
PlanBox PipeBox(const _Pipe& pipe);

/// The whole circle of an arc in plan.
PlanBox CircleBox(const AcGeCircArc3d& arc);

} // namespace tkvlt
