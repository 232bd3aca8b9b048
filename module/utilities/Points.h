#pragma once

#include "Export.h"
#include "platform.h"

/// The place in the drawing, in the user coordinate system at height 0, that a screen pixel shows.
/// 1 when the pixel lies inside the drawing's window (its left and top edges included), else 0; the
/// point is carried on beyond the window then. Without a drawing nothing is shown: the view's
/// corners count as the origin.
TKVLT_API int PelPixelPtToUcsPt(CPoint& pixel, AcGePoint3d& point);

/// Of two points the one of greater Y; at the same Y the one of lesser X; at the same X too, `b`.
TKVLT_API AcGePoint3d PelTopLeftPoint(AcGePoint3d& a, AcGePoint3d& b);

/// The point at `distance`, drawing units, from `point` in the direction of `vector`, whatever the
/// vector's length.
TKVLT_API AcGePoint3d PelGetPolarPoint(AcGePoint3d point, AcGeVector3d vector, double distance);
