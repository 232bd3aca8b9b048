#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "records/CellGrid.h"
#include "records/Indices.h"

namespace tkvlt {

/// Points in plan, by the square cell in which they lie. The cells are some times as large as a
/// usual query.
class PointGrid {
public:
    PointGrid() : PointGrid(1.0) {}
    /// Without points.
    /// @param usualQuery side of the square that is mostly asked for; one that is not finite and
    ///                   positive counts as 1.
    explicit PointGrid(double usualQuery) : grid_(CellSize(usualQuery)) {}
    /// Items 0 to `count` - 1.
    /// @param pointOf gives the point of an item.
    template<class PointOf>
    PointGrid(double usualQuery, std::size_t count, PointOf pointOf)
        : grid_(CellSize(usualQuery), count, [&](std::size_t item) {
              const AcGePoint3d& point = pointOf(item);
              return PlanPoint{point.x, point.y};
          }) {}

    /// Item i is the i-th point.
    PointGrid(double usualQuery, const std::vector<AcGePoint3d>& points)
        : PointGrid(usualQuery, points.size(),
                    [&](std::size_t item) -> const AcGePoint3d& { return points[item]; }) {}

    void Add(int item, const AcGePoint3d& point) { grid_.Add(item, {point.x, point.y}); }
    /// Removes an item that was added with this point.
    void Remove(int item, const AcGePoint3d& point) { grid_.Remove(item, {point.x, point.y}); }
    /// Appends the items whose points lie in `box`, bounds included, in no order and now
    /// and then twice.
    void Collect(const PlanBox& box, Indices& items) const { grid_.Collect(box, box, items); }

private:
    static double CellSize(double usualQuery) {
        // Most queries then lie in one cell, and those of places near one another in the same or
        // the next.
        constexpr double queriesPerCell = 8.0;
        return queriesPerCell * (std::isfinite(usualQuery) && usualQuery > 0.0 ? usualQuery : 1.0);
    }

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

    CellGrid<PlanPoint> grid_;
};

} // namespace tkvlt
