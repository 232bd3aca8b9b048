#pragma once

#include "geometry/AcGeTol.h"
#include "platform/PlatformTypes.h"

#include <cmath>

class AcGeMatrix3d;
class AcGePlane;

/// A direction and length in space, drawing units.
///
/// Two directions agree when the angle between them is at most `equalVector` radians (or the
/// rounding noise of the components, if greater). A vector of length 0 is parallel and
/// perpendicular to every other.
class AcGeVector3d {
public:
    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    AcGeVector3d& set(double xx, double yy, double zz) {
        x = xx;
        y = yy;
        z = zz;
        return *this;
    }

    double length() const { return std::sqrt(lengthSqrd()); }
    double lengthSqrd() const { return x * x + y * y + z * z; }
    /// Changes the length, keeping the direction; a vector without length stays as it is.
    AcGeVector3d& setLength(double length);
    /// Makes the length 1. A vector whose length is at most `equalVector` stays as it is.
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    /// The same as a value.
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d& negate() { return set(-x, -y, -z); }

    double dotProduct(const AcGeVector3d& other) const {
        return x * other.x + y * other.y + z * other.z;
    }
    AcGeVector3d crossProduct(const AcGeVector3d& other) const {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }

    /// Angle between the two, 0 to pi; as accurate for nearly parallel vectors as for any
    /// others. 0 if either has no length.
    double angleTo(const AcGeVector3d& other) const;
    /// Angle from this to `other`, counter-clockwise when seen against `reference`: 0 to 2 pi
    /// (2 pi excluded).
    double angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const;
    /// Angle of the vector's image on the plane, counter-clockwise from the plane's first axis:
    /// 0 to 2 pi (2 pi excluded); 0 for a vector along the normal.
    double angleOnPlane(const AcGePlane& plane) const;

    /// Turns the vector about `axis` by `angle` radians, right-handed. An axis without length
    /// leaves it as it is.
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
    /// Mirrors the vector in a plane through the origin with that normal.
    AcGeVector3d& mirror(const AcGeVector3d& planeNormal);
    /// The first axis of the drawing convention for this vector as a normal, see AcGePlane: a
    /// unit vector at right angles to it; zero for a vector without length.
    AcGeVector3d perpVector() const;

    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Same or opposite direction.
    bool isParallelTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Same direction.
    bool isCodirectionalTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Whether the difference of the two is at most `equalVector` long.
    bool isEqualTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { return set(x + v.x, y + v.y, z + v.z); }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { return set(x - v.x, y - v.y, z - v.z); }
    AcGeVector3d& operator*=(double s) { return set(x * s, y * s, z * s); }
    AcGeVector3d& operator/=(double s) { return set(x / s, y / s, z / s); }
    friend AcGeVector3d operator+(const AcGeVector3d& a, const AcGeVector3d& b) {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend AcGeVector3d operator-(const AcGeVector3d& a, const AcGeVector3d& b) {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend AcGeVector3d operator*(const AcGeVector3d& v, double s) {
        return {v.x * s, v.y * s, v.z * s};
    }
    friend AcGeVector3d operator*(double s, const AcGeVector3d& v) { return v * s; }
    friend AcGeVector3d operator/(const AcGeVector3d& v, double s) {
        return {v.x / s, v.y / s, v.z / s};
    }
    friend bool operator==(const AcGeVector3d& a, const AcGeVector3d& b) { return a.isEqualTo(b); }

    static const AcGeVector3d kIdentity;
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
