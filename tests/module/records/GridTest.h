#pragma once

#include "records/Indices.h"
#include "records/PlanBox.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace module_tests {

inline constexpr double kBoundless = std::numeric_limits<double>::infinity();
inline constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr tkvlt::PlanBox kWholePlane{-kBoundless, -kBoundless, kBoundless, kBoundless};

/// What an index over the plane says lies in the box, each item once.
template<class Index>
std::vector<int> found(const Index& index, const tkvlt::PlanBox& box) {
    tkvlt::Indices found;
    index.Collect(box, found);
    std::vector<int> items(found.begin(), found.end());
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
    return items;
}

/// Whether neither lies wholly to one side of the other; they may touch.
inline bool meets(const tkvlt::PlanBox& one, const tkvlt::PlanBox& other) {
    const bool isLeft = one.maxX < other.minX;
    const bool isRight = one.minX > other.maxX;
    const bool isBelow = one.maxY < other.minY;
    const bool isAbove = one.minY > other.maxY;
    return !isLeft && !isRight && !isBelow && !isAbove;
}

inline bool meets(const AcGePoint3d& point, const tkvlt::PlanBox& box) {
    return meets(tkvlt::PlanBox{point.x, point.y, point.x, point.y}, box);
}

/// Points or boxes that are looked at one by one.
template<class Shape>
class PlainItems {
public:
    void add(int item, const Shape& shape) { items_.emplace_back(item, shape); }

    void remove(std::size_t place) {
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
    }

    const std::vector<std::pair<int, Shape>>& all() const { return items_; }

    std::vector<int> in(const tkvlt::PlanBox& box) const {
        std::vector<int> met;
        for (const auto& [item, shape] : items_) {
            if (meets(shape, box)) {
                met.push_back(item);
            }
        }
        std::sort(met.begin(), met.end());
        return met;
    }

private:
    std::vector<std::pair<int, Shape>> items_;
};

inline double between(std::mt19937& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

inline std::size_t upTo(std::mt19937& random, std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

/// A box around a middle, of sides between a hair's breadth and a good part of the spread.
inline tkvlt::PlanBox someBox(std::mt19937& random, const AcGePoint3d& middle, double spread) {
    const double width = spread * std::pow(10.0, between(random, -6.0, 0.3));
    const double height = spread * std::pow(10.0, between(random, -6.0, 0.3));
    return {middle.x - width, middle.y - height, middle.x + width, middle.y + height};
}

/// What a random drawing takes up: about where and how far to each side.
struct Spread {
    AcGePoint3d middle;
    double width;

    AcGePoint3d somePoint(std::mt19937& random) const {
        const double x = middle.x + between(random, -width, width);
        return {x, middle.y + between(random, -width, width), 0.0};
    }
};

inline const Spread kSpreads[] = {{{0, 0, 0}, 100.0},     {{5e5, 3e6, 0}, 2000.0},
                                  {{1e7, -1e7, 0}, 1e-2}, {{-3e6, 7, 0}, 1e-3},
                                  {{0, 0, 0}, 1e12},      {{1e7, 1e7, 0}, 1e5}};

} // namespace module_tests
