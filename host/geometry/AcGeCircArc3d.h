#pragma once

#include "geometry/AcGeCurve3d.h"
#include "geometry/AcGeLine3d.h"
#include "geometry/AcGePlane.h"

#include <memory>

/// A circular arc or a full circle.
///
/// The arc runs counter-clockwise about its normal from `startAng` to `endAng`, angles in radians
/// from `refVec`; they are the curve's parameter and always grow along the arc. An arc made from
/// points gives back exactly those points as its ends. The point of an arc closest to its centre
/// is its start.
///
/// What is not the unit circle stands in storage of its own, so that making and copying it may
/// throw std::bad_alloc: everything that may be an arc has one of these, and most of it is
/// straight.
class AcGeCircArc3d : public AcGeCurve3d {
public:
    /// The unit circle about the origin in the XY plane.
    AcGeCircArc3d() = default;
    AcGeCircArc3d(const AcGeCircArc3d& other);
    AcGeCircArc3d& operator=(const AcGeCircArc3d& other);
    // What was moved from is the unit circle.
    AcGeCircArc3d(AcGeCircArc3d&& other) noexcept = default;
    AcGeCircArc3d& operator=(AcGeCircArc3d&& other) noexcept = default;
    ~AcGeCircArc3d() override = default;
    /// A full circle that starts on the first axis of the drawing convention, see AcGePlane.
    AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    /// `refVec` must be at right angles to the normal; both are made unit. `endAng` at or below
    /// `startAng` is taken whole turns later, and more than a whole turn is cut to one.
    AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& refVec,
                  double radius, double startAng, double endAng);
    /// From `start` through `point` to `end`, see set.
    AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end);

    AcGeCircArc3d& set(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcGeCircArc3d& set(const AcGePoint3d& center, const AcGeVector3d& normal,
                       const AcGeVector3d& refVec, double radius, double startAng, double endAng);
    /// From `start` through `point` to `end`; `refVec` points to the start, `startAng` is 0. Points
    /// that meet the circle of the arc as it was leave centre and radius to the last bit, so that
    /// pieces of an arc are all equally far from a place. With coincident or collinear points the
    /// arc stays as it was; `error` tells which.
    AcGeCircArc3d& set(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end);
    AcGeCircArc3d& set(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                       AcGeError& error);

    /// The arc of a polyline from `start` to `end` in the plane with that normal: `bulge` is the
    /// tangent of a quarter of the swept angle, positive to turn left. A negative one flips the
    /// arc's normal. `refVec` points to the start, `startAng` is 0, `endAng` the swept angle.
    /// `bulge` 0 or ends without distance throw CInvalidArgException.
    static AcGeCircArc3d fromBulge(const AcGePoint3d& start, const AcGePoint3d& end, double bulge,
                                   const AcGeVector3d& normal);

    AcGePoint3d center() const { return shape().center; }
    AcGeVector3d normal() const { return shape().normal; }
    AcGeVector3d refVec() const { return shape().refVec; }
    double radius() const { return shape().radius; }
    double startAng() const { return shape().startAng; }
    double endAng() const { return shape().endAng; }
    /// Swept angle, above 0 and at most 2 pi.
    double sweepAng() const { return shape().endAng - shape().startAng; }
    AcGePoint3d startPoint() const { return shape().start; }
    AcGePoint3d endPoint() const { return shape().end; }
    AcGePlane plane() const { return {center(), normal()}; }
    void getPlane(AcGePlane& plane) const { plane = this->plane(); }
    /// Length along the arc, drawing units.
    double length() const { return radius() * sweepAng(); }
    using AcGeCurve3d::length;
    double length(double fromParam, double toParam,
                  double tol = AcGeContext::gTol.equalPoint()) const override;
    /// Whether the point, projected to the arc's plane, lies strictly inside the whole circle.
    Adesk::Boolean isInside(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;

    /// 1 if the arc and the line share one or two places, which `n` counts and `p1`, `p2` give in
    /// the order along this arc; places are on this arc. A tangent contact counts once. Else 0,
    /// and nothing but `n`, which becomes 0, is written.
    Adesk::Boolean intersectWith(const AcGeLinearEnt3d& line, int& n, AcGePoint3d& p1,
                                 AcGePoint3d& p2, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The same for two arcs. Arcs on one circle have no intersection.
    Adesk::Boolean intersectWith(const AcGeCircArc3d& arc, int& n, AcGePoint3d& p1, AcGePoint3d& p2,
                                 const AcGeTol& tol = AcGeContext::gTol) const;
    /// 1 and the tangent along the drawn direction if the point lies on the arc, else 0.
    Adesk::Boolean tangent(const AcGePoint3d& point, AcGeLine3d& line,
                           const AcGeTol& tol = AcGeContext::gTol) const;
    /// Turns the drawn direction round: the normal flips and the ends change places.
    AcGeCircArc3d& reverseParam();

    AcGe::EntityId type() const override { return AcGe::kCircArc3d; }
    Adesk::Boolean isKindOf(AcGe::EntityId id) const override;
    AcGeCircArc3d* copy() const override { return new AcGeCircArc3d(*this); }
    /// The map must keep circles round in the arc's plane.
    AcGeCircArc3d& transformBy(const AcGeMatrix3d& matrix) override;

    void getInterval(AcGeInterval& interval) const override { interval.set(startAng(), endAng()); }
    using AcGeCurve3d::getInterval;
    AcGePoint3d evalPoint(double param) const override;
    Adesk::Boolean hasStartPoint(AcGePoint3d& point) const override;
    Adesk::Boolean hasEndPoint(AcGePoint3d& point) const override;

protected:
    Place nearest(const AcGePoint3d& point, const AcGeTol& tol) const override;
    double noiseWith(const AcGePoint3d& point) const override;

private:
    struct Shape {
        AcGePoint3d center;
        AcGeVector3d normal = AcGeVector3d(0.0, 0.0, 1.0);
        AcGeVector3d refVec = AcGeVector3d(1.0, 0.0, 0.0);
        double radius = 1.0;
        double startAng = 0.0;
        double endAng = 6.283185307179586;
        AcGePoint3d start = AcGePoint3d(1.0, 0.0, 0.0);
        AcGePoint3d end = AcGePoint3d(1.0, 0.0, 0.0);
    };
    static const Shape kUnitCircle;

    AcGePoint3d onCircle(double angle) const;
    bool circleHolds(const AcGePoint3d& point) const;
    AcGeCircArc3d& layOnCircle(const AcGePoint3d& start, const AcGePoint3d& end, bool turnsRound);
    AcGeVector3d quarterVec() const { return normal().crossProduct(refVec()); }

    const Shape& shape() const { return shape_ ? *shape_ : kUnitCircle; }
    /// The shape to be written to.
    Shape& own();

    std::unique_ptr<Shape> shape_; // null for the unit circle
};
