#pragma once

#include <map>

#include "records/CellGrid.h"
#include "records/Indices.h"

namespace tkvlt {

/// Boxes in plan that come and go while a search runs.
///
/// Each box lies in a grid whose cells are at least as large as the box, by powers of two, under
/// the cell of its lower left corner; a query looks at the cells that can hold such a corner.
/// Adding and removing cost the same however many boxes there are.
class BoxGrid {
public:
    /// @param finestCell side of the smallest cells, of the size of a usual query; one that is not
    ///                   finite and positive counts as 1.
    explicit BoxGrid(double finestCell = 1.0);

    void Add(int item, const PlanBox& box);
    /// Removes an item that was added with this box.
    void Remove(int item, const PlanBox& box);
    /// Appends the items whose boxes overlap `box`, in no order and now and then twice.
    void Collect(const PlanBox& box, Indices& items) const;

private:
    struct PlacedBox : PlanBox {
        double CornerX() const { return minX; }
        double CornerY() const { return minY; }
        bool Meets(const PlanBox& box) const { return Overlaps(box); }
        bool operator==(const PlacedBox& other) const {
            return minX == other.minX && minY == other.minY && maxX == other.maxX &&
                   maxY == other.maxY;
        }
    };
    struct Level {
        double cellSize;
        CellGrid<PlacedBox> boxes;
    };

    int NumberOf(const PlanBox& box) const;
    Level& LevelOf(const PlanBox& box);

    double finestCell_;
    std::map<int, Level> levels_;
};

} // namespace tkvlt
