#pragma once

#include <cstddef>
#include <vector>

#include "records/Indices.h"
#include "records/LargeVector.h"
#include "records/PlanBox.h"

namespace tkvlt {

/// A packed tree over boxes in plan that are all known when it is built.
///
/// The boxes are sorted into vertical strips and, within a strip, by height; every sixteen
/// neighbours share a box one level up (sort-tile-recursive packing, Leutenegger, Lopez and
/// Edgington 1997). Building is linear, a query costs log n plus what it finds.
class BoxTree {
public:
    BoxTree() = default;
    /// Item i is the i-th box.
    explicit BoxTree(const std::vector<PlanBox>& boxes);

    /// Appends the items whose boxes overlap `box`, in no order.
    void Collect(const PlanBox& box, Indices& items) const;

private:
    void AddLevel(const LargeVector<PlanBox>& children);

    LargeVector<int> items_;                   // leaf order
    std::vector<LargeVector<PlanBox>> levels_; // levels_[0] are the items' own boxes
};

} // namespace tkvlt
