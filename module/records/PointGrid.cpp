#include "records/PointGrid.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tkvlt {

namespace {

// Coordinates beyond this many cells share the outermost cell; a query is cut in the same way.
constexpr double kOutermostCell = 1e9;
constexpr std::size_t kFewestPlaces = 64;

/// A cell has this many times the side of a query: most queries then lie in one cell, and those of
/// places near one another in the same or the next.
constexpr double kQueriesPerCell = 8.0;

/// Cells lie side by side in blocks of eight by eight; the blocks are strewn over the table.
constexpr int kBlockBits = 3;
constexpr std::uint32_t kInBlock = (1U << kBlockBits) - 1;

bool Holds(const PlanBox& box, double x, double y) {
    return box.minX <= x && x <= box.maxX && box.minY <= y && y <= box.maxY;
}

} // namespace

PointGrid::PointGrid(double usualQuery, const std::vector<AcGePoint3d>& points)
    : cellSize_(kQueriesPerCell *
                (std::isfinite(usualQuery) && usualQuery > 0.0 ? usualQuery : 1.0)) {
    std::size_t places = kFewestPlaces;
    while (places < points.size()) {
        places *= 2;
    }
    first_.assign(places, -1);
    entries_.reserve(points.size());
    // A counting sort by place: how many there are in those before, then one after the other.
    std::vector<int> end(places + 1, 0);
    for (const AcGePoint3d& point : points) {
        ++end[PlaceOf(point) + 1];
    }
    std::partial_sum(end.begin(), end.end(), end.begin());
    entries_.resize(points.size());
    for (std::size_t item = 0; item < points.size(); ++item) {
        const std::size_t place = PlaceOf(points[item]);
        const int at = end[place]++;
        entries_[static_cast<std::size_t>(at)] = {points[item].x, points[item].y,
                                                  static_cast<int>(item), first_[place]};
        first_[place] = at;
    }
}

std::int32_t PointGrid::CellNumber(double coordinate) const {
    const double cell = std::floor(coordinate / cellSize_);
    return std::isnan(cell)
               ? 0
               : static_cast<std::int32_t>(std::clamp(cell, -kOutermostCell, kOutermostCell));
}

std::size_t PointGrid::PlaceOf(std::int32_t x, std::int32_t y) const {
    const auto blockX = static_cast<std::uint32_t>(x >> kBlockBits);
    const auto blockY = static_cast<std::uint32_t>(y >> kBlockBits);
    const std::uint64_t block =
        ((static_cast<std::uint64_t>(blockX) << 32) | blockY) * 0x9E3779B97F4A7C15ULL;
    const std::uint32_t inBlock = ((static_cast<std::uint32_t>(y) & kInBlock) << kBlockBits) |
                                  (static_cast<std::uint32_t>(x) & kInBlock);
    return ((block >> 32) + inBlock) & (first_.size() - 1);
}

std::size_t PointGrid::PlaceOf(const AcGePoint3d& point) const {
    return PlaceOf(CellNumber(point.x), CellNumber(point.y));
}

/// Makes the table longer when it has become full.
void PointGrid::Lengthen(std::size_t places) {
    first_.assign(places, -1);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        Entry& entry = entries_[i];
        if (entry.item < 0) {
            continue; // was removed
        }
        const std::size_t place = PlaceOf(CellNumber(entry.x), CellNumber(entry.y));
        entry.next = first_[place];
        first_[place] = static_cast<int>(i);
    }
}

void PointGrid::Add(int item, const AcGePoint3d& point) {
    if (entries_.size() >= first_.size()) {
        Lengthen(2 * first_.size());
    }
    const std::size_t place = PlaceOf(point);
    entries_.push_back({point.x, point.y, item, first_[place]});
    first_[place] = static_cast<int>(entries_.size()) - 1;
}

void PointGrid::Remove(int item, const AcGePoint3d& point) {
    int* link = &first_[PlaceOf(point)];
    while (*link >= 0) {
        Entry& entry = entries_[static_cast<std::size_t>(*link)];
        if (entry.item == item && entry.x == point.x && entry.y == point.y) {
            *link = entry.next;
            entry.item = -1;
            return;
        }
        link = &entry.next;
    }
}

void PointGrid::CollectPlace(std::size_t place, const PlanBox& box, std::vector<int>& items) const {
    for (int at = first_[place]; at >= 0;) {
        const Entry& entry = entries_[static_cast<std::size_t>(at)];
        if (Holds(box, entry.x, entry.y)) {
            items.push_back(entry.item);
        }
        at = entry.next;
    }
}

void PointGrid::Collect(const PlanBox& box, std::vector<int>& items) const {
    const std::int32_t x0 = CellNumber(box.minX);
    const std::int32_t x1 = CellNumber(box.maxX);
    const std::int32_t y0 = CellNumber(box.minY);
    const std::int32_t y1 = CellNumber(box.maxY);
    const double cells =
        (static_cast<double>(x1) - x0 + 1.0) * (static_cast<double>(y1) - y0 + 1.0);
    if (!(cells <= static_cast<double>(first_.size()))) {
        for (std::size_t place = 0; place < first_.size(); ++place) {
            CollectPlace(place, box, items);
        }
        return;
    }
    for (std::int32_t y = y0; y <= y1; ++y) {
        for (std::int32_t x = x0; x <= x1; ++x) {
            CollectPlace(PlaceOf(x, y), box, items);
        }
    }
}

} // namespace tkvlt
