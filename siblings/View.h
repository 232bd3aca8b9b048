#pragma once

#include "geometry/AcGePoint3d.h"

/// Fills the lower left and the upper right corner of the part of the drawing that its window
/// shows, in the user coordinate system, at height 0. The view is a plan view of that system: as
/// high as VIEWSIZE about VIEWCTR, and as wide as the window's shape makes it. Gives 1, or 0 with
/// the points untouched without a drawing or when the window has no height.
int XScjx(AcGePoint3d& lowerLeft, AcGePoint3d& upperRight);
