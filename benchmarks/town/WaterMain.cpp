#include "town/Runs.h"
#include "town/SpanningTrees.h"

namespace benchmark_town {

namespace {

constexpr Lattice kCorners{30.0, 4.0, false};
/// Street pipes stop so far from the centre of the valve well at a corner.
constexpr double kFromCorner = 0.1;
constexpr double kConnection = 4.0;
constexpr double kOriginX = 1000.0;
constexpr double kOriginY = 1000.0;
constexpr double kPressureHeight = 95.0;

void addWell(Town& town, Place place, double radius, const char* block) {
    TownWell well;
    well.system = System::kWater;
    well.place = place;
    well.radius = radius;
    well.block = block;
    well.number = "J" + std::to_string(town.wells.size() + 1);
    town.wells.push_back(well);
}

/// A pipe at right angles to a street, from a place on it, with a meter well at its end.
void addConnection(Town& town, const Run& street, double at, Chance& chance) {
    const double length = distance(street.from, street.to);
    const double side = chance.percent(50) ? kConnection : -kConnection;
    const Place on = towards(street.from, street.to, at);
    const Place house{on.x - (street.to.y - street.from.y) / length * side,
                      on.y + (street.to.x - street.from.x) / length * side};
    addPiece(town, {System::kWater, on, house, street.fromHeight - kSlope * at, 50}, 0.0,
             kConnection, isTurned(chance));
    addWell(town, house, 0.3, "VLT_WELL_15");
}

/// A street from a corner of the tree to the next, or the feed of its first corner. The gap between
/// its pieces lies before the house connection.
void addStreet(Town& town, Place from, Place to, Chance& chance) {
    const double length = distance(from, to) - kFromCorner;
    const Run street{System::kWater, from, towards(from, to, length), kPressureHeight, 200};
    if (chance.percent(40)) {
        const double gap = length * chance.between(0.25, 0.4);
        // A run that goes on in another piece is walked on from its end as drawn.
        addPiece(town, street, kFromCorner, gap, false);
        addPiece(town, street, gap + chance.between(0.1, 0.3), length, isTurned(chance));
    } else {
        addPiece(town, street, kFromCorner, length, isTurned(chance));
    }
    addConnection(town, street, length * chance.between(0.5, 0.65), chance);
    addWell(town, to, 0.5, "VLT_WELL_05");
}

} // namespace

Town layWaterMain(std::size_t wells, std::uint64_t seed) {
    Chance chance(seed);
    const std::size_t corners = wells / 2;
    const SpanningTrees tree = growTrees(corners, kCorners, 1, chance);
    const auto shifted = [&](std::size_t place) {
        return Place{tree.places[place].x + kOriginX, tree.places[place].y + kOriginY};
    };
    Town town;
    TownSystem truth{System::kWater, true, 0, {}, 0, 0, 3 * corners, corners, corners};
    for (const std::size_t i : tree.order) {
        const Place to = shifted(i);
        truth.farPipe = town.pipes.size();
        if (tree.parents[i] != SpanningTrees::kNone) {
            addStreet(town, shifted(static_cast<std::size_t>(tree.parents[i])), to, chance);
            continue;
        }
        const Place source{to.x - 0.9 * kCorners.pitch, to.y - 1.0};
        truth.point = towards(source, to, kFromCorner);
        addStreet(town, source, to, chance);
    }
    town.systems.push_back(truth);
    shuffleOrder(town, chance);
    return town;
}

} // namespace benchmark_town
