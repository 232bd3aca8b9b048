#pragma once

#include "geometry/AcGeLinearEnt3d.h"

/// A line without ends. Its parameter counts lengths of the vector it was made with.
class AcGeLine3d : public AcGeLinearEnt3d {
public:
    /// The X axis.
    AcGeLine3d() = default;
    AcGeLine3d(const AcGePoint3d& point, const AcGeVector3d& vector)
        : AcGeLinearEnt3d(point, vector) {}
    AcGeLine3d(const AcGePoint3d& first, const AcGePoint3d& second)
        : AcGeLinearEnt3d(first, second - first) {}

    AcGeLine3d& set(const AcGePoint3d& point, const AcGeVector3d& vector) {
        return *this = AcGeLine3d(point, vector);
    }
    AcGeLine3d& set(const AcGePoint3d& first, const AcGePoint3d& second) {
        return *this = AcGeLine3d(first, second);
    }

    AcGe::EntityId type() const override { return AcGe::kLine3d; }
    Adesk::Boolean isKindOf(AcGe::EntityId id) const override;
    AcGeLine3d* copy() const override { return new AcGeLine3d(*this); }
    AcGeLine3d& transformBy(const AcGeMatrix3d& matrix) override;

    void getInterval(AcGeInterval& interval) const override { interval = AcGeInterval(); }
    using AcGeCurve3d::getInterval;
    Adesk::Boolean hasStartPoint(AcGePoint3d&) const override { return Adesk::kFalse; }
    Adesk::Boolean hasEndPoint(AcGePoint3d&) const override { return Adesk::kFalse; }
};
