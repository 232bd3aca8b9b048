#pragma once

#include "geometry/AcGeVector2d.h"

/// A place in the plane, drawing units.
class AcGePoint2d {
public:
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    AcGePoint2d& set(double xx, double yy) {
        x = xx;
        y = yy;
        return *this;
    }
    double distanceTo(const AcGePoint2d& other) const;
    AcGeVector2d asVector() const { return {x, y}; }
    /// Whether the points meet: within `equalPoint` or rounding noise, whichever is greater.
    bool isEqualTo(const AcGePoint2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Turns the point about `origin` counter-clockwise by `angle` radians.
    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& origin = kOrigin);

    friend AcGePoint2d operator+(const AcGePoint2d& p, const AcGeVector2d& v) {
        return {p.x + v.x, p.y + v.y};
    }
    friend AcGePoint2d operator-(const AcGePoint2d& p, const AcGeVector2d& v) {
        return {p.x - v.x, p.y - v.y};
    }
    friend AcGeVector2d operator-(const AcGePoint2d& a, const AcGePoint2d& b) {
        return {a.x - b.x, a.y - b.y};
    }
    friend AcGePoint2d operator*(const AcGePoint2d& p, double s) { return {p.x * s, p.y * s}; }
    friend AcGePoint2d operator*(double s, const AcGePoint2d& p) { return p * s; }
    friend bool operator==(const AcGePoint2d& a, const AcGePoint2d& b) { return a.isEqualTo(b); }

    static const AcGePoint2d kOrigin;

    double x = 0.0;
    double y = 0.0;
};
