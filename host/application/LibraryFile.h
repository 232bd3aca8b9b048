#pragma once

#include <string>

namespace host {

/// The file is there and shorter than its own header says. The system maps such a library without a
/// complaint and the process ends at the first access behind the file's end. False for a file that
/// is no library, or cannot be read: the system refuses those by itself. Cost: two reads.
bool isCutShort(const std::string& path);

} // namespace host
