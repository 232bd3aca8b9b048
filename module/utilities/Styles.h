#pragma once

#include "Export.h"
#include "platform.h"

/// Gives the dimension style `name`, in any case, in `id`. The status is that of opening the table
/// or of the look-up; `id` is left as it was unless it is zero.
TKVLT_API Acad::ErrorStatus PelGetDimStyleId(CString name, AcDbObjectId& id);

/// The same for a text style, and gives its width factor. `widthFactor` is left as it was when the
/// style's record cannot be opened, which does not change the status.
TKVLT_API Acad::ErrorStatus PelGetTextStyleId(CString name, AcDbObjectId& id, double& widthFactor);

/// Width of `text` in a text style at height 1, drawing units, to be multiplied by the height; the
/// style's width factor is in it. A style that the drawing lacks counts as the drawing's default
/// one with the factor 1.
TKVLT_API double PelGetTextWidth(CString styleName, const CString& text);
