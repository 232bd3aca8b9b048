#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

#include "platform.h"
#include "records/Indices.h"
#include "records/LargeVector.h"

namespace tkvlt {

/// Indices by the id of an entity, of which one may have several.
class IdIndex {
public:
    /// @param index not negative.
    void Add(const AcDbObjectId& id, int index) {
        if (2 * (count_ + 1) > places_.size()) {
            Lengthen();
        }
        Enter({id, index});
    }

    /// What was added under `id`, each index once, in increasing order.
    Indices Matches(const AcDbObjectId& id) const {
        Indices matches;
        if (places_.empty()) {
            return matches;
        }
        for (std::size_t at = PlaceOf(id); places_[at].index >= 0; at = Next(at)) {
            if (places_[at].id == id) {
                matches.push_back(places_[at].index);
            }
        }
        matches.SortUnique();
        return matches;
    }

private:
    struct Place {
        AcDbObjectId id;
        int index = -1; // free when negative
    };

    // The upper half of the hash is the better mixed one.
    std::size_t PlaceOf(const AcDbObjectId& id) const {
        constexpr int half = 32;
        return (std::uint64_t{std::hash<AcDbObjectId>{}(id)} >> half) & (places_.size() - 1);
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
        LargeVector<Place> old(places_.empty() ? fewestPlaces : 2 * places_.size());
        old.swap(places_);
        count_ = 0;
        for (const Place& place : old) {
            if (place.index >= 0) {
                Enter(place);
            }
        }
    }

    LargeVector<Place> places_; // the length is a power of two
    std::size_t count_ = 0;
};

} // namespace tkvlt
