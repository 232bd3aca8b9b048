#pragma once

#include <string>

namespace host {

/// The folder of the running program, UTF-8; the current one where the system does not tell.
std::string programFolder();

/// The settings folder that belongs to a program lying in `programFolder`: of
/// `../share/tkvlt/settings` and `settings` the first that exists, else the former.
std::string installedSettings(const std::string& programFolder);

} // namespace host
