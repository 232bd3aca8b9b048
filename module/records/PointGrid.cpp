#include "records/PointGrid.h"

#include <cmath>

namespace tkvlt {

namespace {

/// A cell has this many times the side of a query: most queries then lie in one cell, and those of
/// places near one another in the same or the next.
constexpr double kQueriesPerCell = 8.0;

} // namespace

PointGrid::PointGrid(double usualQuery, const std::vector<AcGePoint3d>& points)
    : grid_(kQueriesPerCell * (std::isfinite(usualQuery) && usualQuery > 0.0 ? usualQuery : 1.0),
            points.size(), [&](std::size_t item) {
                return PlanPoint{points[item].x, points[item].y};
            }) {}

} // namespace tkvlt
