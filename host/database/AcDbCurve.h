#pragma once

#include "database/AcDbEntity.h"
#include "database/CurvePath.h"

/// An entity that is a curve with a start and an end. Points are world coordinates; distances run
/// along the curve from its start; parameters are those that the class names.
///
/// Each class describes itself once, as a CurvePath; the questions below are answered from it.
class AcDbCurve : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbCurve);

public:
    /// eDegenerateGeometry for a curve without points.
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    /// A closed curve ends where it starts.
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
    virtual Adesk::Boolean isClosed() const;
    virtual Adesk::Boolean isPeriodic() const;
    Acad::ErrorStatus getStartParam(double& param) const;
    Acad::ErrorStatus getEndParam(double& param) const;
    /// eInvalidInput outside the curve's parameters.
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const;
    /// eInvalidInput for a point that is not on the curve within AcGeContext::gTol.
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const;
    Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const;
    /// Valid from 0 to the length, both included; else eInvalidInput and `point` untouched.
    Acad::ErrorStatus getPointAtDist(double dist, AcGePoint3d& point) const;
    /// The nearest point of the curve; of several equally near ones the first along the curve. With
    /// `extend` a line counts as unbounded and an arc as its circle.
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& point,
                                                Adesk::Boolean extend = Adesk::kFalse) const;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const;
    /// Length of the whole curve, 0 for one without points.
    double curveLength() const;

    bool addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const override;

    /// The curve's pieces in order, in world coordinates.
    virtual host_db::CurvePath path() const = 0;

protected:
    AcDbCurve() = default;
    AcDbCurve(const AcDbCurve&) = default;
    /// What the curve's parameter is: the piece's own (an angle, a knot value), the vertex index
    /// plus the part of the segment, or the length.
    enum class ParamStyle { Local, Vertex, Length };
    virtual ParamStyle paramStyle() const { return ParamStyle::Local; }

private:
    double paramAt(const host_db::CurvePath& path, const host_db::CurvePlace& place) const;
    bool placeAt(const host_db::CurvePath& path, double param, host_db::CurvePlace& place) const;
};
