#pragma once

#include "geometry/AcGe.h"
#include "geometry/AcGePoint3d.h"

/// Base of the geometric objects that have a place in space. They are values: a copy stands alone.
class AcGeEntity3d {
public:
    virtual ~AcGeEntity3d() = default;

    /// The object's own class.
    virtual AcGe::EntityId type() const = 0;
    /// Whether the object is of that class or of one derived from it.
    virtual Adesk::Boolean isKindOf(AcGe::EntityId id) const { return id == AcGe::kEntity3d; }
    /// A new object owned by the caller.
    virtual AcGeEntity3d* copy() const = 0;

    /// Carries the object along with a map. Arcs need one that keeps circles round.
    virtual AcGeEntity3d& transformBy(const AcGeMatrix3d& matrix) = 0;
    AcGeEntity3d& translateBy(const AcGeVector3d& offset);
    AcGeEntity3d& rotateBy(double angle, const AcGeVector3d& axis,
                           const AcGePoint3d& origin = AcGePoint3d::kOrigin);
    AcGeEntity3d& mirror(const AcGePlane& plane);
    AcGeEntity3d& scaleBy(double factor, const AcGePoint3d& origin = AcGePoint3d::kOrigin);

    /// Whether the point lies on the object.
    virtual Adesk::Boolean isOn(const AcGePoint3d& point,
                                const AcGeTol& tol = AcGeContext::gTol) const = 0;

protected:
    AcGeEntity3d() = default;
    AcGeEntity3d(const AcGeEntity3d&) = default;
    AcGeEntity3d& operator=(const AcGeEntity3d&) = default;
};
