#pragma once

#include "platform.h"

namespace tkvlt {

/// Length along `curve` between the places nearest to `p1` and `p2`, plus the distances by which
/// the two points miss the curve; drawing units. Never negative; the same for swapped points.
double LengthAlong(const AcGeCurve3d& curve, const AcGePoint3d& p1, const AcGePoint3d& p2);

} // namespace tkvlt
