#pragma once

#include "networks/GravityDrawing.h"
#include "SystemUnderCheck.h"

namespace pipenet {

/// "well-without-pipe" for the wells of a gravity system that no pipe touches, and "no-network" for
/// what hangs together, is in no network and has no finding that says why. To be called after all
/// other findings of the system.
///
/// @param drawing turned to the system, with full pools.
void findLooseGroups(GravityDrawing& drawing, SystemUnderCheck& under);

} // namespace pipenet
