#pragma once

#include "EmbeddedHost.h"

namespace pipenet {

/// The blocks and layers of a network drawing.
struct NetworkBlocks {
    AcDbObjectId well;  ///< a circle one unit wide
    AcDbObjectId valve; ///< the same with a cross
    AcDbObjectId tank;  ///< a square one unit wide
};

/// Defines the blocks in a drawing that has none of them. Throws Failure when the host refuses.
NetworkBlocks defineNetworkBlocks(AcDbDatabase& database);

/// Defines a layer in a colour unless it is there.
void defineLayer(AcDbDatabase& database, const CString& name, int colour);

/// Throws Failure for what an own, empty drawing cannot refuse.
void requireDrawn(bool done, const char* what);

} // namespace pipenet
