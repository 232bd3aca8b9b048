#pragma once

#include "Export.h"
#include "platform.h"

/// Cuts a line off at the rim of a block reference: the host's command "trim" with a temporary
/// circle about the block's position, its radius the absolute X scale factor, in the XY plane of
/// the world. The part inside the circle goes. System variables are the caller's. Gives the status
/// of what could not be opened or named, else eOk; the circle stays in the drawing when it gets no
/// name.
TKVLT_API Acad::ErrorStatus PelBlockTrimLine(AcDbObjectId line, AcDbObjectId block);

/// Cuts a line, or the first segment of a polyline, off at a circle in the XY plane of the world,
/// drawing units. One meeting point: the end nearer to the centre moves onto the circle, the end
/// point when both are equally near. Two: the host's command "break" takes the piece between them
/// out. The whole polyline takes part in finding the points, but only its vertices 0 and 1 move.
/// An entity that is not strictly within the radius, whose nearest point does not have the centre's
/// very Z, or that is of another kind stays as it is. Gives the status of what could not be named,
/// opened or intersected, else eOk.
TKVLT_API Acad::ErrorStatus PelBlockTrimLine(AcDbObjectId line, AcGePoint3d center, double radius);

/// The same for each of a list, in order; always eOk.
TKVLT_API Acad::ErrorStatus PelBlockTrimLine(AcDbObjectIdArray lines, AcGePoint3d center,
                                             double radius);
