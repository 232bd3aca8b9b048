#pragma once

#include <string>
#include <vector>

namespace pipenet {

/// Writes what a person should know about an import or export to standard error, a line each. Of
/// many the first ones and how many there are more.
void printNotes(const std::vector<std::string>& notes);

} // namespace pipenet
