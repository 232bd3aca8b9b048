#include "town/Runs.h"

#include <numeric>

namespace benchmark_town {

namespace {

void addPipe(Town& town, Place start, Place end, double bulge = 0.0,
             System system = System::kFoul) {
    TownPipe pipe;
    pipe.system = system;
    pipe.start = start;
    pipe.end = end;
    pipe.bulge = bulge;
    pipe.startHeight = 100.0;
    pipe.endHeight = 100.0;
    town.pipes.push_back(pipe);
}

/// Lines cross at less than eighteen degrees, or no chain would turn into another one.
void addShallow(Town& town, std::size_t side) {
    const double rise = static_cast<double>(side) + 10.0;
    const double length = 15.0 * rise;
    for (std::size_t i = 0; i < side; ++i) {
        const auto y = static_cast<double>(i);
        addPipe(town, {0.0, y}, {length, y + rise});
    }
    for (std::size_t i = 0; i < side; ++i) {
        const auto y = static_cast<double>(i);
        addPipe(town, {0.0, y + rise}, {length, y});
    }
}

/// Each pipe reaches five metres beyond its first and last crossing.
void addSquare(Town& town, std::size_t side) {
    constexpr double pitch = 10.0;
    constexpr double near = -5.0;
    const double far = pitch * static_cast<double>(side) - 5.0;
    for (std::size_t i = 0; i < side; ++i) {
        const double at = pitch * static_cast<double>(i);
        addPipe(town, {near, at}, {far, at}, 0.0, System::kWater);
        addPipe(town, {at, near}, {at, far}, 0.0, System::kWater);
    }
}

void addArcs(Town& town, std::size_t side) {
    constexpr double pitch = 10.0;
    constexpr double bulge = 0.1;
    const auto at = [](std::size_t x, std::size_t y) {
        return Place{pitch * static_cast<double>(x), pitch * static_cast<double>(y)};
    };
    for (std::size_t x = 0; x < side; ++x) {
        for (std::size_t y = 0; y < side; ++y) {
            if (x + 1 < side) {
                addPipe(town, at(x, y), at(x + 1, y), bulge);
            }
            if (y + 1 < side) {
                addPipe(town, at(x, y), at(x, y + 1), -bulge);
            }
        }
    }
}

/// Nothing is shuffled here: these drawings are looked at by people.
void finish(Town& town, const TownSystem& truth) {
    town.systems.push_back(truth);
    town.order.resize(town.wells.size() + town.pipes.size());
    std::iota(town.order.begin(), town.order.end(), std::size_t{0});
}

} // namespace

Town layGrid(GridKind kind, std::size_t side, bool corner) {
    Town town;
    switch (kind) {
    case GridKind::kShallow:
        addShallow(town, side);
        break;
    case GridKind::kSquare:
        addSquare(town, side);
        break;
    case GridKind::kArcs:
        addArcs(town, side);
        break;
    }
    if (corner) {
        TownWell well;
        well.system = town.pipes.front().system;
        well.place = town.pipes.front().start;
        well.number = "W1";
        town.wells.push_back(well);
    }
    finish(town, {town.pipes.front().system, !corner, 0, town.pipes.front().start,
                  town.pipes.size() - 1, 0, 0, 0, 0});
    return town;
}

Town layPipes(std::size_t count) {
    constexpr std::size_t columns = 1000;
    Town town;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row = i / columns;
        const double x = 40.0 * static_cast<double>(i % columns);
        const double y = 5.0 * static_cast<double>(row);
        addPipe(town, {x, y}, {x + 30.0, y + 1.0});
    }
    finish(town, {System::kFoul, true, 0, town.pipes.front().start, 0, 0, 0, 0, 0});
    return town;
}

} // namespace benchmark_town
