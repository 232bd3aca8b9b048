#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Sets the folders in which the host looks first for a file that is named without a path, in
/// order, UTF-8. They hold for the process; an empty list takes the setting away.
void setSupportFolders(std::vector<std::string> folders);

/// All folders in which support files are sought, in order, UTF-8; not all of them need be there.
/// First those of `setSupportFolders`; without any, the folder `Support` of the one that the
/// variable `TKVLT_SYSTEM_PATH` names; without that too, the folder `Support` of
/// host::installedSettings. Then `../share/tkvlt/support` as seen from the program's folder, and
/// `support` in that folder itself. On any thread.
std::vector<std::string> supportFolders();

/// A number that is another one whenever `supportFolders` may have changed. On any thread.
std::uint64_t supportFoldersVersion();

/// Where the host finds a file, UTF-8; empty when there is none. In `name` a backslash separates
/// like a slash on every system. A name without a path is sought in `supportFolders`, never in the
/// current folder; one with a path in that path alone, whose folders are taken as they stand. The
/// file's own name is found in any case: of several in one folder the one spelled alike, else the
/// first of them in the order of their bytes. Costs a walk through each folder that lacks the name
/// as it is spelled.
std::string findSupportFile(std::wstring_view name);

} // namespace host
