#pragma once

#include "geometry/AcGeMatrix3d.h"
#include "geometry/AcGePoint3d.h"
#include "geometry/AcGeVector3d.h"

#include <algorithm>

/// A box along the axes. A default one is empty: its least point is (1e20, 1e20, 1e20) and its
/// greatest (-1e20, -1e20, -1e20), so that the first point added becomes both.
class AcDbExtents {
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : min_(min), max_(max) {}

    AcGePoint3d minPoint() const { return min_; }
    AcGePoint3d maxPoint() const { return max_; }
    /// Takes both points as they stand, also with a minimum above the maximum.
    void set(const AcGePoint3d& min, const AcGePoint3d& max);
    /// The box holds no point: some minimum coordinate is above its maximum.
    bool isEmpty() const { return min_.x > max_.x || min_.y > max_.y || min_.z > max_.z; }
    /// Grows the box to hold the point.
    void addPoint(const AcGePoint3d& point) {
        min_.set(std::min(min_.x, point.x), std::min(min_.y, point.y), std::min(min_.z, point.z));
        max_.set(std::max(max_.x, point.x), std::max(max_.y, point.y), std::max(max_.z, point.z));
    }
    /// Grows the box to hold `other`; an empty one adds nothing.
    void addExt(const AcDbExtents& other);
    /// Grows the box to hold itself moved by `vector` as well. An empty box stays empty.
    void expandBy(const AcGeVector3d& vector);
    /// Makes the box that of its own eight corners under the transform. An empty box stays empty.
    void transformBy(const AcGeMatrix3d& transform);

private:
    static constexpr double kFar = 1e20;

    AcGePoint3d min_{kFar, kFar, kFar};
    AcGePoint3d max_{-kFar, -kFar, -kFar};
};
