#pragma once

/// The caller's tolerance: how far apart two points may be and still meet (`equalPoint`, drawing
/// units) and by how much two directions may differ and still agree (`equalVector`, radians).
/// Both start at 1e-10. Rounding of large coordinates is a matter of its own, see
/// RoundingNoise.h.
class AcGeTol {
public:
    constexpr AcGeTol() = default;

    double equalPoint() const { return equalPoint_; }
    double equalVector() const { return equalVector_; }
    AcGeTol& setEqualPoint(double distance) {
        equalPoint_ = distance;
        return *this;
    }
    AcGeTol& setEqualVector(double angle) {
        equalVector_ = angle;
        return *this;
    }

private:
    double equalPoint_ = 1.0e-10;
    double equalVector_ = 1.0e-10;
};

/// Settings that the platform keeps once for the process.
struct AcGeContext {
    /// Tolerance of every operation that is given none. The platform lets a caller change it.
    static AcGeTol gTol;
};
