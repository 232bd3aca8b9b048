#pragma once

#include "Export.h"
#include "platform.h"

/// Breaks a curve at the two points in which a block reference's geometry meets it, the curve
/// extended: the host's command "break". 1 when the break was sent; 0, with nothing changed, when
/// either cannot be opened or they do not meet in exactly two points. System variables are the
/// caller's.
TKVLT_API int PelBlockTrimCurve(AcDbObjectId block, AcDbObjectId curve);

/// Does that for each entity that a fence along the block's extents meets and that carries extended
/// data of the application 管线系统, with the command echo off.
TKVLT_API void PelTrimAllLineByBlkRef(ads_name block);
