#pragma once

#include "editor/CommandInput.h"
#include "editor/EditorCommand.h"
#include "geometry/AcGePoint3d.h"

#include <optional>
#include <vector>

namespace host_ed {

/// The entities of the current space that are drawn, in drawing order.
std::vector<AcDbObjectId> shownEntities(const AcDbDatabase& database);

/// The entities selected last that are still there.
std::vector<AcDbObjectId> previousEntities(const EditorSession& session);

/// The drawn entity of the current space that passes nearest to the point in plan, within the pick
/// box: PICKBOX pixels of a view that is VIEWSIZE high. Of equally near ones the one drawn last.
/// Null when there is none. Cost: one look at each entity.
AcDbObjectId entityAt(const AcGePoint3d& point, const CommandContext& context);

/// The entities that an input of a selection names: an entity, a set, what stands at a point,
/// "All", "Last", "Previous". nullopt for anything else and for an erased entity; a point beside
/// everything names none.
std::optional<std::vector<AcDbObjectId>> selectedBy(const CommandInput& input,
                                                    const CommandContext& context);

} // namespace host_ed
