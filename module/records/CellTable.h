#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "records/PlanBox.h"

namespace tkvlt {

/// The square cells of the plane, each with the first entry of a chain.
///
/// Cells that hold something are mostly as many as the table has places, wherever in the plane they
/// lie; cells that share a place share its chain. Neighbouring cells mostly lie side by side in the
/// table, since a search asks for one place after the other.
class CellTable {
public:
    static constexpr int kNone = -1;

    /// @param cellSize side of a cell; one that is not finite and positive counts as 1.
    /// @param entries so many are expected.
    CellTable(double cellSize, std::size_t entries);

    std::size_t Places() const { return first_.size(); }
    std::size_t PlaceOf(double x, double y) const;
    /// The head of the chain at a place, `kNone` for an empty one.
    int& First(std::size_t place) { return first_[place]; }
    int First(std::size_t place) const { return first_[place]; }
    /// Empties the table and gives it twice as many places.
    void Double();

    /// Calls `visit` with each place that a corner in `box` may have, bounds included, now and then
    /// twice.
    template<class Visit>
    void ForEachPlace(const PlanBox& box, Visit visit) const {
        const std::int32_t x0 = CellNumber(box.minX);
        const std::int32_t x1 = CellNumber(box.maxX);
        const std::int32_t y0 = CellNumber(box.minY);
        const std::int32_t y1 = CellNumber(box.maxY);
        const double cells =
            (static_cast<double>(x1) - x0 + 1.0) * (static_cast<double>(y1) - y0 + 1.0);
        if (!(cells <= static_cast<double>(first_.size()))) {
            for (std::size_t place = 0; place < first_.size(); ++place) {
                visit(place);
            }
            return;
        }
        for (std::int32_t y = y0; y <= y1; ++y) {
            for (std::int32_t x = x0; x <= x1; ++x) {
                visit(PlaceOf(x, y));
            }
        }
    }

private:
    std::int32_t CellNumber(double coordinate) const;
    std::size_t PlaceOf(std::int32_t x, std::int32_t y) const;

    double cellsPerUnit_;
    std::vector<int> first_; // the length is a power of two
};

} // namespace tkvlt
