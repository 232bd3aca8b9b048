#pragma once

#include "records/PlanBox.h"
#include "records/ToFloat.h"

namespace tkvlt {

/// A box in plan as far as a `float` holds its coordinates, in half the memory. Rounding keeps
/// order, so that boxes that overlap do so when they are rounded, and now and then others too.
struct FloatBox {
    float minX;
    float minY;
    float maxX;
    float maxY;

    explicit FloatBox(const PlanBox& box)
        : minX(ToFloat(box.minX)), minY(ToFloat(box.minY)), maxX(ToFloat(box.maxX)),
          maxY(ToFloat(box.maxY)) {}

    bool Overlaps(const FloatBox& other) const {
        return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
    }
};

} // namespace tkvlt
