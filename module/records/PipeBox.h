#pragma once

#include "records/Pipe.h"
#include "records/PlanBox.h"
#include "records/RecordPool.h"

namespace tkvlt {

/// The pipe's curve and chord in plan.
PlanBox PipeBox(const _Pipe& pipe);

/// What rounding may hide between two of these pipes, drawing units: they meet within a noise that
/// grows with the largest coordinate of either, height and arc centre included.
double RoundingSlack(const RecordPool<_Pipe>& pipes);
double RoundingSlack(const AcGePoint3d& point);
double RoundingSlack(const AcGeCircArc3d& arc);

/// A bounded arc in plan; of one that does not lie in plan, its whole ball.
PlanBox ArcBox(const AcGeCircArc3d& arc);

} // namespace tkvlt
