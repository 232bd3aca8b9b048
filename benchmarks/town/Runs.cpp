#include "town/Runs.h"

#include <cmath>
#include <numeric>
#include <utility>

namespace benchmark_town {

double distance(const Place& a, const Place& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

Place towards(const Place& a, const Place& b, double length) {
    const double part = length / distance(a, b);
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

bool isTurned(Chance& chance) {
    return chance.percent(40);
}

void addPiece(Town& town, const Run& run, double begin, double end, bool turned) {
    TownPipe pipe;
    pipe.system = run.system;
    pipe.start = towards(run.from, run.to, begin);
    pipe.end = towards(run.from, run.to, end);
    pipe.startHeight = run.fromHeight - kSlope * begin;
    pipe.endHeight = run.fromHeight - kSlope * end;
    pipe.slope = kSlope;
    pipe.diameter = run.diameter;
    if (turned) {
        std::swap(pipe.start, pipe.end);
        std::swap(pipe.startHeight, pipe.endHeight);
        pipe.flowsToEnd = false;
    }
    town.pipes.push_back(pipe);
}

void addPieces(Town& town, const Run& run, std::size_t pieces, Chance& chance) {
    const double length = distance(run.from, run.to);
    double begin = 0.0;
    for (std::size_t piece = 1; piece < pieces; ++piece) {
        const double cut = length * (static_cast<double>(piece) + chance.between(-0.1, 0.1)) /
                           static_cast<double>(pieces);
        addPiece(town, run, begin, cut, isTurned(chance));
        begin = cut + chance.between(0.1, 0.3);
    }
    addPiece(town, run, begin, length, isTurned(chance));
}

void shuffleOrder(Town& town, Chance& chance) {
    town.order.resize(town.wells.size() + town.pipes.size());
    std::iota(town.order.begin(), town.order.end(), std::size_t{0});
    chance.shuffle(town.order);
}

} // namespace benchmark_town
