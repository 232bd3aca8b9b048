#include "records/CellTable.h"

#include <cmath>

namespace tkvlt {

namespace {

// Coordinates beyond this many cells share the outermost cell; a query is cut in the same way.
constexpr double kOutermostCell = 1e9;
constexpr std::size_t kFewestPlaces = 64;

/// Cells lie side by side in blocks of eight by eight; the blocks are strewn over the table.
constexpr int kBlockBits = 3;
constexpr std::uint32_t kInBlock = (1U << kBlockBits) - 1;

} // namespace

CellTable::CellTable(double cellSize, std::size_t entries)
    : cellsPerUnit_(1.0 / (std::isfinite(cellSize) && cellSize > 0.0 ? cellSize : 1.0)) {
    std::size_t places = kFewestPlaces;
    while (places < entries) {
        places *= 2;
    }
    first_.assign(places, kNone);
}

std::int32_t CellTable::CellNumber(double coordinate) const {
    const double cell = coordinate * cellsPerUnit_;
    if (!(cell > -kOutermostCell && cell < kOutermostCell)) {
        return std::isnan(cell) ? 0
                                : static_cast<std::int32_t>(std::copysign(kOutermostCell, cell));
    }
    // The conversion cuts towards zero; cells are numbered downwards.
    const auto number = static_cast<std::int32_t>(cell);
    return number - (static_cast<double>(number) > cell ? 1 : 0);
}

std::size_t CellTable::PlaceOf(std::int32_t x, std::int32_t y) const {
    const auto blockX = static_cast<std::uint32_t>(x >> kBlockBits);
    const auto blockY = static_cast<std::uint32_t>(y >> kBlockBits);
    const std::uint64_t block =
        ((static_cast<std::uint64_t>(blockX) << 32) | blockY) * 0x9E3779B97F4A7C15ULL;
    const std::uint32_t inBlock = ((static_cast<std::uint32_t>(y) & kInBlock) << kBlockBits) |
                                  (static_cast<std::uint32_t>(x) & kInBlock);
    return ((block >> 32) + inBlock) & (first_.size() - 1);
}

std::size_t CellTable::PlaceOf(double x, double y) const {
    return PlaceOf(CellNumber(x), CellNumber(y));
}

void CellTable::Double() {
    first_.assign(2 * first_.size(), kNone);
}

} // namespace tkvlt
