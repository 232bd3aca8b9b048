#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "records/BoxTree.h"
#include "records/Indices.h"
#include "records/RecordPool.h"

namespace tkvlt {

/// 0 to `count` - 1.
inline Indices FirstIndices(int count) {
    Indices indices;
    for (int i = 0; i < count; ++i) {
        indices.push_back(i);
    }
    return indices;
}

/// Every index of a pool from `first` on that is still present, in pool order.
template<class Record>
Indices AllPresent(const RecordPool<Record>& pool, int first = 0) {
    Indices indices;
    for (int i = first; i < pool.Size(); ++i) {
        if (pool.Has(i)) {
            indices.push_back(i);
        }
    }
    return indices;
}

/// Leaves those that are still present, each once, in pool order.
template<class Record>
void KeepPresent(Indices& indices, const RecordPool<Record>& pool) {
    indices.EraseIf([&](int index) { return !pool.Has(index); });
    indices.SortUnique();
}

/// The items of a tree whose boxes overlap `box`, in no order.
inline Indices Collected(const BoxTree& tree, const PlanBox& box) {
    Indices items;
    tree.Collect(box, items);
    return items;
}

/// Finds the entries of a pool by their entity. A search asks once or twice, which a scan answers;
/// a list of pipes asks often, and then the ids are sorted.
class EntryIndex {
public:
    /// The entries that stand for `id`, in pool order, those taken away included.
    template<class Record>
    Indices Matches(const RecordPool<Record>& pool, const AcDbObjectId& id) const {
        constexpr int scans = 4;
        Indices matches;
        if (++questions_ <= scans) {
            for (int i = 0; i < pool.Size(); ++i) {
                if (pool.IdOf(i) == id) {
                    matches.push_back(i);
                }
            }
            return matches;
        }
        if (sorted_.empty()) {
            for (int i = 0; i < pool.Size(); ++i) {
                sorted_.emplace_back(pool.IdOf(i), i);
            }
            std::sort(sorted_.begin(), sorted_.end());
        }
        for (auto it = std::lower_bound(sorted_.begin(), sorted_.end(), std::make_pair(id, 0));
             it != sorted_.end() && it->first == id; ++it) {
            matches.push_back(it->second);
        }
        return matches;
    }

private:
    mutable int questions_ = 0;
    mutable std::vector<std::pair<AcDbObjectId, int>> sorted_;
};

} // namespace tkvlt
