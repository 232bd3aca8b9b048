#pragma once

#include "database/AcDbCurve.h"

/// A straight segment. Its parameter is the distance from the start.
class AcDbLine : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbLine);

public:
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : start_(start), end_(end) {}
    AcRxObject* clone() const override;

    AcGePoint3d startPoint() const { return start_; }
    AcGePoint3d endPoint() const { return end_; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    AcGeVector3d normal() const { return normal_; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& point,
                                        Adesk::Boolean extend = Adesk::kFalse) const override;
    host_db::CurvePath path() const override;

protected:
    AcDbLine(const AcDbLine&) = default;
    ParamStyle paramStyle() const override { return ParamStyle::Length; }

private:
    AcGePoint3d start_;
    AcGePoint3d end_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
};
