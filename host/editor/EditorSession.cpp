#include "editor/EditorSession.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/DatabaseRegistry.h"
#include "editor/EditorCommand.h"

namespace host_ed {
namespace {

/// The editor's functions name no drawing, they mean the current one; so the process keeps one
/// table of sessions, by the databases' serial numbers.
std::map<std::uint32_t, EditorSession>& sessions() {
    static std::map<std::uint32_t, EditorSession> all;
    return all;
}

void forgetClosed() {
    std::erase_if(sessions(),
                  [](const auto& each) { return host_db::databaseOf(each.first) == nullptr; });
}

} // namespace

EditorSession::EditorSession() = default;

EditorSession::~EditorSession() = default;

EditorSession* currentSession() {
    const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr) {
        return nullptr;
    }
    const auto known = sessions().find(database->serial());
    if (known != sessions().end()) {
        return &known->second;
    }
    forgetClosed();
    return &sessions()[database->serial()];
}

} // namespace host_ed
