#pragma once

#include "geometry/AcGeTol.h"

/// Factors along three axes; negative ones mirror.
class AcGeScale3d {
public:
    constexpr AcGeScale3d() = default;
    explicit constexpr AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    AcGeScale3d& set(double x, double y, double z) {
        sx = x;
        sy = y;
        sz = z;
        return *this;
    }
    /// Whether the factors agree in size within `equalVector`; their signs may differ.
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Whether no factor differs by more than `equalVector`.
    bool isEqualTo(const AcGeScale3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeScale3d inverse() const { return {1.0 / sx, 1.0 / sy, 1.0 / sz}; }

    friend AcGeScale3d operator*(const AcGeScale3d& a, const AcGeScale3d& b) {
        return {a.sx * b.sx, a.sy * b.sy, a.sz * b.sz};
    }
    friend bool operator==(const AcGeScale3d& a, const AcGeScale3d& b) { return a.isEqualTo(b); }

    static const AcGeScale3d kIdentity;

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};
