#pragma once

#include <string>
#include <string_view>

namespace siblings {

/// The path as this system spells it, UTF-8: the settings' paths are written with backslashes,
/// which separate on every system.
std::string nativePath(std::string path);

/// `folder` and `name` with one separator between them.
std::string joinPath(std::string_view folder, std::string_view name);

} // namespace siblings
