#pragma once

#include "records/Well.h"

namespace tkvlt {

/// A fresh node for a block of the pool. A well gets its radius and its number; a tank has neither.
/// @param kind a `TargetKind`.
Well MakeNode(const _Block& block, int kind);

/// The same for a node that has the block's own fields already.
void BecomeNode(Well& node, int kind);

} // namespace tkvlt
