#pragma once

#include "database/AcDbCurve.h"

/// A full circle, starting at angle 0 of its own coordinate system. Its parameter is the angle.
class AcDbCircle : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbCircle);

public:
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcRxObject* clone() const override;

    AcGePoint3d center() const { return center_; }
    AcGeVector3d normal() const { return normal_; }
    double radius() const { return radius_; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// eInvalidInput for a negative radius.
    Acad::ErrorStatus setRadius(double radius);

    Adesk::Boolean isClosed() const override;
    Adesk::Boolean isPeriodic() const override;
    host_db::CurvePath path() const override;

protected:
    AcDbCircle(const AcDbCircle&) = default;

private:
    AcGePoint3d center_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    double radius_ = 0.0;
};
