#pragma once

#include "geometry/AcGeCurve3d.h"

class AcGeCircArc3d;
class AcGeLine3d;
class AcGePlane;

/// Base of the line and the segment. Two directions agree when the angle between them, opposite
/// directions included, is at most `equalVector` radians. Something without length has no
/// direction of its own and takes that of whatever it is compared with.
class AcGeLinearEnt3d : public AcGeCurve3d {
public:
    Adesk::Boolean isKindOf(AcGe::EntityId id) const override;

    /// Unit vector from start to end; zero for something without length.
    AcGeVector3d direction() const;
    /// A point of the line: its start.
    AcGePoint3d pointOnLine() const { return origin_; }
    /// The unbounded line through it.
    void getLine(AcGeLine3d& line) const;

    /// 0 or 1, by direction only.
    Adesk::Boolean isParallelTo(const AcGeLinearEnt3d& line,
                                const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isPerpendicularTo(const AcGeLinearEnt3d& line,
                                     const AcGeTol& tol = AcGeContext::gTol) const;
    /// 0 or 1: parallel, and the start of each within `equalPoint` of the other's unbounded line.
    Adesk::Boolean isColinearTo(const AcGeLinearEnt3d& line,
                                const AcGeTol& tol = AcGeContext::gTol) const;

    /// 0 or 1: whether the two, which must not be parallel, come within `equalPoint` of each
    /// other. `point`, written only then, is the place on this one.
    Adesk::Boolean intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const;
    /// 0 or 1: whether this meets the plane; parallel ones never do.
    Adesk::Boolean intersectWith(const AcGePlane& plane, AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const;
    /// Whether the two are colinear and share a piece, which is then written.
    Adesk::Boolean overlap(const AcGeLinearEnt3d& line, AcGePoint3d& from, AcGePoint3d& to,
                           const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePoint3d evalPoint(double param) const override;
    using AcGeCurve3d::length;
    double length(double fromParam, double toParam,
                  double tol = AcGeContext::gTol.equalPoint()) const override;

protected:
    AcGeLinearEnt3d() = default;
    AcGeLinearEnt3d(const AcGePoint3d& origin, const AcGeVector3d& vector)
        : origin_(origin), vector_(vector) {}
    AcGeLinearEnt3d(const AcGeLinearEnt3d&) = default;
    AcGeLinearEnt3d& operator=(const AcGeLinearEnt3d&) = default;

    Place nearest(const AcGePoint3d& point, const AcGeTol& tol) const override;
    double noiseWith(const AcGePoint3d& point) const override;
    /// Of the point's foot on the unbounded line.
    double paramOnUnbounded(const AcGePoint3d& point) const {
        const double square = vector_.lengthSqrd();
        return square > 0.0 ? (point - origin_).dotProduct(vector_) / square : 0.0;
    }

    /// Parameter p stands for origin_ + p * vector_.
    AcGePoint3d origin_;
    AcGeVector3d vector_ = AcGeVector3d::kXAxis;

private:
    double noiseWithBoth(const AcGeLinearEnt3d& line) const;
    double agreement(const AcGeLinearEnt3d& line, const AcGeTol& tol) const;
    double distanceToUnbounded(const AcGePoint3d& point, const AcGeVector3d& fallback) const;
    double boundedParam(double param) const;
};
