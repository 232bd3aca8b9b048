#pragma once

#include "town/Chance.h"
#include "town/Town.h"

#include <cstddef>
#include <unordered_set>

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

/// Wells, and ends of pipes that lie in none. Such ends keep a metre from wells and from the ends
/// of other runs, so that the truth of a town is the only way to join them, for those too who look
/// at nothing but places.
class FreeEnds {
public:
    /// Whether nothing lies within a metre.
    bool hasRoomAt(const Place& place) const;
    void add(const Place& place);

private:
    std::unordered_set<std::uint64_t> cells_; ///< squares of one metre that hold something
};

/// How wide the gaps between the pieces of a run are, metres.
struct Gaps {
    double least;
    double most;
};

/// Adds the whole run in `pieces` pieces with gaps between them; in one piece where a gap would
/// come too near to the ends of others.
/// @return the number of pieces.
std::size_t addPieces(Town& town, const Run& run, std::size_t pieces, const Gaps& gaps,
                      FreeEnds& ends, Chance& chance);

/// Shuffles the drawing order of all that stands in the town.
void shuffleOrder(Town& town, Chance& chance);

} // namespace benchmark_town
