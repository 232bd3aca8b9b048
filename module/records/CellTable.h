#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "records/LargeVector.h"
#include "records/PlanBox.h"

namespace tkvlt {

/// The square cells of the plane, each with the first of its entries.
///
/// The table is as long as its owner wants, wherever in the plane the cells lie; cells that share a
/// place share its entries. Neighbouring cells mostly lie side by side in the table, since a search
/// asks for one place after the other.
class CellTable {
public:
    static constexpr int kNone = -1;

    /// The side of the smallest cells of which a query mostly needs one, and queries of places near
    /// one another the same or the next.
    /// @param usualQuery side of the square that is mostly asked for; one that is not finite and
    ///                   positive counts as 1.
    static double SideFor(double usualQuery);

    /// @param cellSize side of a cell; one that is not finite and positive counts as 1.
    /// @param places so many at least.
    CellTable(double cellSize, std::size_t places);

    std::size_t Places() const { return first_.size(); }
    std::size_t PlaceOf(double x, double y) const { return PlaceOf(CellNumber(x), CellNumber(y)); }
    /// The first entry at a place; `kNone` until the owner says otherwise.
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
        if (x1 < x0 || y1 < y0) {
            return; // however long the other side is
        }
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
    // Coordinates beyond this many cells share the outermost cell; a query is cut in the same way.
    static constexpr double kOutermostCell = 1e9;

    /// Cells lie side by side in blocks of eight by eight; the blocks are strewn over the table.
    static constexpr int kBlockBits = 3;
    static constexpr std::uint32_t kInBlock = (1U << kBlockBits) - 1;

    std::int32_t CellNumber(double coordinate) const {
        const double cell = coordinate * cellsPerUnit_;
        if (!(cell > -kOutermostCell && cell < kOutermostCell)) {
            return std::isnan(cell)
                       ? 0
                       : static_cast<std::int32_t>(std::copysign(kOutermostCell, cell));
        }
        // The conversion cuts towards zero; cells are numbered downwards.
        const auto number = static_cast<std::int32_t>(cell);
        return number - (static_cast<double>(number) > cell ? 1 : 0);
    }

    std::size_t PlaceOf(std::int32_t x, std::int32_t y) const {
        const auto blockX = static_cast<std::uint32_t>(x >> kBlockBits);
        const auto blockY = static_cast<std::uint32_t>(y >> kBlockBits);
        const std::uint64_t block =
            ((static_cast<std::uint64_t>(blockX) << 32) | blockY) * 0x9E3779B97F4A7C15ULL;
        const std::uint32_t inBlock = ((static_cast<std::uint32_t>(y) & kInBlock) << kBlockBits) |
                                      (static_cast<std::uint32_t>(x) & kInBlock);
        return ((block >> 32) + inBlock) & (first_.size() - 1);
    }

    double cellsPerUnit_;
    LargeVector<int> first_; // the length is a power of two
};

} // namespace tkvlt
