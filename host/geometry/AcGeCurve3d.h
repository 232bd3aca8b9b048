#pragma once

#include "geometry/AcGeEntity3d.h"
#include "geometry/AcGeInterval.h"

/// A curve with a parameter. Bounded curves end where their interval ends; every operation works
/// on that bounded piece, with `equalPoint` of slack at its ends.
class AcGeCurve3d : public AcGeEntity3d {
public:
    Adesk::Boolean isKindOf(AcGe::EntityId id) const override;

    /// Range of the parameter.
    virtual void getInterval(AcGeInterval& interval) const = 0;
    void getInterval(AcGeInterval& interval, AcGePoint3d& start, AcGePoint3d& end) const;
    /// The point at a parameter. Outside the interval the curve's natural continuation counts.
    virtual AcGePoint3d evalPoint(double param) const = 0;
    /// Parameter of the point of the bounded curve next to `point`.
    double paramOf(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The point of the bounded curve next to `point`.
    AcGePoint3d closestPointTo(const AcGePoint3d& point,
                               const AcGeTol& tol = AcGeContext::gTol) const;
    /// Distance from `point` to the bounded curve, drawing units.
    double distanceTo(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;

    /// Whether the point lies within `equalPoint` (or noise) of the bounded curve: 0 or 1. The
    /// form with `param` writes the point's parameter when it does, and nothing else.
    Adesk::Boolean isOn(const AcGePoint3d& point,
                        const AcGeTol& tol = AcGeContext::gTol) const override;
    Adesk::Boolean isOn(const AcGePoint3d& point, double& param,
                        const AcGeTol& tol = AcGeContext::gTol) const;

    /// Length along the curve between two parameters, drawing units, never negative. The
    /// tolerance has no effect: lengths of lines and arcs are exact.
    virtual double length(double fromParam, double toParam,
                          double tol = AcGeContext::gTol.equalPoint()) const = 0;
    double length(double fromParam, double toParam, const AcGeTol& tol) const {
        return length(fromParam, toParam, tol.equalPoint());
    }

    /// Whether the curve has such an end; `point` is written only then.
    virtual Adesk::Boolean hasStartPoint(AcGePoint3d& point) const = 0;
    virtual Adesk::Boolean hasEndPoint(AcGePoint3d& point) const = 0;
    /// Whether the curve ends where it starts.
    Adesk::Boolean isClosed(const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGeCurve3d() = default;
    AcGeCurve3d(const AcGeCurve3d&) = default;
    AcGeCurve3d& operator=(const AcGeCurve3d&) = default;

    /// A place on the curve: its parameter and where that is.
    struct Place {
        double param;
        AcGePoint3d point;
    };
    /// The place of the bounded curve next to `point`.
    virtual Place nearest(const AcGePoint3d& point, const AcGeTol& tol) const = 0;
    /// Rounding noise of the curve's own coordinates together with those of `point`.
    virtual double noiseWith(const AcGePoint3d& point) const = 0;
};
