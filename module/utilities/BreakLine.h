#pragma once

#include "Export.h"
#include "platform.h"

/// Breaks lines where they cross or run into each other, and appends the new pieces to `lines`; a
/// piece is met by everything that stands before it in the list. A piece runs from the old end of
/// its line back to the break, and carries the line's properties and extended data. Lines that
/// cannot be opened for write are passed over. `lines` must name lines only. Of n lines come n × n
/// pieces at most, also where coordinates are too large for their crossings to be reckoned. Cost:
/// each pair that comes near one another is opened and classified, pieces included.
TKVLT_API void PelBreakLine(AcDbObjectIdArray& lines);
