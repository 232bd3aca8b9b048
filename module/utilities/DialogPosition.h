#pragma once

#include "Export.h"
#include "platform.h"

// The place of a dialog's top left corner in the user file, screen pixels, under the dialog's name.
// A window whose right edge is not right of 0 lies off the screen: nothing is done with it.

/// Moves the window to the place that was saved for it, or to 150, 150 when there is none, in its
/// present size; a saved left of -10000 leaves it where it is.
TKVLT_API void PelGetRect(CString dialogName, CWnd* window);

/// Saves the window's place.
TKVLT_API void PelSaveRect(CString dialogName, CWnd* window);
