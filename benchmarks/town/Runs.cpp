#include "town/Runs.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace benchmark_town {

namespace {

std::uint64_t cellOf(const Place& place) {
    const auto column = static_cast<std::uint32_t>(static_cast<std::int64_t>(std::floor(place.x)));
    const auto row = static_cast<std::uint32_t>(static_cast<std::int64_t>(std::floor(place.y)));
    return (static_cast<std::uint64_t>(column) << 32U) | row;
}

} // namespace

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

bool FreeEnds::hasRoomAt(const Place& place) const {
    for (const double dx : {-1.0, 0.0, 1.0}) {
        for (const double dy : {-1.0, 0.0, 1.0}) {
            if (cells_.count(cellOf({place.x + dx, place.y + dy})) != 0) {
                return false;
            }
        }
    }
    return true;
}

void FreeEnds::add(const Place& place) {
    cells_.insert(cellOf(place));
}

std::size_t addPieces(Town& town, const Run& run, std::size_t pieces, const Gaps& gaps,
                      FreeEnds& ends, Chance& chance) {
    const double length = distance(run.from, run.to);
    std::vector<double> cuts; // where pieces end and begin by turns
    for (std::size_t piece = 1; piece < pieces; ++piece) {
        const double cut = length * (static_cast<double>(piece) + chance.between(-0.1, 0.1)) /
                           static_cast<double>(pieces);
        cuts.push_back(cut);
        cuts.push_back(cut + chance.between(gaps.least, gaps.most));
    }
    const bool hasRoom = std::all_of(cuts.begin(), cuts.end(), [&](double cut) {
        return ends.hasRoomAt(towards(run.from, run.to, cut));
    });
    if (!hasRoom) {
        cuts.clear();
    }
    double begin = 0.0;
    for (std::size_t i = 0; i < cuts.size(); i += 2) {
        addPiece(town, run, begin, cuts[i], isTurned(chance));
        ends.add(towards(run.from, run.to, cuts[i]));
        ends.add(towards(run.from, run.to, cuts[i + 1]));
        begin = cuts[i + 1];
    }
    addPiece(town, run, begin, length, isTurned(chance));
    return cuts.size() / 2 + 1;
}

void shuffleOrder(Town& town, Chance& chance) {
    town.order.resize(town.wells.size() + town.pipes.size());
    std::iota(town.order.begin(), town.order.end(), std::size_t{0});
    chance.shuffle(town.order);
}

} // namespace benchmark_town
