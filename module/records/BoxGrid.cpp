#include "records/BoxGrid.h"

#include <algorithm>
#include <cmath>

namespace tkvlt {

namespace {

// Coordinates beyond this many cells share the outermost cell; a query is cut in the same way.
constexpr double kOutermostCell = 1e9;

std::int32_t CellNumber(double coordinate, double cellSize) {
    const double cell = std::floor(coordinate / cellSize);
    return std::isnan(cell)
               ? 0
               : static_cast<std::int32_t>(std::clamp(cell, -kOutermostCell, kOutermostCell));
}

std::uint64_t CellKey(std::int32_t x, std::int32_t y) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32) |
           static_cast<std::uint32_t>(y);
}

template<class Entries>
void CollectOverlapping(const Entries& entries, const PlanBox& box, std::vector<int>& items) {
    for (const auto& entry : entries) {
        if (entry.box.Overlaps(box)) {
            items.push_back(entry.item);
        }
    }
}

} // namespace

BoxGrid::BoxGrid(double finestCell)
    : finestCell_(std::isfinite(finestCell) && finestCell > 0.0 ? finestCell : 1.0) {}

int BoxGrid::LevelOf(const PlanBox& box) const {
    const double side = std::max(box.maxX - box.minX, box.maxY - box.minY);
    constexpr int coarsest = 1000;
    if (!(side > finestCell_)) {
        return 0;
    }
    return std::isfinite(side / finestCell_) ? std::ilogb(side / finestCell_) + 1 : coarsest;
}

BoxGrid::Cell& BoxGrid::CellOf(const PlanBox& box) {
    const int number = LevelOf(box);
    Level& level = levels_[number];
    level.cellSize = std::ldexp(finestCell_, number);
    return level
        .cells[CellKey(CellNumber(box.minX, level.cellSize), CellNumber(box.minY, level.cellSize))];
}

void BoxGrid::Add(int item, const PlanBox& box) {
    CellOf(box).push_back({item, box});
}

void BoxGrid::Remove(int item, const PlanBox& box) {
    Cell& cell = CellOf(box);
    cell.erase(std::remove_if(cell.begin(), cell.end(),
                              [item](const Entry& entry) { return entry.item == item; }),
               cell.end());
}

void BoxGrid::Collect(const PlanBox& box, std::vector<int>& items) const {
    for (const auto& [number, level] : levels_) {
        const double size = level.cellSize;
        const std::int32_t x0 = CellNumber(box.minX - size, size);
        const std::int32_t x1 = CellNumber(box.maxX, size);
        const std::int32_t y0 = CellNumber(box.minY - size, size);
        const std::int32_t y1 = CellNumber(box.maxY, size);
        const double cellCount =
            (static_cast<double>(x1) - x0 + 1.0) * (static_cast<double>(y1) - y0 + 1.0);
        if (cellCount > static_cast<double>(level.cells.size())) {
            for (const auto& [key, cell] : level.cells) {
                CollectOverlapping(cell, box, items);
            }
            continue;
        }
        for (std::int32_t x = x0; x <= x1; ++x) {
            for (std::int32_t y = y0; y <= y1; ++y) {
                const auto found = level.cells.find(CellKey(x, y));
                if (found != level.cells.end()) {
                    CollectOverlapping(found->second, box, items);
                }
            }
        }
    }
}

} // namespace tkvlt
