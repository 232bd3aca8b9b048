#pragma once

#include "records/Block.h"

namespace tkvlt {

/// Fills what a record takes from its block reference itself, beside its texts and the shape of its
/// definition, and gives the definition's id. Null on failure, with the record as it was.
AcDbObjectId ReadBlockReference(_Block& block);

} // namespace tkvlt
