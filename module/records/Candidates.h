#pragma once

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "records/BoxTree.h"
#include "records/RecordPool.h"

namespace tkvlt {

/// Every index of a pool that is still present, in pool order.
template<class Record>
std::vector<int> AllPresent(const RecordPool<Record>& pool) {
    std::vector<int> indices;
    for (int i = 0; i < pool.Size(); ++i) {
        if (pool.Has(i)) {
            indices.push_back(i);
        }
    }
    return indices;
}

inline void SortUnique(std::vector<int>& indices) {
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
}

/// Those of `indices` that are still present, each once, in pool order.
template<class Record>
std::vector<int> PresentInOrder(std::vector<int> indices, const RecordPool<Record>& pool) {
    indices.erase(
        std::remove_if(indices.begin(), indices.end(), [&](int index) { return !pool.Has(index); }),
        indices.end());
    SortUnique(indices);
    return indices;
}

/// The items of a tree whose boxes overlap `box`, in no order.
inline std::vector<int> Collected(const BoxTree& tree, const PlanBox& box) {
    std::vector<int> items;
    tree.Collect(box, items);
    return items;
}

/// Indices by the id of an entity, of which one may have several.
class IdIndex {
public:
    void Add(const AcDbObjectId& id, int index) {
        if (2 * (count_ + 1) > places_.size()) {
            Lengthen();
        }
        Enter({id, index});
    }

    /// What was added under `id`, in increasing order.
    std::vector<int> Matches(const AcDbObjectId& id) const {
        std::vector<int> matches;
        if (places_.empty()) {
            return matches;
        }
        for (std::size_t at = PlaceOf(id); places_[at].index >= 0; at = Next(at)) {
            if (places_[at].id == id) {
                matches.push_back(places_[at].index);
            }
        }
        SortUnique(matches);
        return matches;
    }

private:
    struct Place {
        AcDbObjectId id;
        int index = -1; // free when negative
    };

    // The upper half of the hash is the better mixed one.
    std::size_t PlaceOf(const AcDbObjectId& id) const {
        return (std::hash<AcDbObjectId>{}(id) >> 32) & (places_.size() - 1);
    }
    std::size_t Next(std::size_t at) const { return (at + 1) & (places_.size() - 1); }

    void Enter(const Place& place) {
        std::size_t at = PlaceOf(place.id);
        while (places_[at].index >= 0) {
            at = Next(at);
        }
        places_[at] = place;
        ++count_;
    }

    void Lengthen() {
        constexpr std::size_t fewestPlaces = 64;
        const std::vector<Place> old = std::move(places_);
        places_.assign(old.empty() ? fewestPlaces : 2 * old.size(), {});
        count_ = 0;
        for (const Place& place : old) {
            if (place.index >= 0) {
                Enter(place);
            }
        }
    }

    std::vector<Place> places_; // the length is a power of two
    std::size_t count_ = 0;
};

/// Finds the entries of a pool by their entity. A search asks once or twice, which a scan answers;
/// a list of pipes asks often, and then the ids are sorted.
class EntryIndex {
public:
    /// The entries that stand for `id`, in pool order, those taken away included.
    template<class Record>
    std::vector<int> Matches(const RecordPool<Record>& pool, const AcDbObjectId& id) const {
        constexpr int scans = 4;
        std::vector<int> matches;
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
