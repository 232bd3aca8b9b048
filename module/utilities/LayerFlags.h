#pragma once

#include "Export.h"
#include "platform.h"

// Both lock the current document for write although they only read, and give -1 when the drawing
// has no such layer or its table or record cannot be opened: beware that -1 is true in a plain
// test. Names in any case.

/// 1 when the layer is switched off, 0 when it is on.
TKVLT_API int PelIsLayerOff(CString name);

/// 1 when the layer is locked, 0 when it is not.
TKVLT_API int PelIsLayerLocked(CString name);
