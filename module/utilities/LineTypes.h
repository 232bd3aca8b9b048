#pragma once

#include "Export.h"
#include "platform.h"

/// Gives the linetype `name`, in any case, in `id`, and 1. One that the drawing lacks is loaded,
/// from the first of these files that defines it: "\System\TK_VGP.LIN" under the system path,
/// "acadiso.lin", "acad.lin". 0, with `id` as it was, when none does or the table cannot be opened.
/// The document is locked while a file is read, and not at all for a linetype that is there.
TKVLT_API int PelGetLineTypeId(CString name, AcDbObjectId& id);
