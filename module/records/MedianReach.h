#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tkvlt {

/// The middle one of the reaches that are finite and positive, of two the larger; 0.0 for none. Of
/// many reaches it is that of a sample strewn over them.
///
/// What is laid out for the usual well or pipe goes by this and not by the largest: a diameter in
/// the wrong unit makes one well a thousand times as wide as the others.
///
/// @param count below 2^32.
/// @param reachOf gives the reach of one of `count`.
template<class ReachOf>
double MedianReach(std::size_t count, ReachOf reachOf) {
    constexpr std::size_t sample = 1000;
    constexpr std::uint64_t strewing = 0x9E3779B97F4A7C15ULL;
    constexpr int half = 32;
    std::vector<double> reaches;
    for (std::uint64_t i = 0; i < std::min(count, sample); ++i) {
        const std::uint64_t place = count <= sample ? i : ((i * strewing >> half) * count) >> half;
        const double reach = reachOf(static_cast<std::size_t>(place));
        if (std::isfinite(reach) && reach > 0.0) {
            reaches.push_back(reach);
        }
    }
    if (reaches.empty()) {
        return 0.0;
    }
    const auto middle = reaches.begin() + static_cast<std::ptrdiff_t>(reaches.size() / 2);
    std::nth_element(reaches.begin(), middle, reaches.end());
    return *middle;
}

} // namespace tkvlt
