#include "application/HostRecorder.h"

#include "application/AcApDocManager.h"
#include "application/HostModules.h"
#include "database/OpenObject.h"
#include "database/ResultBuffer.h"
#include "editor/SelectionSets.h"
#include "platform/ExtensionModule.h"

#include <algorithm>

namespace host {

std::vector<std::wstring> HostRecorder::linesOf(const std::wstring& word) const {
    std::vector<std::wstring> found;
    std::copy_if(lines_.begin(), lines_.end(), std::back_inserter(found),
                 [&](const std::wstring& line) {
                     return line == word || line.compare(0, word.size() + 1, word + L" ") == 0;
                 });
    return found;
}

LiveCounts liveCounts() {
    return {host_db::openObjectCount(),     host_ed::openSelectionSets(),
            host_db::liveResultBuffers(),   acDocManager()->lockCount(),
            acDocManager()->reactorCount(), loadedModules().size(),
            extensionLibraryCount(),        registeredClassCount()};
}

} // namespace host
