#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "platform.h"
#include "records/FetchAhead.h"
#include "records/Indices.h"
#include "records/LargeVector.h"

namespace tkvlt {

/// Indices by the id of an entity, of which one may have several.
class IdIndex {
public:
    void Add(const AcDbObjectId& id, int index) {
        entries_.push_back({id, index});
        if (2 * entries_.size() > places_.size()) {
            Lengthen();
        } else {
            Enter(entries_.size() - 1);
        }
    }

    /// What was added under `id`, each index once, in increasing order.
    Indices Matches(const AcDbObjectId& id) const {
        Indices matches;
        if (places_.empty()) {
            return matches;
        }
        const std::uint64_t hash = std::hash<AcDbObjectId>{}(id);
        for (std::size_t at = PlaceOf(hash); places_[at].number != kFree; at = Next(at)) {
            if (places_[at].tag == TagOf(hash) && entries_[places_[at].number - 1].id == id) {
                matches.push_back(entries_[places_[at].number - 1].index);
            }
        }
        matches.SortUnique();
        return matches;
    }

    /// Fetches ahead what `Matches` looks at first.
    void FetchAheadOf(const AcDbObjectId& id) const {
        if (!places_.empty()) {
            FetchAhead(places_[PlaceOf(std::hash<AcDbObjectId>{}(id))]);
        }
    }

private:
    struct Entry {
        AcDbObjectId id;
        int index;
    };

    /// The tag spares a look at the entries of others: those lie anywhere.
    struct Place {
        std::uint32_t tag;
        std::uint32_t number; // of the entry, from 1 on
    };

    static constexpr std::uint32_t kFree = 0;

    // The upper half of the hash is the better mixed one.
    std::size_t PlaceOf(std::uint64_t hash) const {
        constexpr int half = 32;
        return (hash >> half) & (places_.size() - 1);
    }
    static std::uint32_t TagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash); }
    std::size_t Next(std::size_t at) const { return (at + 1) & (places_.size() - 1); }

    void Enter(std::size_t entry) {
        const std::uint64_t hash = std::hash<AcDbObjectId>{}(entries_[entry].id);
        std::size_t at = PlaceOf(hash);
        while (places_[at].number != kFree) {
            at = Next(at);
        }
        places_[at] = {TagOf(hash), static_cast<std::uint32_t>(entry + 1)};
    }

    void Lengthen() {
        constexpr std::size_t fewestPlaces = 64;
        places_.assign(std::max(fewestPlaces, 2 * places_.size()), {0, kFree});
        for (std::size_t entry = 0; entry < entries_.size(); ++entry) {
            Enter(entry);
        }
    }

    LargeVector<Entry> entries_; // in the order in which they were added
    LargeVector<Place> places_;  // the length is a power of two
};

} // namespace tkvlt
