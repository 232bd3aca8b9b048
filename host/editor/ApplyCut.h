#pragma once

#include "database/AcDbCurve.h"

#include <memory>
#include <vector>

namespace host_ed {

/// Makes the entity the first of the pieces and adds the others behind the last entity of its
/// space. The entity keeps its identity, also where a circle becomes an arc. False when it, or its
/// space, can't be opened for write, or its layer is locked; the drawing may be half changed then,
/// for whoever runs the command to take back. There is at least one piece.
bool applyCut(AcDbObjectId id, std::vector<std::unique_ptr<AcDbCurve>> pieces);

/// The entity's layer lets nobody change it.
bool isOnLockedLayer(const AcDbEntity& entity);

} // namespace host_ed
