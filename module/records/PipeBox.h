#pragma once

#include "records/Pipe.h"
#include "records/PlanBox.h"

namespace tkvlt {

/// The pipe's curve and chord in plan.
PlanBox PipeBox(const _Pipe& pipe);
/// The same for one between two points.
/// @param arc null for a straight pipe.
PlanBox PipeBox(const AcGePoint3d& startPoint, const AcGePoint3d& endPoint,
                const AcGeCircArc3d* arc);

/// What rounding may hide between what lies here and another pipe, drawing units: two meet within a
/// noise that grows with the largest coordinate of either, height and arc centre included.
double RoundingSlack(const AcGePoint3d& point);
double RoundingSlack(const AcGeCircArc3d& arc);

/// A bounded arc in plan; of one that does not lie in plan, its whole ball.
PlanBox ArcBox(const AcGeCircArc3d& arc);

} // namespace tkvlt
