#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace tkvlt {

/// The middle one of the reaches that are finite and positive, of two the larger; 0.0 for none.
///
/// What is laid out for the usual well or pipe goes by this and not by the largest: a diameter in
/// the wrong unit makes one well a thousand times as wide as the others. Linear.
inline double MedianReach(std::vector<double> reaches) {
    const auto isUnusable = [](double reach) { return !(std::isfinite(reach) && reach > 0.0); };
    reaches.erase(std::remove_if(reaches.begin(), reaches.end(), isUnusable), reaches.end());
    if (reaches.empty()) {
        return 0.0;
    }
    const auto middle = reaches.begin() + static_cast<std::ptrdiff_t>(reaches.size() / 2);
    std::nth_element(reaches.begin(), middle, reaches.end());
    return *middle;
}

} // namespace tkvlt
