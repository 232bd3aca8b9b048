#include "database/ReadSupportFile.h"

#include "platform/ReadFile.h"
#include "platform/SupportFiles.h"

#include <optional>
#include <utility>

namespace host_db {

Acad::ErrorStatus readSupportFile(std::wstring_view file, std::string& bytes) {
    const std::string path = host::findSupportFile(file);
    if (path.empty()) {
        return Acad::eFileNotFound;
    }
    std::optional<std::string> read = host::readFile(path);
    if (!read) {
        return Acad::eFileAccessErr;
    }
    bytes = std::move(*read);
    return Acad::eOk;
}

} // namespace host_db
