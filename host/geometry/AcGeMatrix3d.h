#pragma once

#include "geometry/AcGePoint3d.h"
#include "geometry/AcGeScale3d.h"

/// An affine map of space: `entry[row][column]`, points as columns, translation in column 3. The
/// last row is 0 0 0 1. A default matrix is the identity.
class AcGeMatrix3d {
public:
    constexpr AcGeMatrix3d() = default;

    AcGeMatrix3d& setToIdentity();
    /// First `right`, then `left`.
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& left, const AcGeMatrix3d& right);
    /// This map followed by `left`; or preceded by `right`.
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return setToProduct(left, *this); }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return setToProduct(*this, right); }
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& right) { return postMultBy(right); }

    /// Determinant of the linear part.
    double det() const;
    /// Whether the map can be inverted: the determinant is not 0.
    bool isSingular() const { return det() == 0.0; }
    /// Inverts in place, or gives the inverse. A singular matrix throws CInvalidArgException.
    AcGeMatrix3d& invert() { return *this = inverse(); }
    AcGeMatrix3d inverse() const;

    AcGeMatrix3d& setToTranslation(const AcGeVector3d& offset);
    /// Right-handed turn by `angle` radians about the line through `center` along `axis`. An axis
    /// without length gives the identity.
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(const AcGeScale3d& scale,
                               const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToMirroring(const AcGePlane& plane);

    /// The map that carries the drawing's axes to `origin` and the three axes given.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;
    AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }

    /// Becomes the map from an object's own coordinates to the drawing's. For a normal alone the
    /// axes follow the drawing convention (see AcGePlane) about the drawing's origin; a plane
    /// gives its own origin and axes.
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);
    AcGeMatrix3d& setToPlaneToWorld(const AcGePlane& plane);
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
    AcGeMatrix3d& setToWorldToPlane(const AcGePlane& plane);
    /// The same as values.
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d planeToWorld(const AcGePlane& plane);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
    static AcGeMatrix3d worldToPlane(const AcGePlane& plane);

    double operator()(unsigned row, unsigned column) const { return entry[row][column]; }
    double& operator()(unsigned row, unsigned column) { return entry[row][column]; }
    /// Whether no entry differs by more than `equalPoint`.
    bool isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    friend bool operator==(const AcGeMatrix3d& a, const AcGeMatrix3d& b) { return a.isEqualTo(b); }

    static const AcGeMatrix3d kIdentity;

    double entry[4][4] = {
        {1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};

private:
    AcGeVector3d column(int index) const {
        return {entry[0][index], entry[1][index], entry[2][index]};
    }
    /// Keeps the linear part and moves so that `center` stays where it is.
    AcGeMatrix3d& fixPoint(const AcGePoint3d& center);
};

inline AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& v) {
    const auto& e = matrix.entry;
    return {e[0][0] * v.x + e[0][1] * v.y + e[0][2] * v.z,
            e[1][0] * v.x + e[1][1] * v.y + e[1][2] * v.z,
            e[2][0] * v.x + e[2][1] * v.y + e[2][2] * v.z};
}

inline AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& p) {
    const AcGeVector3d moved = matrix * p.asVector() + matrix.translation();
    return {moved.x, moved.y, moved.z};
}
