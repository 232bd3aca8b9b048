#include "gravity/ChainOutlook.h"

#include <algorithm>
#include <cstddef>

#include "gravity/GravityNetworkSearch.h"

namespace tkvlt {

namespace {

/// So often a route is looked for behind one branch. Each time one more place is left out, and a
/// drawing needs this a few times at most.
constexpr int kMostRoutes = 256;

} // namespace

ChainOutlook::ChainOutlook(GravityNetworkSearch& search) : search_(search) {}

bool ChainOutlook::MayEnd(const ChainBranch& branch) {
    const int start = PlaceOf(branch);
    if (!route_.empty() && route_.back() == start) {
        route_.pop_back();
        return true;
    }
    Places route;
    const Answer answer = FindRoute(start, route);
    if (answer == Answer::kNoRoute) {
        return false; // the route that is known still holds
    }
    route_.assign(route.rbegin(), route.rend());
    if (!route_.empty()) {
        route_.pop_back();
    }
    return true;
}

void ChainOutlook::ChainTakenBack() {
    route_.clear();
    for (Place& place : places_) {
        place.leadsNowhere = false;
    }
}

int ChainOutlook::PlaceOf(const ChainBranch& branch) {
    const int end = branch.outThroughStart != 0 ? 0 : 1;
    const auto [number, isNew] =
        numbers_.try_emplace(2 * branch.pipe + end, static_cast<int>(places_.size()));
    if (isNew) {
        Place& place = places_.emplace_back();
        place.pipe = branch.pipe;
        place.outThroughStart = branch.outThroughStart;
    }
    return number->second;
}

const ChainOutlook::Place& ChainOutlook::Explore(int number) {
    const Place& known = places_[static_cast<std::size_t>(number)];
    if (known.isKnown) {
        return known;
    }
    const ChainFrame level = search_.EnterPipe({known.pipe, known.outThroughStart, AcGePoint3d()});
    const bool endsHere = search_.ChainEndsAt(level.freeEnd);
    Places ways;
    if (!endsHere) {
        for (const ChainBranch& way : search_.WaysOut(known.pipe, known.outThroughStart)) {
            ways.push_back(PlaceOf(way));
        }
    }
    Place& place = places_[static_cast<std::size_t>(number)];
    place.isKnown = true;
    place.endsHere = endsHere;
    place.ways = std::move(ways);
    return place;
}

/// Looks for a route that uses no pipe twice. Where a route does, no good one uses both of the
/// pipe's places, so it is enough to look without the one and without the other.
ChainOutlook::Answer ChainOutlook::FindRoute(int start, Places& route) {
    std::vector<Places> attempts{{}};
    for (int count = 0; !attempts.empty(); ++count) {
        if (count == kMostRoutes) {
            route.clear();
            return Answer::kUnknown;
        }
        const Places barred = std::move(attempts.back());
        attempts.pop_back();
        if (!Reach(start, barred, route)) {
            continue;
        }
        int first = -1;
        int second = -1;
        if (!FirstConflict(route, first, second)) {
            return Answer::kRoute;
        }
        for (const int place : {first, second}) {
            if (place != start) {
                attempts.push_back(barred);
                attempts.back().push_back(place);
            }
        }
    }
    places_[static_cast<std::size_t>(start)].leadsNowhere = true;
    return Answer::kNoRoute;
}

/// Looks around from `start`, deepest first, for a place that ends a chain; the way there becomes
/// `route`. A look-around in vain settles every place that it came to.
bool ChainOutlook::Reach(int start, const Places& barred, Places& route) {
    struct Step {
        int place;
        std::size_t nextWay;
    };
    ++visit_;
    visited_.clear();
    std::vector<Step> steps;
    const auto enter = [&](int place) {
        places_[static_cast<std::size_t>(place)].visit = visit_;
        visited_.push_back(place);
        steps.push_back({place, 0});
    };
    if (!places_[static_cast<std::size_t>(start)].leadsNowhere) {
        enter(start);
    }
    while (!steps.empty()) {
        Step& step = steps.back();
        const Place& place = Explore(step.place);
        if (place.endsHere) {
            route.clear();
            for (const Step& taken : steps) {
                route.push_back(taken.place);
            }
            return true;
        }
        if (step.nextWay == place.ways.size()) {
            steps.pop_back();
            continue;
        }
        const int next = place.ways[step.nextWay++];
        if (!IsClosed(next, barred)) {
            enter(next);
        }
    }
    for (const int place : visited_) {
        places_[static_cast<std::size_t>(place)].leadsNowhere |= barred.empty();
    }
    return false;
}

bool ChainOutlook::IsClosed(int number, const Places& barred) const {
    const Place& place = places_[static_cast<std::size_t>(number)];
    return place.visit == visit_ || place.leadsNowhere ||
           search_.pipeMarks.GetAt(place.pipe) != 0 ||
           std::find(barred.begin(), barred.end(), number) != barred.end();
}

/// The two places of the first pipe that a route uses twice.
bool ChainOutlook::FirstConflict(const Places& route, int& first, int& second) const {
    std::unordered_map<int, int> placeOfPipe;
    for (const int place : route) {
        const auto [used, isNew] =
            placeOfPipe.try_emplace(places_[static_cast<std::size_t>(place)].pipe, place);
        if (!isNew) {
            first = used->second;
            second = place;
            return true;
        }
    }
    return false;
}

} // namespace tkvlt
