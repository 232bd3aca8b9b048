#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Sets the folders in which the host looks first for a file that is named without a path, in
/// order, UTF-8. They hold for the process; an empty list takes the setting away.
void setSupportFolders(std::vector<std::string> folders);

/// Where the host finds a file, UTF-8; empty when there is none. In `name` a backslash separates
/// like a slash on every system. A name with a path is taken as it stands. One without is sought in
/// the folders of `setSupportFolders`, the folder `Support` of the one that the variable
/// `TKVLT_SYSTEM_PATH` names, `../share/tkvlt/support` as seen from the program's folder, and
/// `support` in that folder itself; never in the current folder.
std::string findSupportFile(std::wstring_view name);

} // namespace host
