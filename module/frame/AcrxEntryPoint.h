#pragma once

#include "Export.h"

/// The entries by which the host talks to the module. They are exported by their plain names and
/// are no part of what sibling modules link to, each of which has its own.
extern "C" {

/// Takes a message of the host. kInitAppMsg unlocks the application, so that it may be unloaded,
/// and declares it able to work with several open documents; kUnloadAppMsg and any other message do
/// nothing. Always AcRx::kRetOK.
TKVLT_API int acrxEntryPoint(int message, void* appId);

/// The generation of the programming interface that the module is built against: major version 18
/// in the upper half.
TKVLT_API int acrxGetApiVersion();
}
