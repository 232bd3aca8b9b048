#pragma once

#include "platform.h"

#include <memory>

namespace tkvlt {

/// Adds a new entity to the drawing and closes it; the null id when the drawing does not take it,
/// and the entity is deleted then.
inline AcDbObjectId EnterEntity(std::unique_ptr<AcDbEntity> entity) {
    const AcDbObjectId id = PutEntityToDatabase(entity.get());
    if (!id.isNull()) {
        static_cast<void>(entity.release());
    }
    return id;
}

} // namespace tkvlt
