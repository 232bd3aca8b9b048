#include "town/Runs.h"
#include "town/SpanningTrees.h"

#include <cmath>
#include <numbers>

namespace benchmark_town {

namespace {

/// How a sewer system is laid.
struct Manner {
    Lattice wells;
    std::size_t networks; ///< trees that nothing joins
    std::size_t inTwo;    ///< of ten runs, in so many pieces
    std::size_t inThree;
    Gaps gaps;
};

constexpr Manner kOneNetwork{{30.0, 4.0, true}, 1, 3, 1, {0.1, 0.3}};
constexpr Manner kDistricts{{40.0, 6.0, true}, 5, 2, 1, {0.2, 0.2}};

/// From the centre of a well to the end of a pipe: the rim.
constexpr double kRim = 0.5;
constexpr double kDeadEndLength = 6.0;
constexpr double kArcBulge = 0.08;

/// How many wells drain through each place, itself included.
std::vector<std::size_t> drained(const SpanningTrees& trees) {
    std::vector<std::size_t> counts(trees.places.size(), 1);
    for (auto place = trees.order.rbegin(); place != trees.order.rend(); ++place) {
        if (trees.parents[*place] != SpanningTrees::kNone) {
            counts[static_cast<std::size_t>(trees.parents[*place])] += counts[*place];
        }
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

/// Heights of the pipes' ends at the wells, rising from the roots.
std::vector<double> heights(const SpanningTrees& trees) {
    std::vector<double> result(trees.places.size(), 0.0);
    for (const std::size_t place : trees.order) {
        if (trees.parents[place] != SpanningTrees::kNone) {
            const auto parent = static_cast<std::size_t>(trees.parents[place]);
            result[place] =
                result[parent] + kSlope * distance(trees.places[place], trees.places[parent]);
        }
    }
    return result;
}

std::size_t piecesOf(const Manner& manner, Chance& chance) {
    const std::size_t dice = chance.below(10);
    if (dice >= 10 - manner.inThree) {
        return 3;
    }
    return dice >= 10 - manner.inThree - manner.inTwo ? 2 : 1;
}

void addRun(Town& town, const Run& run, const Manner& manner, FreeEnds& ends, Chance& chance) {
    const std::size_t pieces =
        addPieces(town, run, piecesOf(manner, chance), manner.gaps, ends, chance);
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

/// Where and how a system is to be laid.
struct Plan {
    System system;
    const Manner& manner;
    std::size_t wells;
    Place origin; ///< where the grid of the wells begins
};

/// A system whose wells stand and whose pipes are still to be laid.
struct Ground {
    Plan plan;
    SpanningTrees trees;
    std::size_t firstWell;
};

Ground standWells(Town& town, const Plan& plan, FreeEnds& ends, Chance& chance) {
    const Manner& manner = plan.manner;
    Ground ground{plan, growTrees(plan.wells, manner.wells, manner.networks, chance),
                  town.wells.size()};
    for (std::size_t i = 0; i < plan.wells; ++i) {
        Place& place = ground.trees.places[i];
        place = {place.x + plan.origin.x, place.y + plan.origin.y};
        TownWell well;
        well.system = plan.system;
        well.place = place;
        well.radius = kRim;
        well.number = (plan.system == System::kFoul ? "W" : "Y") + std::to_string(i + 1);
        if (ground.trees.parents[i] != SpanningTrees::kNone) {
            well.parent = static_cast<int>(ground.firstWell) + ground.trees.parents[i];
        }
        town.wells.push_back(well);
        ends.add(place);
    }
    return ground;
}

/// The search of the first tree, but for the far pipe.
TownSystem truthOf(const Ground& ground) {
    const std::size_t root = ground.trees.roots.front();
    TownSystem truth;
    truth.system = ground.plan.system;
    truth.start = ground.firstWell + root;
    truth.point = ground.trees.places[root];
    truth.nodes = ground.trees.firstSize;
    truth.segments = truth.nodes - 1;
    return truth;
}

void layPipes(Town& town, const Ground& ground, FreeEnds& ends, Chance& chance) {
    const SpanningTrees& trees = ground.trees;
    const std::vector<std::size_t> wellsThrough = drained(trees);
    const std::vector<double> levels = heights(trees);
    TownSystem truth = truthOf(ground);
    for (std::size_t next = 0; next < trees.order.size(); ++next) {
        const std::size_t i = trees.order[next];
        if (trees.parents[i] != SpanningTrees::kNone) {
            if (next < trees.firstSize) {
                truth.farPipe = town.pipes.size(); // the last place is one of the farthest
            }
            const Place from = trees.places[i];
            const Place to = trees.places[static_cast<std::size_t>(trees.parents[i])];
            addRun(town,
                   {ground.plan.system, towards(from, to, kRim), towards(to, from, kRim), levels[i],
                    diameterFor(wellsThrough[i])},
                   ground.plan.manner, ends, chance);
        }
        if (chance.percent(3)) {
            addDeadEnd(town, town.wells[ground.firstWell + i], levels[i], ends, chance);
        }
    }
    town.systems.push_back(truth);
}

Town lay(const std::vector<Plan>& plans, std::uint64_t seed) {
    Chance chance(seed);
    Town town;
    FreeEnds ends;
    std::vector<Ground> grounds;
    grounds.reserve(plans.size());
    for (const Plan& plan : plans) {
        grounds.push_back(standWells(town, plan, ends, chance));
    }
    for (const Ground& ground : grounds) {
        layPipes(town, ground, ends, chance);
    }
    shuffleOrder(town, chance);
    return town;
}

constexpr Place kOrigin{1000.0, 1000.0};
/// Off the first grid by so much that wells keep seven metres apart.
constexpr Place kSecondOrigin{1015.0, 1009.0};

} // namespace

Town laySewers(std::size_t wells, bool twin, std::uint64_t seed) {
    const std::size_t ofSecond = twin ? wells / 2 : 0;
    std::vector<Plan> plans{{System::kFoul, kOneNetwork, wells - ofSecond, kOrigin}};
    if (twin) {
        plans.push_back({System::kStorm, kOneNetwork, ofSecond, kSecondOrigin});
    }
    return lay(plans, seed);
}

Town layDistricts(std::size_t wells, std::uint64_t seed) {
    return lay({{System::kFoul, kDistricts, wells, kOrigin}}, seed);
}

} // namespace benchmark_town
