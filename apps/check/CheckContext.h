#pragma once

#include "CheckReport.h"
#include "NetworkEntity.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace pipenet {

/// A pipe system of the drawing.
struct CheckedSystem {
    CString name;
    std::string utf8Name;
    int flow = -1; ///< as `PelGetDirectionSytle` tells it
};

/// A pipe, well or tank of the drawing with its system.
struct CheckedEntity {
    AcDbObjectId id;
    EntityKind kind;
    int system; ///< index in the context's systems
};

/// What every part of a check works on: the drawing's network entities and their systems.
struct CheckContext {
    std::vector<CheckedSystem>
        systems; ///< in order of first occurrence; one may have an empty name
    std::vector<CheckedEntity>
        entities; ///< in drawing order, each once; of the checked systems alone
    std::unordered_map<AcDbObjectId, int> places; ///< index in `entities`
    std::string onlySystem;                       ///< UTF-8; empty when all systems are checked

    /// The entity with this id; null when it is not among those that are checked.
    const CheckedEntity* find(const AcDbObjectId& id) const;
    const CheckedSystem& systemOf(const CheckedEntity& entity) const {
        return systems[static_cast<std::size_t>(entity.system)];
    }
    /// The system of this name; -1 for none.
    int systemNamed(const CString& name) const;
};

/// Reads the current document.
///
/// @param onlySystem the one system to keep, UTF-8; empty for all.
CheckContext readContext(const std::string& onlySystem);

/// So many members of a ring or of a group are named in a sentence; the finding lists all.
inline constexpr std::size_t kNamedMembers = 8;

/// Entities of a drawing by name, in the order in which they are to be mentioned.
std::string namesOf(const std::vector<AcDbObjectId>& entities, std::size_t most);

} // namespace pipenet
