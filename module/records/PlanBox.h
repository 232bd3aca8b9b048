#pragma once

#include <algorithm>
#include <cmath>

#include "platform.h"

namespace tkvlt {

/// An axis-parallel box in plan, both bounds included.
struct PlanBox {
    double minX;
    double minY;
    double maxX;
    double maxY;

    static PlanBox Everywhere();
    static PlanBox Of(const AcGePoint3d& point) { return {point.x, point.y, point.x, point.y}; }
    /// A box that holds every point at most `reach` from `point`, rounding included. A reach that
    /// is not a number gives the whole plane, since comparisons with it can pass anywhere, and so
    /// does a point of which a coordinate is not finite, height included, and a reach of 1e20 and
    /// more.
    static PlanBox Around(const AcGePoint3d& point, double reach);

    void Include(const PlanBox& other) {
        minX = Lower(minX, other.minX);
        minY = Lower(minY, other.minY);
        maxX = Higher(maxX, other.maxX);
        maxY = Higher(maxY, other.maxY);
    }
    /// This box widened on all sides by `margin` and by what rounding of its coordinates may hide.
    PlanBox Widened(double margin) const;
    bool Overlaps(const PlanBox& other) const {
        return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
    }
    double LongerSide() const { return std::max(maxX - minX, maxY - minY); }

private:
    // A coordinate that is not a number passes no comparison and must not hide the other.
    static double Lower(double one, double other) {
        return other < one || std::isnan(one) ? other : one;
    }
    static double Higher(double one, double other) {
        return other > one || std::isnan(one) ? other : one;
    }
};

} // namespace tkvlt
