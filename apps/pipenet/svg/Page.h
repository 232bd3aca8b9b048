#pragma once

#include <algorithm>

namespace pipenet {

/// A place on the page in pixels, y downwards.
struct PagePoint {
    double x = 0.0;
    double y = 0.0;
};

/// A box on the page along its edges.
struct PageBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    bool overlaps(const PageBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool holds(const PageBox& other) const {
        return left <= other.left && other.right <= right && top <= other.top &&
               other.bottom <= bottom;
    }
    bool holds(const PagePoint& point) const {
        return left <= point.x && point.x <= right && top <= point.y && point.y <= bottom;
    }
};

/// The box of half width `half` around a place.
inline PageBox boxAround(const PagePoint& place, double half) {
    return {place.x - half, place.y - half, place.x + half, place.y + half};
}

} // namespace pipenet
