#pragma once

#include "records/Well.h"

namespace tkvlt {

/// A fresh node for a block of the pool. A well gets its radius and its number; a tank has neither.
/// @param kind a `TargetKind`.
Well MakeNode(const _Block& block, int kind);

/// Makes a fresh node that of a block.
void FillNode(Well& node, const _Block& block, int kind);

/// Gives a node that knows its block, its position and its radius what a walk goes by.
void BecomeNode(Well& node, int kind);
/// Reads the number of a well.
void ReadNumber(Well& node);
/// Reads what a node that was filled from a well's site lacks.
void ReadRest(Well& node);

} // namespace tkvlt
