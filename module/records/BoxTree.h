#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "records/FetchAhead.h"
#include "records/Indices.h"
#include "records/LargeVector.h"
#include "records/PlanBox.h"

namespace tkvlt {

/// A packed tree over boxes in plan that are all known when it is built.
///
/// The boxes are sorted into vertical strips and, within a strip, by height; every sixteen
/// neighbours share a box one level up (sort-tile-recursive packing, Leutenegger, Lopez and
/// Edgington 1997). Building is linear, a query costs log n plus what it finds.
///
/// Boxes are kept as far as a `float` holds their coordinates, which halves what a query reads. An
/// answer therefore may name boxes that miss the one asked for by less than such rounding, two
/// parts in ten million of a coordinate, and beyond 3e38 any; it leaves out none that overlaps.
class BoxTree {
public:
    BoxTree() = default;
    /// Item i is the i-th box.
    explicit BoxTree(const std::vector<PlanBox>& boxes);

    /// All items, in an order in which those stand near one another that lie so.
    const LargeVector<int>& Items() const { return items_; }
    /// Appends the items whose boxes overlap `box`, and perhaps some that miss it by rounding, in
    /// no order.
    void Collect(const PlanBox& box, Indices& items) const;

private:
    /// So many neighbours share a box of the level above.
    static constexpr std::size_t kFanOut = 16;

    /// The boxes of neighbours, coordinate by coordinate, so that all are compared at once.
    struct alignas(kCacheLine) Node {
        std::array<float, kFanOut> minX;
        std::array<float, kFanOut> minY;
        std::array<float, kFanOut> maxX;
        std::array<float, kFanOut> maxY;

        /// Of boxes that overlap none.
        Node();
        void Set(std::size_t at, const PlanBox& box);
    };

    /// Adds the level of these boxes and gives what its nodes hold together.
    std::vector<PlanBox> AddLevel(const std::vector<PlanBox>& boxes);

    LargeVector<int> items_;                // leaf order
    std::vector<LargeVector<Node>> levels_; // levels_[0] are the items' own boxes
};

} // namespace tkvlt
