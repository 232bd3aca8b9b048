#pragma once

#include "geometry/AcGeLinearEnt3d.h"

/// A straight piece between two points, which it gives back exactly. Its parameter runs from 0 at
/// the start to 1 at the end.
class AcGeLineSeg3d : public AcGeLinearEnt3d {
public:
    /// From (0, 0, 0) to (1, 0, 0).
    AcGeLineSeg3d() = default;
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGePoint3d& end)
        : AcGeLinearEnt3d(start, end - start), end_(end) {}
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGeVector3d& vector)
        : AcGeLinearEnt3d(start, vector), end_(start + vector) {}

    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGePoint3d& end) {
        return *this = AcGeLineSeg3d(start, end);
    }
    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGeVector3d& vector) {
        return *this = AcGeLineSeg3d(start, vector);
    }

    AcGePoint3d startPoint() const { return origin_; }
    AcGePoint3d endPoint() const { return end_; }
    AcGePoint3d midPoint() const;
    /// Distance from start to end, drawing units.
    double length() const { return origin_.distanceTo(end_); }
    using AcGeLinearEnt3d::length;

    AcGe::EntityId type() const override { return AcGe::kLineSeg3d; }
    Adesk::Boolean isKindOf(AcGe::EntityId id) const override;
    AcGeLineSeg3d* copy() const override { return new AcGeLineSeg3d(*this); }
    AcGeLineSeg3d& transformBy(const AcGeMatrix3d& matrix) override;

    void getInterval(AcGeInterval& interval) const override { interval.set(0.0, 1.0); }
    using AcGeCurve3d::getInterval;
    AcGePoint3d evalPoint(double param) const override;
    Adesk::Boolean hasStartPoint(AcGePoint3d& point) const override;
    Adesk::Boolean hasEndPoint(AcGePoint3d& point) const override;

protected:
    Place nearest(const AcGePoint3d& point, const AcGeTol& tol) const override;
    double noiseWith(const AcGePoint3d& point) const override;

private:
    AcGePoint3d end_ = AcGePoint3d(1.0, 0.0, 0.0);
};
