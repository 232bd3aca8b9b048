#include "utilities/PelIsIdArrSame.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<AcDbObjectId> Sorted(const AcDbObjectIdArray& ids) {
    std::vector<AcDbObjectId> sorted;
    sorted.reserve(static_cast<std::size_t>(ids.length()));
    for (int i = 0; i < ids.length(); ++i) {
        sorted.push_back(ids.at(i));
    }
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

} // namespace

int PelIsIdArrSame(const AcDbObjectIdArray& a, const AcDbObjectIdArray& b) {
    if (a.length() != b.length()) {
        return 0;
    }
    return Sorted(a) == Sorted(b) ? 1 : 0;
}
