#pragma once

#include "frame/GravitySearchObject.h"

/// Appends the way from a well or pipe of a finished network to its root, well 0, to `pathSegs` and
/// `pathWells`, which are not emptied first. The well nearest to the target comes first; a pipe's
/// way begins with its own segment.
///
/// A well that was merged into a node becomes that node's entity, and the old one a merged one.
///
/// @param network A finished network.
/// @param target  A well or pipe; a tank is never found.
/// @return 1, or 0 with the network as it was: a null or lone-well network, a null target, the root
///         itself, an entity of another system than the root's, one that is not in the network, or
///         one whose links do not lead to the root.
TKVLT_API int FindGravityPath(GravitySearchObject*& network, AcDbObjectId& target);
