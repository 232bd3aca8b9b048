#pragma once

#include <cstddef>
#include <cstdint>

#include "records/CellTable.h"
#include "records/FetchAhead.h"
#include "records/Indices.h"
#include "records/LargeVector.h"
#include "records/ToFloat.h"

namespace tkvlt {

/// Points in plan that are all known from the start and stay, by the square cell in which they lie.
///
/// Those of a cell lie side by side, with as much of their coordinates as a `float` holds: laying
/// them out takes a search that reads little else a good part of its time, and their memory is most
/// of that. An answer therefore may name points that miss the box by less than such rounding, two
/// parts in ten million of a coordinate, and beyond 3e38 any; it leaves out none that lies in the
/// box.
class SettledPoints {
public:
    /// Without points, so that no place tells where its own begin: each ends where it begins.
    SettledPoints() : table_(1.0, 0) {}
    /// Items 0 to `count` - 1. Linear.
    /// @param usualQuery side of the square that is mostly asked for; one that is not finite and
    ///                   positive counts as 1.
    /// @param pointOf gives the point of an item.
    template<class PointOf>
    SettledPoints(double usualQuery, std::size_t count, PointOf pointOf)
        : table_(1.0, 0), points_(count) {
        const LargeVector<std::uint32_t> places = PlacesOf(usualQuery, count, pointOf);
        // A counting sort by place: each place tells how many points there are, then where they
        // end, and in the end where they begin.
        int end = 0;
        for (std::size_t place = 0; place < table_.Places(); ++place) {
            end += CountAt(place);
            table_.First(place) = end;
        }
        for (std::size_t item = count; item-- > 0;) {
            const AcGePoint3d& point = pointOf(item);
            const int at = --table_.First(places[item]);
            points_[static_cast<std::size_t>(at)] = {ToFloat(point.x), ToFloat(point.y),
                                                     static_cast<int>(item)};
        }
    }

    /// Of the cells that suit these points.
    double CellSide() const { return cellSide_; }

    /// Fetches ahead what an answer for a small box around `point` looks at.
    void FetchAheadAt(const AcGePoint3d& point) const {
        const std::size_t begin = BeginOf(table_.PlaceOf(point.x, point.y));
        if (begin < points_.size()) {
            FetchAhead(points_[begin]);
        }
    }

    /// Appends the items whose points lie in `box`, bounds included, and perhaps some that miss it
    /// by rounding, in no order and now and then twice.
    void Collect(const PlanBox& box, Indices& items) const {
        // Rounding keeps order, so that a point of the box lies in the rounded box.
        const float minX = ToFloat(box.minX);
        const float minY = ToFloat(box.minY);
        const float maxX = ToFloat(box.maxX);
        const float maxY = ToFloat(box.maxY);
        table_.ForEachPlace(box, [&](std::size_t place) {
            const std::size_t end = EndOf(place);
            for (std::size_t at = BeginOf(place); at < end; ++at) {
                const Point& point = points_[at];
                // One branch, and of those that are nearly always left out: a branch for each bound
                // would go either way half the time.
                if (((minX <= point.x) & (point.x <= maxX) & (minY <= point.y) &
                     (point.y <= maxY)) != 0) {
                    items.push_back(point.item);
                }
            }
        });
    }

private:
    /// A few more points of a place cost an answer next to nothing, and a short table stays in the
    /// processor's cache while it is laid.
    static constexpr std::size_t kPointsPerPlace = 8;

    struct Point {
        float x;
        float y;
        int item;
    };

    /// The place of each item, in a table that tells how many there are at each: one of wide cells,
    /// of which those around a place lie side by side, unless they are crowded.
    template<class PointOf>
    LargeVector<std::uint32_t> PlacesOf(double usualQuery, std::size_t count, PointOf pointOf) {
        LargeVector<std::uint32_t> places(count);
        for (const double widening : {4.0, 2.0, 1.0}) {
            cellSide_ = widening * CellTable::SideFor(usualQuery);
            table_ = CellTable(cellSide_, count / kPointsPerPlace);
            for (std::size_t item = 0; item < count; ++item) {
                const AcGePoint3d& point = pointOf(item);
                places[item] = static_cast<std::uint32_t>(table_.PlaceOf(point.x, point.y));
                ++table_.First(places[item]);
            }
            if (!IsCrowded()) {
                break;
            }
        }
        return places;
    }

    /// Whether a query at the place of one of the points has many to look at, on average.
    bool IsCrowded() const {
        constexpr double many = 32.0;
        double points = 0.0;
        double lookedAt = 0.0;
        for (std::size_t place = 0; place < table_.Places(); ++place) {
            const double here = CountAt(place);
            points += here;
            lookedAt += here * here;
        }
        return lookedAt > many * points;
    }

    /// While the table tells how many points there are.
    int CountAt(std::size_t place) const { return table_.First(place) - CellTable::kNone; }

    std::size_t BeginOf(std::size_t place) const {
        return static_cast<std::size_t>(table_.First(place));
    }
    std::size_t EndOf(std::size_t place) const {
        return place + 1 < table_.Places() ? BeginOf(place + 1) : points_.size();
    }

    double cellSide_ = 1.0;
    CellTable table_; // where the points of each place begin
    LargeVector<Point> points_;
};

} // namespace tkvlt
