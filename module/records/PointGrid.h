#pragma once

#include "records/CellGrid.h"
#include "records/CellTable.h"
#include "records/Indices.h"

namespace tkvlt {

/// Points in plan that come and go, by the square cell in which they lie.
class PointGrid {
public:
    PointGrid() : PointGrid(1.0) {}
    /// Without points.
    /// @param usualQuery side of the square that is mostly asked for; one that is not finite and
    ///                   positive counts as 1.
    explicit PointGrid(double usualQuery) : PointGrid(Cells{CellTable::SideFor(usualQuery)}) {}
    /// Without points, with cells of this side.
    static PointGrid OfCells(double side) { return PointGrid(Cells{side}); }

    void Add(int item, const AcGePoint3d& point) { grid_.Add(item, {point.x, point.y}); }
    /// Removes an item that was added with this point.
    void Remove(int item, const AcGePoint3d& point) { grid_.Remove(item, {point.x, point.y}); }
    /// Appends the items whose points lie in `box`, bounds included, in no order and now
    /// and then twice.
    void Collect(const PlanBox& box, Indices& items) const { grid_.Collect(box, box, items); }

private:
    struct PlanPoint {
        double x;
        double y;

        double CornerX() const { return x; }
        double CornerY() const { return y; }
        bool Meets(const PlanBox& box) const {
            return box.minX <= x && x <= box.maxX && box.minY <= y && y <= box.maxY;
        }
        bool operator==(const PlanPoint& other) const { return x == other.x && y == other.y; }
    };

    struct Cells {
        double side;
    };

    explicit PointGrid(const Cells& cells) : grid_(cells.side) {}

    CellGrid<PlanPoint> grid_;
};

} // namespace tkvlt
