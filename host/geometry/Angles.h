#pragma once

#include <cmath>
#include <numbers>

namespace host_geometry {

inline constexpr double twoPi = 2.0 * std::numbers::pi;

/// The angle brought to 0 to 2 pi, 2 pi excluded; radians.
inline double withinTurn(double angle) {
    double rest = std::fmod(angle, twoPi);
    if (rest < 0.0) {
        rest += twoPi;
    }
    // A tiny negative rest rounds up to the whole turn.
    return rest < twoPi ? rest : 0.0;
}

} // namespace host_geometry
