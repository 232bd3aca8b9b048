#include "records/BoxGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tkvlt {

namespace {

/// The number of the level of boxes without bounds, which may have their corner anywhere.
constexpr int kBoundless = std::numeric_limits<int>::max();

} // namespace

BoxGrid::BoxGrid(double finestCell)
    : finestCell_(std::isfinite(finestCell) && finestCell > 0.0 ? finestCell : 1.0) {}

int BoxGrid::NumberOf(const PlanBox& box) const {
    const double side = box.LongerSide();
    if (!(side > finestCell_)) {
        return 0;
    }
    return std::isfinite(side / finestCell_) ? std::ilogb(side / finestCell_) + 1 : kBoundless;
}

BoxGrid::Level& BoxGrid::LevelOf(const PlanBox& box) {
    const int number = NumberOf(box);
    const auto known = levels_.find(number);
    if (known != levels_.end()) {
        return known->second;
    }
    const double cellSize = std::ldexp(finestCell_, number);
    return levels_.emplace(number, Level{cellSize, CellGrid<PlacedBox>(cellSize)}).first->second;
}

void BoxGrid::Add(int item, const PlanBox& box) {
    LevelOf(box).boxes.Add(item, {box});
}

void BoxGrid::Remove(int item, const PlanBox& box) {
    LevelOf(box).boxes.Remove(item, {box});
}

void BoxGrid::Collect(const PlanBox& box, Indices& items) const {
    for (const auto& [number, level] : levels_) {
        const PlanBox widened = box.Widened(level.cellSize);
        const PlanBox corners{widened.minX, widened.minY, box.maxX, box.maxY};
        level.boxes.Collect(box, number == kBoundless ? PlanBox::Everywhere() : corners, items);
    }
}

} // namespace tkvlt
