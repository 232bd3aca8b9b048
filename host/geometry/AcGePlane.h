#pragma once

#include "geometry/AcGeEntity3d.h"

class AcGeLinearEnt3d;

/// A plane with an origin and two axes.
///
/// For a plane given by its normal alone the axes follow the drawing convention that object
/// coordinate systems use: if the unit normal's x and y are both smaller than 1/64 in size, the
/// first axis is Y x normal, else Z x normal, made unit; the second is normal x first. So an angle
/// measured on the plane is the angle of a database arc with that normal.
class AcGePlane : public AcGeEntity3d {
public:
    /// The XY plane.
    AcGePlane() = default;
    AcGePlane(const AcGePoint3d& point, const AcGeVector3d& normal);
    /// Axes as given, not made unit; they must not be parallel.
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis);

    AcGePlane& set(const AcGePoint3d& point, const AcGeVector3d& normal) {
        return *this = AcGePlane(point, normal);
    }
    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& uAxis,
                   const AcGeVector3d& vAxis) {
        return *this = AcGePlane(origin, uAxis, vAxis);
    }

    AcGePoint3d pointOnPlane() const { return origin_; }
    /// Unit normal.
    AcGeVector3d normal() const { return normal_; }
    void get(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const;
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const {
        get(origin, uAxis, vAxis);
    }

    /// Distance to the plane, positive on the side that the normal points to.
    double signedDistanceTo(const AcGePoint3d& point) const;
    double distanceTo(const AcGePoint3d& point) const;
    /// The point's foot on the plane.
    AcGePoint3d closestPointTo(const AcGePoint3d& point) const;
    /// 0 or 1: whether line and plane meet; `point`, on the line, is written only then.
    Adesk::Boolean intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const;
    /// 0 or 1: same or opposite normals; and, for coplanar, the same place too.
    Adesk::Boolean isParallelTo(const AcGePlane& other,
                                const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isCoplanarTo(const AcGePlane& other,
                                const AcGeTol& tol = AcGeContext::gTol) const;

    AcGe::EntityId type() const override { return AcGe::kPlane; }
    Adesk::Boolean isKindOf(AcGe::EntityId id) const override;
    AcGePlane* copy() const override { return new AcGePlane(*this); }
    AcGePlane& transformBy(const AcGeMatrix3d& matrix) override;
    Adesk::Boolean isOn(const AcGePoint3d& point,
                        const AcGeTol& tol = AcGeContext::gTol) const override;

private:
    AcGePoint3d origin_;
    AcGeVector3d uAxis_ = AcGeVector3d(1.0, 0.0, 0.0);
    AcGeVector3d vAxis_ = AcGeVector3d(0.0, 1.0, 0.0);
    AcGeVector3d normal_ = AcGeVector3d(0.0, 0.0, 1.0);
};
