#pragma once

#include "database/AcadErrorStatus.h"

#include <string>
#include <string_view>

namespace host_db {

/// Reads the file that host::findSupportFile finds under a name. eFileNotFound, eFileAccessErr;
/// `bytes` is untouched then.
Acad::ErrorStatus readSupportFile(std::wstring_view file, std::string& bytes);

} // namespace host_db
