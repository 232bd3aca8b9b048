#pragma once

#include "database/AcDbCurve.h"

/// A circular arc, counter-clockwise about its normal. Its parameter is the angle in radians, from
/// the start angle up to the end angle brought above it; angle 0 points along the X axis of the
/// entity's own coordinate system (arbitrary-axis rule).
class AcDbArc : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbArc);

public:
    AcDbArc() = default;
    /// In the plane of the world's X and Y axes.
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
    /// `center` in world coordinates; `normal` need not be of length one.
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
            double endAngle);
    AcRxObject* clone() const override;

    AcGePoint3d center() const { return center_; }
    AcGeVector3d normal() const { return normal_; }
    double radius() const { return radius_; }
    double startAngle() const { return startAngle_; }
    double endAngle() const { return endAngle_; }
    /// The angle swept, above 0 and at most two pi.
    double totalAngle() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// eInvalidInput for a negative radius.
    Acad::ErrorStatus setRadius(double radius);
    Acad::ErrorStatus setStartAngle(double angle);
    Acad::ErrorStatus setEndAngle(double angle);

    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& point,
                                        Adesk::Boolean extend = Adesk::kFalse) const override;
    host_db::CurvePath path() const override;

protected:
    AcDbArc(const AcDbArc&) = default;

private:
    AcGePoint3d center_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    double radius_ = 0.0;
    double startAngle_ = 0.0;
    double endAngle_ = 0.0;
};
