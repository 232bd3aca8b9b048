#pragma once

#include "town/Chance.h"
#include "town/Town.h"

#include <cstddef>
#include <vector>

namespace benchmark_town {

/// A random tree over places on a grid.
struct SpanningTree {
    static constexpr int kNone = -1;

    std::vector<Place> places;
    std::vector<int> parents;       ///< none for place 0, the root
    std::vector<std::size_t> order; ///< from the root outward, each place behind its parent
};

/// Lays `count` places row by row on a square grid, each moved by up to `jitter` along both axes,
/// and joins neighbours at random into one tree; neighbours across a corner too when `diagonals`.
SpanningTree growTree(std::size_t count, double pitch, double jitter, bool diagonals,
                      Chance& chance);

} // namespace benchmark_town
