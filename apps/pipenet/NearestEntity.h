#pragma once

#include "Drawing.h"

namespace pipenet {

/// The network entity nearest to the place in plan: by a pipe's curve, a well's insertion point, a
/// tank's extents (distance 0 within). Of equally near ones the first in drawing order. Null when
/// the drawing has no network entity. Cost: linear.
AcDbObjectId nearestEntity(const Drawing& drawing, const AcGePoint3d& place);

} // namespace pipenet
