#pragma once

#include "networks/GravityDrawing.h"

#include <vector>

namespace pipenet {

/// A node that a search can begin at.
struct GravityStart {
    AcDbObjectId id;
    bool isTank = false;
    /// A tank that names another system: a search comes to it by way of a pipe alone.
    bool isForeign = false;
    int pipes = 0; ///< that touch it
    int order = 0; ///< the lower the sooner
};

/// The wells of the system and the tanks that its pipes touch, in the order in which searches are
/// to begin: where the flow texts tell that all water arrives; then tanks; then wells, those with
/// the fewest pipes first. The system must be the one turned to, with full pools.
std::vector<GravityStart> gravityStarts(GravityDrawing& drawing);

} // namespace pipenet
