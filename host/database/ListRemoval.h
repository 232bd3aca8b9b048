#pragma once

#include "database/AcDbObjectId.h"

#include <algorithm>
#include <vector>

namespace host_db {

/// Takes the last entry with this id out of a list; what was entered late is found at once.
inline void eraseLast(std::vector<AcDbObjectId>& ids, AcDbObjectId id) {
    const auto last = std::find(ids.rbegin(), ids.rend(), id);
    if (last != ids.rend()) {
        ids.erase(std::next(last).base());
    }
}

} // namespace host_db
