#pragma once

#include "frame/GravitySearchObject.h"

namespace tkvlt {

/// Index of the first node after the root that stands for `block` or has it merged into it; -1 for
/// none. The root is left out, and with it what has been merged into the root. A merged block takes
/// over as its node's entity; the old one goes to the end of the merged ones.
int FindNodeOfBlock(GravitySearchObject& network, const AcDbObjectId& block);

/// Index of the node at the end of the first segment that holds `pipe`; -1 for none.
int FindNodeBehindPipe(const GravitySearchObject& network, const AcDbObjectId& pipe);

/// Appends the way from node `well` to node 0 to `pathWells` and `pathSegs`. False, and nothing
/// appended, when there is none: in a network whose links run in a circle. Where a link leads to
/// nothing the bad index throws, and what was passed until then stands in both arrays.
bool AppendPathToRoot(GravitySearchObject& network, int well);

} // namespace tkvlt
