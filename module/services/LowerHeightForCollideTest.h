#pragma once

#include "Export.h"
#include "platform.h"

/// Lowers a gravity pipe, and with it what lies further along the water, in the drawing.
///
/// Both heights of the pipe sink by `drop`; on a stretch with a well or tank at each end all its
/// pipes get the pipe's two new texts, else the pipe alone. From the well at the stretch's end each
/// following segment on which the water runs on sinks as far as it must. Heights are written with
/// six significant digits. Nothing is undone when a later step fails.
///
/// @param pipe A pipe of a gravity system.
/// @param drop Metres; a negative value raises the pipe.
/// @return 1 when the operation ended in order, also when the only well lies where the water comes
///         from, so that nothing follows; 0 when the pipe has no gravity segment, or no network was
///         found around its well. In the latter case a pipe with an open end stays lowered.
TKVLT_API int LowerHeightForCollideTest(AcDbObjectId pipe, double drop);
