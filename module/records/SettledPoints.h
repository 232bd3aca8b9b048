#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "records/CellTable.h"
#include "records/Indices.h"
#include "records/LargeVector.h"

namespace tkvlt {

/// Points in plan that are all known from the start and stay, by the square cell in which they lie.
///
/// Those of a cell lie side by side, with as much of their coordinates as a `float` holds: laying
/// them out takes a search that reads little else a good part of its time, and their memory is most
/// of that. An answer therefore may name points that miss the box by less than such rounding, two
/// parts in ten million of a coordinate; it leaves out none that lies in the box.
class SettledPoints {
public:
    SettledPoints() : table_(1.0, 0) {}
    /// Items 0 to `count` - 1. Linear.
    /// @param usualQuery side of the square that is mostly asked for; one that is not finite and
    ///                   positive counts as 1.
    /// @param pointOf gives the point of an item.
    template<class PointOf>
    SettledPoints(double usualQuery, std::size_t count, PointOf pointOf)
        : table_(CellTable::SideFor(usualQuery), count / kPointsPerPlace), points_(count) {
        // A counting sort by place: each place tells how many points there are, then where they
        // end, and in the end where they begin.
        LargeVector<std::uint32_t> places(count);
        for (std::size_t item = 0; item < count; ++item) {
            const AcGePoint3d& point = pointOf(item);
            places[item] = static_cast<std::uint32_t>(table_.PlaceOf(point.x, point.y));
            ++table_.First(places[item]);
        }
        int end = 0;
        for (std::size_t place = 0; place < table_.Places(); ++place) {
            end += table_.First(place) - CellTable::kNone;
            table_.First(place) = end;
        }
        for (std::size_t item = count; item-- > 0;) {
            const AcGePoint3d& point = pointOf(item);
            const int at = --table_.First(places[item]);
            points_[static_cast<std::size_t>(at)] = {Rounded(point.x), Rounded(point.y),
                                                     static_cast<int>(item)};
        }
    }

    /// Appends the items whose points lie in `box`, bounds included, and perhaps some that miss it
    /// by rounding, in no order and now and then twice.
    void Collect(const PlanBox& box, Indices& items) const {
        const float minX = Rounded(box.minX);
        const float minY = Rounded(box.minY);
        const float maxX = Rounded(box.maxX);
        const float maxY = Rounded(box.maxY);
        table_.ForEachPlace(box, [&](std::size_t place) {
            const std::size_t end = EndOf(place);
            for (std::size_t at = BeginOf(place); at < end; ++at) {
                const Point& point = points_[at];
                if (minX <= point.x && point.x <= maxX && minY <= point.y && point.y <= maxY) {
                    items.push_back(point.item);
                }
            }
        });
    }

private:
    /// A few more points of a place cost an answer next to nothing, and a short table stays in the
    /// processor's cache while it is laid.
    static constexpr std::size_t kPointsPerPlace = 4;

    struct Point {
        float x;
        float y;
        int item;
    };

    /// Of two coordinates the smaller one never becomes the larger, so that a point of the box
    /// stays in the rounded box.
    static float Rounded(double coordinate) {
        constexpr double largest = std::numeric_limits<float>::max();
        return static_cast<float>(std::clamp(coordinate, -largest, largest));
    }

    std::size_t BeginOf(std::size_t place) const {
        return static_cast<std::size_t>(table_.First(place));
    }
    std::size_t EndOf(std::size_t place) const {
        return place + 1 < table_.Places() ? BeginOf(place + 1) : points_.size();
    }

    CellTable table_; // where the points of each place begin
    LargeVector<Point> points_;
};

} // namespace tkvlt
