#pragma once

/// Makes the host's user interface library ready for the extension library that calls it, at its
/// attach. This host has no dialogs, so there is nothing to make ready.
void InitAcUiDLL();
