#pragma once

#include "networks/GravityDrawing.h"
#include "SystemUnderCheck.h"

namespace pipenet {

/// "well-without-pipe" for the wells of a gravity system that no pipe touches, and "no-network" for
/// what hangs together, is in no network and is not explained. To be called after all systems have
/// their networks and other findings.
void findLooseGroups(GravityDrawing& drawing, SystemUnderCheck& under);

/// "well-without-pipe" for the wells of a pressure system that lie on none of its pipes.
void findWellsWithoutPipe(SystemUnderCheck& under);

} // namespace pipenet
