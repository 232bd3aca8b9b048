#pragma once

#include "Export.h"
#include "platform.h"

/// Replaces a polyline of more than two vertices by one polyline for each stretch between two
/// neighbours, in vertex order; they carry its layer, extended data and other properties, and the
/// bulges and widths of their vertices. A closed polyline gets none for its closing stretch, and
/// its pieces stay closed. Gives 1, also for one of at most two vertices, which stays; 0 when
/// `polyline` cannot be opened for write as one. Cost: quadratic in the number of vertices.
TKVLT_API int PelMultiPL2DblPl(AcDbObjectId polyline);
