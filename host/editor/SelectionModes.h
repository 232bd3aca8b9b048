#pragma once

#include "database/AcDbDatabase.h"
#include "database/ResultBuffer.h"
#include "editor/EditorSession.h"

#include <optional>
#include <string>
#include <vector>

namespace host_ed {

/// The candidates of a selection mode (upper case, without "_") in drawing order, before the
/// filter: see acedSSGet. Erased ones may be among them. nullopt for a mode that is not known, or
/// whose arguments are malformed.
std::optional<std::vector<AcDbObjectId>> candidatesOf(const std::wstring& mode, const void* point1,
                                                      const void* point2,
                                                      const AcDbDatabase& database,
                                                      const EditorSession& session);

} // namespace host_ed
