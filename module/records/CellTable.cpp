#include "records/CellTable.h"

namespace tkvlt {

namespace {

constexpr std::size_t kFewestPlaces = 64;

} // namespace

double CellTable::SideFor(double usualQuery) {
    constexpr double queriesPerCell = 8.0;
    return queriesPerCell * (std::isfinite(usualQuery) && usualQuery > 0.0 ? usualQuery : 1.0);
}

CellTable::CellTable(double cellSize, std::size_t places)
    : cellsPerUnit_(1.0 / (std::isfinite(cellSize) && cellSize > 0.0 ? cellSize : 1.0)) {
    std::size_t length = kFewestPlaces;
    while (length < places) {
        length *= 2;
    }
    first_.assign(length, kNone);
}

void CellTable::Double() {
    first_.assign(2 * first_.size(), kNone);
}

} // namespace tkvlt
