#pragma once

#include "SystemUnderCheck.h"

namespace pipenet {

/// Rebuilds the networks of a pressure system and adds its topological findings to the report.
void checkPressure(SystemUnderCheck& under);

} // namespace pipenet
