#pragma once

#include "database/AcDbCurve.h"
#include "database/NurbsCurve.h"

#include <vector>

/// A spline by control points and knots, or by fit points alone. Its parameter is the knot value;
/// for fit points alone the curve is taken through them piece by piece, straight, and the parameter
/// is the point's index plus the part of the piece.
class AcDbSpline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbSpline);

public:
    AcDbSpline() = default;
    explicit AcDbSpline(host_db::NurbsCurve curve) : curve_(std::move(curve)) {}
    AcRxObject* clone() const override;

    const host_db::NurbsCurve& nurbs() const { return curve_; }
    Acad::ErrorStatus setNurbs(const host_db::NurbsCurve& curve);
    const std::vector<AcGePoint3d>& fitPoints() const { return fitPoints_; }
    Acad::ErrorStatus setFitPoints(const std::vector<AcGePoint3d>& points);
    int degree() const { return curve_.degree(); }
    int numControlPoints() const { return static_cast<int>(curve_.points().size()); }
    int numFitPoints() const { return static_cast<int>(fitPoints_.size()); }
    /// The file says that the curve is closed, whatever its points do.
    Acad::ErrorStatus setClosed(Adesk::Boolean closed);
    Adesk::Boolean isClosed() const override { return closed_ ? Adesk::kTrue : Adesk::kFalse; }

    host_db::CurvePath path() const override;

protected:
    AcDbSpline(const AcDbSpline&) = default;
    ParamStyle paramStyle() const override {
        return curve_.isValid() ? ParamStyle::Local : ParamStyle::Vertex;
    }

private:
    host_db::NurbsCurve curve_;
    std::vector<AcGePoint3d> fitPoints_;
    bool closed_ = false;
};
