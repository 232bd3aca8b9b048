#pragma once

#include <algorithm>
#include <limits>

namespace tkvlt {

/// The nearest `float`; beyond the largest, that one. Of two numbers the smaller one never becomes
/// the larger.
inline float ToFloat(double number) {
    constexpr double largest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number, -largest, largest));
}

} // namespace tkvlt
