#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace siblings {

/// The bytes of a regular file; nothing when there is none at this path or it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

/// Makes `bytes` the content of the file at `path` in one step: a reader sees the old content or
/// the new one, also after a power failure. A temporary file is written in the same folder, flushed
/// and renamed. A present file keeps its access rights, and must be writable; a symbolic link stays
/// one and its target is replaced. Gives false on failure; the file is as it was then and no
/// temporary file is left.
bool replaceWholeFile(const std::string& path, std::string_view bytes);

} // namespace siblings
