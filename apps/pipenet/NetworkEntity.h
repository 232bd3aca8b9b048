#pragma once

#include "EmbeddedHost.h"

#include <optional>

namespace pipenet {

/// What an entity of the drawing is to a network, by the first of these texts that it carries.
enum class EntityKind { pipe, well, tank };

struct NetworkEntity {
    AcDbObjectId id;
    EntityKind kind;
    CString systemName; ///< of a tank the text under 池体
};

/// The entity as a member of a network; nothing when it carries none of the texts.
std::optional<NetworkEntity> networkEntity(const AcDbObjectId& id);

} // namespace pipenet
