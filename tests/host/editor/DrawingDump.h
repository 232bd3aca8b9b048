#pragma once

#include "database/AcDbDatabase.h"

#include <string>
#include <vector>

/// Every object of a drawing as a line of text: handle, class, owner, marks, geometry, extended
/// data, contents of tables and dictionaries; then the next handle and the current layer. Two
/// drawings with the same lines are the same in all that a file could hold.
std::vector<std::string> dumpOf(const AcDbDatabase& database);
