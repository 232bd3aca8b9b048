#pragma once

#include "records/Block.h"

namespace tkvlt {

/// Fills what a record takes from its block reference itself, beside its texts and the shape of its
/// definition, and gives the definition's id. Null on failure, with the record as it was.
AcDbObjectId ReadBlockReference(_Block& block);
/// The same of a reference that is open for reading.
AcDbObjectId ReadBlockReference(_Block& block, const AcDbBlockReference& reference);

} // namespace tkvlt
