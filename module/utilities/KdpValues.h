#pragma once

#include "Export.h"
#include "platform.h"

// Values in any of the product's settings files. `file` is the path below the system path, without
// a separator in front: L"SysCon\\PipeLineSetting.Kdp". Keys are paths, a backslash between the
// steps. The file is read at each call.

/// Reads the value of a key: what the file's own look-up gives, not 0 when the key was found. 0
/// with `value` as it was when the file cannot be opened or has no such key.
TKVLT_API int PelGetKDPValue(CString file, CString key, CString& value);
/// The same as a 32-bit integer.
TKVLT_API int PelGetKDPValue(CString file, CString key, int& value);
/// The same as a double.
TKVLT_API int PelGetKDPValue(CString file, CString key, double& value);

/// Sets the value of a key, which is added when it is new, and saves the file. 0 when the file
/// cannot be opened, so that no file comes into being; else 1, also when it could not be saved.
TKVLT_API int PelSetKDPValue(CString file, CString key, CString value);
/// The same for a 32-bit integer.
TKVLT_API int PelSetKDPValue(CString file, CString key, int value);
/// The same for a double.
TKVLT_API int PelSetKDPValue(CString file, CString key, double value);
