#pragma once

#include "Export.h"
#include "platform.h"

/// The flow kind of a pipe system by the settings file `\SysCon\PipeLineSetting.Kdp` under the
/// system path: 1 gravity, 0 pressure, -1 for an empty name, a file that cannot be opened, a system
/// that is not listed, or any other text for its kind. Names compare exactly; the first entry in
/// file order decides. Reads the file at each call.
TKVLT_API int PelGetDirectionSytle(CString systemName);

/// Reads the flag text of a pipe system into `flag`: 1 when it was read, else 0 with `flag` as it
/// was. An empty name finds an entry whose value is empty.
TKVLT_API int PelGetSystemFlag(CString& flag, const CString& systemName);
