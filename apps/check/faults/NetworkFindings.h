#pragma once

#include "SystemUnderCheck.h"

namespace pipenet {

/// "cycle" for every run by which a network closes on itself, with the ring in order.
void findCycles(SystemUnderCheck& under);

/// "merged-wells" for every node that several wells became.
void findMergedWells(SystemUnderCheck& under);

} // namespace pipenet
