#pragma once

#include "town/Chance.h"
#include "town/Town.h"

#include <cstddef>

namespace benchmark_town {

inline constexpr double kSlope = 0.003;

double distance(const Place& a, const Place& b);

/// The place `length` metres from `a` towards `b`.
Place towards(const Place& a, const Place& b, double length);

/// A straight run between two places, down which the water flows from `from` to `to`.
struct Run {
    System system;
    Place from;
    Place to;
    double fromHeight; ///< metres
    int diameter;      ///< millimetres
};

/// Whether a pipe is drawn against the water, as two in five are.
bool isTurned(Chance& chance);

/// Adds the piece of a run between two distances from its upper end.
/// @param turned drawn against the water.
void addPiece(Town& town, const Run& run, double begin, double end, bool turned);

/// Adds the whole run in `pieces` pieces, with gaps of 0.1 to 0.3 metres between them.
void addPieces(Town& town, const Run& run, std::size_t pieces, Chance& chance);

/// Shuffles the drawing order of all that stands in the town.
void shuffleOrder(Town& town, Chance& chance);

} // namespace benchmark_town
