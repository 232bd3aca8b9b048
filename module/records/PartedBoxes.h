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
/// what it comes near is among the wholes near that one and their parts, and no place need be
/// looked up. Parts that lie elsewhere and those of a whole that has many are kept by their place.
class PartedBoxes {
public:
    PartedBoxes() = default;
    /// @param wholes item i is the i-th box.
    /// @param reach boxes come near one another when they are no farther apart in x and in y.
    /// @param crowd side of the cells in which parts are kept by their place; see `BoxGrid`.
    PartedBoxes(const std::vector<PlanBox>& wholes, double reach, double crowd);

    /// The whole that an item is part of; a whole is its own.
    int WholeOf(int item) const {
        return item < wholes_ ? item : parts_[static_cast<std::size_t>(item - wholes_)].whole;
    }
    /// The next item is a part of `whole`, whose own box is `wholeBox`.
    void AddPart(int whole, const PlanBox& wholeBox, const PlanBox& box);
    /// Takes a part away that was added with this box.
    void RemovePart(int part, const PlanBox& box);

    /// Appends the items behind `item` that come near its box, and perhaps others, in no order and
    /// now and then twice. No whole stands behind a part. Wholes are found whether they have been
    /// cut or not.
    void CollectLater(int item, const PlanBox& box, Indices& items) const;

    /// Fetches ahead what `CollectLater` will need for the items behind `item`, when it is asked
    /// for one after the other, and calls `fetch` with what it is going to find.
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
    /// A whole that comes near more than these has no list.
    static constexpr std::size_t kMostNear = 32;
    /// A whole keeps so many parts; further ones are kept by their place.
    static constexpr int kMostParts = 16;

    /// Where in `near_` the wholes near one stand.
    struct NearList {
        std::uint32_t first = 0;
        int count = kNone;
    };
    struct Part {
        FloatBox box;
        int whole;
        int next; // that its whole keeps; `kNone` for the last
        bool isKept;
    };

    int Size() const { return wholes_ + static_cast<int>(parts_.size()); }
    const Part& PartAt(int item) const { return parts_[static_cast<std::size_t>(item - wholes_)]; }
    Part& PartAt(int item) { return parts_[static_cast<std::size_t>(item - wholes_)]; }
    const NearList& ListOf(int item) const {
        return lists_[static_cast<std::size_t>(WholeOf(item))];
    }
    bool IsListed(int item) const;
    void ListNear(const std::vector<PlanBox>& wholes);
    bool IsWithin(const PlanBox& box, const PlanBox& whole) const;
    bool HasRoom(int whole) const;

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
    LargeVector<int> firstPart_; // by whole, the first that it keeps
    LargeVector<Part> parts_;
    BoxGrid strewn_;
};

} // namespace tkvlt
