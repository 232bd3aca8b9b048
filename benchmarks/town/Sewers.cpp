#include "town/Runs.h"
#include "town/SpanningTree.h"

#include <cmath>
#include <numbers>

namespace benchmark_town {

namespace {

constexpr double kPitch = 30.0;
constexpr double kJitter = 4.0;
/// From the centre of a well to the end of a pipe: the rim.
constexpr double kRim = 0.5;
constexpr double kDeadEndLength = 6.0;
constexpr double kArcBulge = 0.08;

/// How many wells drain through each place, itself included.
std::vector<std::size_t> drained(const SpanningTree& tree) {
    std::vector<std::size_t> counts(tree.places.size(), 1);
    for (std::size_t i = tree.order.size(); i > 1; --i) {
        const std::size_t place = tree.order[i - 1];
        counts[static_cast<std::size_t>(tree.parents[place])] += counts[place];
    }
    return counts;
}

int diameterFor(std::size_t wells) {
    if (wells < 10) {
        return 300;
    }
    if (wells < 100) {
        return 400;
    }
    return wells < 1000 ? 600 : 1000;
}

/// Heights of the pipes' ends at the wells, rising from the root.
std::vector<double> heights(const SpanningTree& tree) {
    std::vector<double> result(tree.places.size(), 0.0);
    for (const std::size_t place : tree.order) {
        if (tree.parents[place] != SpanningTree::kNone) {
            const auto parent = static_cast<std::size_t>(tree.parents[place]);
            result[place] =
                result[parent] + kSlope * distance(tree.places[place], tree.places[parent]);
        }
    }
    return result;
}

std::size_t piecesOf(Chance& chance) {
    const std::size_t dice = chance.below(10);
    if (dice < 6) {
        return 1;
    }
    return dice < 9 ? 2 : 3;
}

void addRun(Town& town, const Run& run, FreeEnds& ends, Chance& chance) {
    const std::size_t pieces = addPieces(town, run, piecesOf(chance), ends, chance);
    if (pieces == 1 && chance.percent(8)) {
        town.pipes.back().bulge = chance.percent(50) ? kArcBulge : -kArcBulge;
    }
}

/// A pipe that leaves a well half way between the directions of the grid and ends in the ground.
void addDeadEnd(Town& town, const TownWell& well, double height, FreeEnds& ends, Chance& chance) {
    const double turn = std::numbers::pi * (0.125 + 0.25 * static_cast<double>(chance.below(8)));
    const Place away{well.place.x + std::cos(turn), well.place.y + std::sin(turn)};
    const Run run{well.system, towards(well.place, away, kRim + kDeadEndLength),
                  towards(well.place, away, kRim), height + kSlope * kDeadEndLength, 300};
    if (ends.hasRoomAt(run.from)) {
        ends.add(run.from);
        addPiece(town, run, 0.0, kDeadEndLength, isTurned(chance));
    }
}

/// A system whose wells stand and whose pipes are still to be laid.
struct Ground {
    System system;
    SpanningTree tree;
    std::size_t firstWell;
};

/// @param origin where the grid of the wells begins.
Ground standWells(Town& town, System system, std::size_t count, Place origin, FreeEnds& ends,
                  Chance& chance) {
    Ground ground{system, growTree(count, kPitch, kJitter, true, chance), town.wells.size()};
    for (std::size_t i = 0; i < count; ++i) {
        Place& place = ground.tree.places[i];
        place = {place.x + origin.x, place.y + origin.y};
        TownWell well;
        well.system = system;
        well.place = place;
        well.radius = kRim;
        well.number = (system == System::kFoul ? "W" : "Y") + std::to_string(i + 1);
        if (ground.tree.parents[i] != SpanningTree::kNone) {
            well.parent = static_cast<int>(ground.firstWell) + ground.tree.parents[i];
        }
        town.wells.push_back(well);
        ends.add(place);
    }
    return ground;
}

void layPipes(Town& town, const Ground& ground, FreeEnds& ends, Chance& chance) {
    const SpanningTree& tree = ground.tree;
    const std::vector<std::size_t> wellsThrough = drained(tree);
    const std::vector<double> levels = heights(tree);
    const std::size_t count = tree.places.size();
    TownSystem truth{
        ground.system, false, ground.firstWell, tree.places[0], 0, count, count - 1, 0, 0};
    for (const std::size_t i : tree.order) {
        if (tree.parents[i] != SpanningTree::kNone) {
            const Place from = tree.places[i];
            const Place to = tree.places[static_cast<std::size_t>(tree.parents[i])];
            truth.farPipe = town.pipes.size(); // the last place is one of the farthest
            addRun(town,
                   {ground.system, towards(from, to, kRim), towards(to, from, kRim), levels[i],
                    diameterFor(wellsThrough[i])},
                   ends, chance);
        }
        if (chance.percent(3)) {
            addDeadEnd(town, town.wells[ground.firstWell + i], levels[i], ends, chance);
        }
    }
    town.systems.push_back(truth);
}

} // namespace

Town laySewers(std::size_t wells, bool twin, std::uint64_t seed) {
    // The second grid lies off the first by so much that wells keep seven metres apart.
    constexpr Place first{1000.0, 1000.0};
    constexpr Place second{1015.0, 1009.0};
    const std::size_t ofSecond = twin ? wells / 2 : 0;
    Chance chance(seed);
    Town town;
    FreeEnds ends;
    std::vector<Ground> grounds;
    grounds.push_back(standWells(town, System::kFoul, wells - ofSecond, first, ends, chance));
    if (twin) {
        grounds.push_back(standWells(town, System::kStorm, ofSecond, second, ends, chance));
    }
    for (const Ground& ground : grounds) {
        layPipes(town, ground, ends, chance);
    }
    shuffleOrder(town, chance);
    return town;
}

} // namespace benchmark_town
