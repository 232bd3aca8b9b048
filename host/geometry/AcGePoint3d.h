#pragma once

#include "geometry/AcGeVector3d.h"

/// A place in space, drawing units.
class AcGePoint3d {
public:
    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    AcGePoint3d& set(double xx, double yy, double zz) {
        x = xx;
        y = yy;
        z = zz;
        return *this;
    }

    double distanceTo(const AcGePoint3d& other) const { return (*this - other).length(); }
    AcGeVector3d asVector() const { return {x, y, z}; }
    /// Whether the points meet: within `equalPoint` or rounding noise, whichever is greater.
    bool isEqualTo(const AcGePoint3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The point's foot on the plane.
    AcGePoint3d orthoProject(const AcGePlane& plane) const;

    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    /// Turns the point about the line through `origin` along `axis` by `angle` radians,
    /// right-handed.
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis,
                          const AcGePoint3d& origin = kOrigin);
    AcGePoint3d& mirror(const AcGePlane& plane);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& origin = kOrigin);

    AcGePoint3d& operator+=(const AcGeVector3d& v) { return set(x + v.x, y + v.y, z + v.z); }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { return set(x - v.x, y - v.y, z - v.z); }
    AcGePoint3d& operator*=(double s) { return set(x * s, y * s, z * s); }
    friend AcGePoint3d operator+(const AcGePoint3d& p, const AcGeVector3d& v) {
        return {p.x + v.x, p.y + v.y, p.z + v.z};
    }
    friend AcGePoint3d operator-(const AcGePoint3d& p, const AcGeVector3d& v) {
        return {p.x - v.x, p.y - v.y, p.z - v.z};
    }
    friend AcGeVector3d operator-(const AcGePoint3d& a, const AcGePoint3d& b) {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend AcGePoint3d operator*(const AcGePoint3d& p, double s) {
        return {p.x * s, p.y * s, p.z * s};
    }
    friend AcGePoint3d operator*(double s, const AcGePoint3d& p) { return p * s; }
    /// The same as isEqualTo with the process's tolerance.
    friend bool operator==(const AcGePoint3d& a, const AcGePoint3d& b) { return a.isEqualTo(b); }
    double operator[](unsigned index) const { return index == 0 ? x : (index == 1 ? y : z); }

    static const AcGePoint3d kOrigin;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

/// A point from three coordinates, and three coordinates from a point.
inline AcGePoint3d asPnt3d(const double* coordinates) {
    return {coordinates[0], coordinates[1], coordinates[2]};
}
inline void asDblArray(const AcGePoint3d& point, double* coordinates) {
    coordinates[0] = point.x;
    coordinates[1] = point.y;
    coordinates[2] = point.z;
}
