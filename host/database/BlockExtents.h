#pragma once

#include "database/AcDbExtents.h"
#include "database/AcDbObjectId.h"

#include <cstddef>

class AcDbBlockReference;

namespace host_db {

/// Most definitions and entities that one box is worked out from.
inline constexpr std::size_t kMaxBlockVisits = 4'000'000;

/// Grows `box` by what a reference shows under `transform`: the geometry of its definition, through
/// nested references of any depth. Attributes and their definitions are left out, and so is a
/// definition inside itself. False, with `box` untouched, when nothing is shown or there is more to
/// visit than kMaxBlockVisits.
bool addBlockExtents(const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                     AcDbExtents& box);

} // namespace host_db
