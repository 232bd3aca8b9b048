#pragma once

#include "Export.h"
#include "platform.h"

/// Types `text` and Enter into the host's docked command line, over what stands there up to a
/// hundred characters. With nullptr it types Escape alone. Each character is a window message that
/// is handled before the next one goes out.
TKVLT_API void PelSendAcadCommand(wchar_t* text);
