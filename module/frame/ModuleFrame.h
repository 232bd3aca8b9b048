#pragma once

#include "platform.h"

namespace tkvlt {

/// The module's handle, from the attach to the process on.
extern HINSTANCE instanceHandle;

/// What the module does of its own when the host has loaded it: nothing.
void InitialiseModule();
/// What the module does of its own before the host unloads it: nothing.
void UnloadModule();

} // namespace tkvlt
