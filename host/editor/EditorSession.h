#pragma once

#include "database/AcDbObjectId.h"
#include "geometry/AcGeMatrix3d.h"
#include "geometry/AcGePoint3d.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace host_ed {

class EditorCommand;

/// What the editor keeps of one drawing while it is open.
struct EditorSession {
    EditorSession();
    EditorSession(const EditorSession&) = delete;
    EditorSession& operator=(const EditorSession&) = delete;
    ~EditorSession();

    /// From the user coordinate system to the world's.
    AcGeMatrix3d ucs;
    /// The point given last, in world coordinates.
    AcGePoint3d lastPoint;
    /// The middle of what the window shows, in world coordinates.
    AcGePoint3d viewCenter;
    /// The entities selected last, nullptr before that. Shared with the set that they were put
    /// into: it may be the whole drawing.
    std::shared_ptr<const std::vector<AcDbObjectId>> previous;
    /// Numbers of the drawing's own variables that were set, by name.
    std::map<std::wstring, double> numbers;
    /// The command that waits for input; nullptr for none.
    std::unique_ptr<EditorCommand> pending;
    /// The pending command was begun by typing.
    bool pendingTyped = false;
};

/// The session of the working database, made at the first call and kept while the
/// database is open; nullptr without a drawing.
EditorSession* currentSession();

} // namespace host_ed
