#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "records/BoxGrid.h"
#include "records/BoxTree.h"
#include "records/FetchAhead.h"
#include "records/FloatBox.h"
#include "records/Indices.h"
#include "records/LargeVector.h"
#include "records/PlanBox.h"

namespace tkvlt {

/// Boxes in plan that are all known in the beginning, the wholes, and the parts that they are cut
/// into, which may be cut again. Items are numbered in the order in which they come.
///
/// Which wholes come near one another is found once, from one to the next as they lie in the plane,
/// so that what is read for one mostly serves the next. A part mostly lies where its whole does:
/// what it comes near is among the wholes near that one and their parts, which those keep. Wholes
/// that many others come near have no such list, and there parts are found by their place, as are
/// parts that lie elsewhere and those of a whole that has many; mostly there are none.
class PartedBoxes {
public:
    PartedBoxes() = default;
    /// @param wholes item i is the i-th box.
    /// @param reach boxes come near one another when they are no farther apart in x and in y.
    ///              At least 0; one that is not a number counts as boundless.
    /// @param finestCell of the grid of parts; see `BoxGrid`.
    PartedBoxes(const std::vector<PlanBox>& wholes, double reach, double finestCell);

    /// The whole that an item is part of; a whole is its own.
    int WholeOf(int item) const {
        return item < wholes_ ? item : parts_[static_cast<std::size_t>(item - wholes_)].whole;
    }
    /// The next item is a part.
    /// @param whole not a part itself.
    /// @param wholeBox the box that the whole was given with.
    void AddPart(int whole, const PlanBox& wholeBox, const PlanBox& box);
    /// Takes a part away that was added with this box.
    void RemovePart(int part, const PlanBox& box);

    /// Appends the items behind `item` that come near it, and perhaps others, in no order and now
    /// and then twice. No whole stands behind a part. Wholes are found whether they have been cut
    /// or not.
    /// @param box the one that the item was given with.
    void CollectLater(int item, const PlanBox& box, Indices& items) const;

    /// Fetches ahead what `CollectLater` mostly needs for the items behind `item`, when it is asked
    /// for one after the other, and calls `fetch` with items that it may find.
    template<class Fetch>
    void FetchAheadOf(int item, Fetch fetch) const {
        // What is fetched at one distance tells where to fetch at the next.
        constexpr int farthest = 12;
        constexpr int farther = 8;
        constexpr int nearer = 4;
        constexpr int nearest = 2;
        if (item + farthest >= Size()) {
            return;
        }
        FetchAhead(ListOf(item + farthest));
        const NearList& list = ListOf(item + farther);
        if (list.count > 0) {
            FetchAhead(near_[list.first]);
        }
        ForEachNear(ListOf(item + nearer), [&](int whole) {
            FetchAhead(firstPart_[static_cast<std::size_t>(whole)]);
            if (whole > item) {
                fetch(whole);
            }
        });
        ForEachNear(ListOf(item + nearest), [&](int whole) {
            const int part = firstPart_[static_cast<std::size_t>(whole)];
            if (part != kNone) {
                FetchAhead(PartAt(part));
                fetch(part);
            }
        });
    }

private:
    static constexpr int kNone = -1;
    /// A whole that more than these come near, itself included, has no list.
    static constexpr std::size_t kMostNear = 32;
    /// A whole keeps so many parts.
    static constexpr int kMostParts = 16;

    /// Where in `near_` the wholes near one stand, that one among them.
    struct NearList {
        std::uint32_t first = 0;
        int count = kNone; // `kNone` where there is no list
    };
    struct Part {
        FloatBox box;
        int whole;
        int next = kNone;         // that its whole keeps; `kNone` for the last
        bool isWithin = false;    // does not leave its whole by more than the reach
        bool isKept = false;      // by its whole
        bool hasItsPlace = false; // in `byPlace_`
    };

    int Size() const { return wholes_ + static_cast<int>(parts_.size()); }
    const Part& PartAt(int item) const { return parts_[static_cast<std::size_t>(item - wholes_)]; }
    Part& PartAt(int item) { return parts_[static_cast<std::size_t>(item - wholes_)]; }
    const NearList& ListOf(int item) const {
        return lists_[static_cast<std::size_t>(WholeOf(item))];
    }
    bool IsListed(int whole) const {
        return lists_[static_cast<std::size_t>(whole)].count != kNone;
    }
    void ListNear(const std::vector<PlanBox>& wholes);
    void NoteNearUnlisted();
    bool IsWithin(const PlanBox& box, const PlanBox& whole) const;
    bool HasRoom(int whole) const;
    void CollectKept(int whole, int item, const FloatBox& reached, Indices& items) const;
    void CollectListed(int item, const PlanBox& reached, Indices& items) const;
    void CollectKeptAround(int item, const PlanBox& reached, Indices& items) const;

    template<class Visit>
    void ForEachNear(const NearList& list, Visit visit) const {
        for (int i = 0; i < list.count; ++i) {
            visit(near_[list.first + static_cast<std::size_t>(i)]);
        }
    }

    int wholes_ = 0;
    double reach_ = 0.0;
    BoxTree tree_;
    LargeVector<NearList> lists_; // by whole
    LargeVector<int> near_;
    LargeVector<int> firstPart_;       // by whole, the first that it keeps
    std::vector<bool> isNearUnlisted_; // by whole; empty when all have lists
    LargeVector<Part> parts_;
    BoxGrid byPlace_;
};

} // namespace tkvlt
