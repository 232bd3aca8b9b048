#include "exchange/NearestNode.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

namespace pipenet {

namespace {

using Cell = std::pair<std::int64_t, std::int64_t>;

Cell cellOf(const PlanPoint& place, double size) {
    constexpr double most = 4e18;
    const auto row = [size, most](double value) {
        return static_cast<std::int64_t>(std::clamp(std::floor(value / size), -most, most));
    };
    return {row(place.x), row(place.y)};
}

} // namespace

std::vector<double> nearestOthers(const std::vector<PlanPoint>& places, double farthest) {
    std::map<Cell, std::vector<std::size_t>> grid;
    for (std::size_t i = 0; i < places.size(); ++i) {
        grid[cellOf(places[i], farthest)].push_back(i);
    }
    std::vector<double> nearest(places.size(), farthest);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Cell cell = cellOf(places[i], farthest);
        for (int step = 0; step < 9; ++step) {
            const auto found = grid.find({cell.first + step / 3 - 1, cell.second + step % 3 - 1});
            if (found == grid.end()) {
                continue;
            }
            for (const std::size_t other : found->second) {
                if (other != i) {
                    nearest[i] = std::min(nearest[i], distance(places[i], places[other]));
                }
            }
        }
    }
    return nearest;
}

} // namespace pipenet
