#pragma once

#include "database/AcDbCurve.h"

/// An ellipse or a part of one, in world coordinates. Its parameter is the eccentric angle in
/// radians, 0 at the end of the major axis.
class AcDbEllipse : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbEllipse);

public:
    AcDbEllipse() = default;
    /// `ratio` is that of the minor to the major axis, above 0; the parameters run from `start` to
    /// `end`, by default all round.
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal,
                const AcGeVector3d& majorAxis, double ratio, double start = 0.0,
                double end = 6.28318530717958647692);
    AcRxObject* clone() const override;

    AcGePoint3d center() const { return center_; }
    AcGeVector3d normal() const { return normal_; }
    AcGeVector3d majorAxis() const { return majorAxis_; }
    AcGeVector3d minorAxis() const;
    double radiusRatio() const { return ratio_; }
    double startParam() const { return start_; }
    double endParam() const { return end_; }
    Acad::ErrorStatus set(const AcGePoint3d& center, const AcGeVector3d& normal,
                          const AcGeVector3d& majorAxis, double ratio, double start, double end);

    /// The parameters run once all round.
    Adesk::Boolean isClosed() const override;
    host_db::CurvePath path() const override;

protected:
    AcDbEllipse(const AcDbEllipse&) = default;

private:
    AcGePoint3d center_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    AcGeVector3d majorAxis_{1.0, 0.0, 0.0};
    double ratio_ = 1.0;
    double start_ = 0.0;
    double end_ = 6.28318530717958647692;
};
