#pragma once

#include "town/Chance.h"
#include "town/Town.h"

#include <cstddef>
#include <vector>

namespace benchmark_town {

/// How the places of a grid lie.
struct Lattice {
    double pitch;   ///< metres from row to row and from column to column
    double jitter;  ///< metres by which each place is moved at most, along both axes
    bool diagonals; ///< whether places across a corner are neighbours too
};

/// Random trees over places on a grid; each place belongs to one of them.
struct SpanningTrees {
    static constexpr int kNone = -1;

    std::vector<Place> places;
    std::vector<int> parents;       ///< none for a root
    std::vector<std::size_t> roots; ///< of each tree
    /// Tree by tree from the root outward, each place behind its parent.
    std::vector<std::size_t> order;
    std::size_t firstSize = 0; ///< so many places belong to the first tree
};

/// Lays `count` places row by row on a square grid and joins neighbours at random into `trees`
/// trees, at most one for each place. One tree has its root at place 0. More have theirs at random
/// places, at the same parts of the grid whatever its size for the same seed, and grow all at once;
/// no two of them cross.
SpanningTrees growTrees(std::size_t count, const Lattice& lattice, std::size_t trees,
                        Chance& chance);

} // namespace benchmark_town
