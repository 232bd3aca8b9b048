#pragma once

#include "networks/GravityDrawing.h"
#include "SystemUnderCheck.h"

namespace pipenet {

/// Rebuilds the networks of a gravity system and adds its topological findings to the report.
void checkGravity(GravityDrawing& drawing, SystemUnderCheck& under);

} // namespace pipenet
