#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace benchmark_town {

/// A place in plan, metres.
struct Place {
    double x = 0.0;
    double y = 0.0;
};

/// The pipe systems of the towns, as the settings of the examples know them.
enum class System { kFoul, kStorm, kWater };

/// The name of a system in the drawing, UTF-8.
const char* systemName(System system);

/// A well and what is true of it.
struct TownWell {
    static constexpr int kNone = -1;

    System system = System::kFoul;
    Place place;
    double radius = 0.5;
    int parent = kNone; ///< index of the well that its water runs to; none for a root, and in a
                        ///< water main
    const char* block = "VLT_WELL_01";
    std::string number;
};

/// One drawn pipe.
struct TownPipe {
    System system = System::kFoul;
    Place start;
    Place end;
    double bulge = 0.0; ///< of an arc, which is drawn as a polyline; 0 for a line
    double startHeight = 0.0;
    double endHeight = 0.0;
    double slope = 0.0;
    int diameter = 300;
    bool flowsToEnd = true;
};

/// One system of a town: where a search begins and what it must find.
struct TownSystem {
    System system = System::kFoul;
    bool startsAtPipe = false; ///< else `start` is a well
    std::size_t start = 0;
    Place point;              ///< the place of the start
    std::size_t farPipe = 0;  ///< a pipe as far from the start as there is
    std::size_t nodes = 0;    ///< wells of the gravity tree; 0 for a water main
    std::size_t segments = 0; ///< of the network
    std::size_t valves = 0;
    std::size_t meters = 0;
};

/// What stands in a drawing, and in which order.
struct Town {
    std::vector<TownWell> wells;
    std::vector<TownPipe> pipes;
    std::vector<TownSystem> systems;
    /// Drawing order: a number below the count of wells is that well, else a pipe behind it.
    std::vector<std::size_t> order;
};

/// Handles count up from here: the wells, then the pipes, whatever the drawing order.
inline constexpr std::uint64_t kFirstHandle = 0x1000;

std::string wellHandle(std::size_t well);
std::string pipeHandle(const Town& town, std::size_t pipe);

/// Sewers of `wells` wells: random trees on a jittered grid of thirty metres. Pipes end at the rims
/// of the wells; runs are drawn in one to three pieces with gaps of 0.1 to 0.3 metres, some as
/// arcs; dead ends lead nowhere; pipes are turned and the drawing order is shuffled. With `twin` a
/// second system of half the wells lies among the first one's and crosses it. The same for the same
/// seed.
Town laySewers(std::size_t wells, bool twin, std::uint64_t seed);

/// Sewers of one system in five networks: laid as those above, but forty metres apart, with gaps of
/// 0.2 metres, and the wells, at least five, fall into five random trees that grew at once from
/// random places. They are of different size and grow into one another, but nothing joins them and
/// none crosses another. The town's one system is the first of them. The same for the same seed.
Town layDistricts(std::size_t wells, std::uint64_t seed);

/// A water main with `wells` wells (an even number, at least 4): a random tree of streets without a
/// loop, a valve well at each corner, and from the middle of each street a house connection with a
/// meter well at its end. Streets are drawn in one or two pieces with a gap.
Town layWaterMain(std::size_t wells, std::uint64_t seed);

/// How the pipes of a grid lie.
enum class GridKind {
    kShallow, ///< `side` rising and `side` falling lines, each of which crosses all of the others
    kSquare,  ///< `side` streets and `side` avenues of a water main, ten metres apart
    kArcs,    ///< `side` by `side` places ten metres apart, neighbours joined by arcs
};

/// Pipes that cross in a grid and lead nowhere; with `corner` a well lies at the first one's start.
Town layGrid(GridKind kind, std::size_t side, bool corner);

/// `count` pipes without a well, side by side.
Town layPipes(std::size_t count);

} // namespace benchmark_town
