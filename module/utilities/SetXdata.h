#pragma once

#include "Export.h"
#include "platform.h"

/// Sets the extended data of an entity. The chain begins with the name of an application, which is
/// registered when it is not yet; further applications in the chain must be registered. 0 when the
/// application cannot be registered, the entity cannot be opened for write or the host refuses the
/// data, as when an object would carry more than 16 KB; else 1. The chain stays the caller's. Takes
/// no document lock: the caller is in a command or holds one.
TKVLT_API int PelSetXdata(AcDbObjectId entity, resbuf* chain);

/// The same for the entity of a name; 0 for the name of no object.
TKVLT_API int PelSetXdata(ads_name entity, resbuf* chain);
