#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "records/PlanBox.h"

namespace tkvlt {

/// Points in plan, by the square cell in which they lie.
///
/// The cells are some times as large as a usual query and kept in a table that is about as long as
/// there are points, so an answer costs what lies around the place that is asked for, however the
/// points are spread over the plane. Neighbouring cells mostly lie side by side in the table, and
/// the points that are known from the start lie in the order of their cells, since a search asks
/// for one place after the other.
class PointGrid {
public:
    PointGrid() : PointGrid(1.0, {}) {}
    /// Item i is the i-th point.
    /// @param usualQuery side of the square that is mostly asked for; one that is not finite and
    ///                   positive counts as 1.
    PointGrid(double usualQuery, const std::vector<AcGePoint3d>& points);

    void Add(int item, const AcGePoint3d& point);
    /// Removes an item that was added with this point.
    void Remove(int item, const AcGePoint3d& point);
    /// Appends the items whose points lie in `box`, bounds included, in no order and now
    /// and then twice.
    void Collect(const PlanBox& box, std::vector<int>& items) const;

private:
    struct Entry {
        double x;
        double y;
        int item;
        int next; // in the same place of the table; -1 for none
    };

    std::int32_t CellNumber(double coordinate) const;
    std::size_t PlaceOf(std::int32_t x, std::int32_t y) const;
    std::size_t PlaceOf(const AcGePoint3d& point) const;
    void Lengthen(std::size_t places);
    void CollectPlace(std::size_t place, const PlanBox& box, std::vector<int>& items) const;

    double cellSize_;
    std::vector<int> first_; // the first entry of each place; the length is a power of two
    std::vector<Entry> entries_;
};

} // namespace tkvlt
