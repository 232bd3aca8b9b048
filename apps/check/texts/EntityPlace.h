#pragma once

#include "EmbeddedHost.h"

namespace pipenet {

/// Where to look for an entity, drawing units: the insertion point of a block, half way between the
/// ends of a curve, the origin for anything else.
AcGePoint3d placeOf(const AcDbObjectId& id);

} // namespace pipenet
