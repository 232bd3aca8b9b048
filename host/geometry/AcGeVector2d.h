#pragma once

#include "geometry/AcGeTol.h"

/// A direction and length in the plane, drawing units.
class AcGeVector2d {
public:
    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    AcGeVector2d& set(double xx, double yy) {
        x = xx;
        y = yy;
        return *this;
    }
    double length() const;
    double lengthSqrd() const { return x * x + y * y; }
    /// Angle from the X axis counter-clockwise, 0 to 2 pi (2 pi excluded); 0 for no length.
    double angle() const;
    /// Angle between the two, 0 to pi.
    double angleTo(const AcGeVector2d& other) const;
    /// The vector turned by a right angle counter-clockwise.
    AcGeVector2d perpVector() const { return {-y, x}; }
    /// The unit vector of this direction; the vector itself if it has no length within `tol`.
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    AcGeVector2d& negate() { return set(-x, -y); }
    /// Turns the vector counter-clockwise by `angle` radians.
    AcGeVector2d& rotateBy(double angle);
    double dotProduct(const AcGeVector2d& other) const { return x * other.x + y * other.y; }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const {
        return length() <= tol.equalVector();
    }
    bool isEqualTo(const AcGeVector2d& other, const AcGeTol& tol = AcGeContext::gTol) const;

    friend AcGeVector2d operator+(const AcGeVector2d& a, const AcGeVector2d& b) {
        return {a.x + b.x, a.y + b.y};
    }
    friend AcGeVector2d operator-(const AcGeVector2d& a, const AcGeVector2d& b) {
        return {a.x - b.x, a.y - b.y};
    }
    AcGeVector2d operator-() const { return {-x, -y}; }
    friend AcGeVector2d operator*(const AcGeVector2d& v, double s) { return {v.x * s, v.y * s}; }
    friend AcGeVector2d operator*(double s, const AcGeVector2d& v) { return v * s; }
    friend AcGeVector2d operator/(const AcGeVector2d& v, double s) { return {v.x / s, v.y / s}; }
    friend bool operator==(const AcGeVector2d& a, const AcGeVector2d& b) { return a.isEqualTo(b); }

    static const AcGeVector2d kIdentity;
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    double x = 0.0;
    double y = 0.0;
};
