#pragma once

#include "database/AcDbExtents.h"
#include "database/AcDbObjectId.h"

#include <cstddef>

class AcDbBlockReference;

namespace host_db {

/// Most entities that one box visits again: each definition is walked once whatever its size, but
/// references that double at each of forty levels would be walked for ever.
inline constexpr std::size_t kMaxRepeatedVisits = 1'000'000;

/// Grows `box` by what a reference shows under `transform`: the geometry of its definition, through
/// nested references of any depth. Attributes and their definitions are left out, and so is a
/// definition inside itself. False, with `box` untouched, when nothing is shown or repeated
/// definitions hold more than kMaxRepeatedVisits entities.
bool addBlockExtents(const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                     AcDbExtents& box);

} // namespace host_db
