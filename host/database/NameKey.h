#pragma once

#include <string>

namespace host_db {

/// The form of a name under which tables keep it: names that differ in case alone have one key.
std::wstring nameKey(const wchar_t* name);

} // namespace host_db
