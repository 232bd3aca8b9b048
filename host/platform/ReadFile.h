#pragma once

#include <optional>
#include <string>

namespace host {

/// The bytes of a file, `path` in UTF-8; nothing when it cannot be opened or read to its end.
std::optional<std::string> readFile(const std::string& path);

} // namespace host
