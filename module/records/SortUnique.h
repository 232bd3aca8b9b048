#pragma once

#include <algorithm>
#include <vector>

namespace tkvlt {

/// Puts the indices into increasing order, each once.
inline void SortUnique(std::vector<int>& indices) {
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
}

} // namespace tkvlt
