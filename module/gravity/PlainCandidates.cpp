#include "gravity/PlainCandidates.h"

#include <limits>
#include <numeric>

#include "gravity/GravityNetworkSearch.h"
#include "records/Candidates.h"

namespace tkvlt {

PlainCandidates::PlainCandidates(const GravityNetworkSearch& search) : search_(search) {}

std::vector<int> PlainCandidates::PipesWithEndIn(const PlanBox& /*box*/) const {
    return AllPresent(search_.pipePool);
}

std::vector<int> PlainCandidates::PipesReachingInto(const PlanBox& /*box*/) const {
    return AllPresent(search_.pipePool);
}

std::vector<int> PlainCandidates::WellsIn(const PlanBox& /*box*/) const {
    return AllPresent(search_.wellPool);
}

std::vector<int> PlainCandidates::TanksReachingInto(const PlanBox& /*box*/) const {
    return AllPresent(search_.tankPool);
}

std::vector<int> PlainCandidates::NodesIn(const PlanBox& /*box*/) const {
    return NodesOf(AcDbObjectId());
}

std::vector<int> PlainCandidates::NodesOf(const AcDbObjectId& /*id*/) const {
    if (search_.result == nullptr) {
        return {};
    }
    std::vector<int> nodes(static_cast<std::size_t>(search_.result->wells.GetSize()));
    std::iota(nodes.begin(), nodes.end(), 0);
    return nodes;
}

std::vector<int> PlainCandidates::PipesOf(const AcDbObjectId& /*id*/) const {
    return AllPresent(search_.pipePool);
}

std::vector<int> PlainCandidates::WellsOf(const AcDbObjectId& /*id*/) const {
    return AllPresent(search_.wellPool);
}

std::vector<int> PlainCandidates::TanksOf(const AcDbObjectId& /*id*/) const {
    return AllPresent(search_.tankPool);
}

double PlainCandidates::LargestWellReach() const {
    double largest = -std::numeric_limits<double>::infinity();
    for (const int i : AllPresent(search_.wellPool)) {
        const double reach = WellReach(search_.SiteOfWell(i));
        if (reach > largest) {
            largest = reach;
        }
    }
    return largest;
}

void PlainCandidates::BegunAnew() {}

void PlainCandidates::NodeAdded(int /*node*/) {}

void PlainCandidates::NodeMoved(int /*node*/, const AcGePoint3d& /*oldPoint*/) {}

void PlainCandidates::NodeMerged(int /*node*/, const AcDbObjectId& /*id*/) {}

} // namespace tkvlt
