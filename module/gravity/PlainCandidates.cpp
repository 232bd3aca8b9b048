#include "gravity/PlainCandidates.h"

#include <limits>

#include "gravity/GravityNetworkSearch.h"
#include "records/Candidates.h"

namespace tkvlt {

PlainCandidates::PlainCandidates(const GravityNetworkSearch& search) : search_(search) {}

Indices PlainCandidates::PipesWithEndIn(const PlanBox& /*box*/) const {
    return AllPresent(search_.pipePool);
}

Indices PlainCandidates::PipesReachingInto(const PlanBox& /*box*/) const {
    return AllPresent(search_.pipePool);
}

Indices PlainCandidates::WellsIn(const PlanBox& /*box*/) const {
    return AllPresent(search_.wellPool);
}

Indices PlainCandidates::TanksReachingInto(const PlanBox& /*box*/) const {
    return AllPresent(search_.tankPool);
}

Indices PlainCandidates::NodesIn(const PlanBox& /*box*/) const {
    return NodesOf(AcDbObjectId());
}

Indices PlainCandidates::NodesOf(const AcDbObjectId& /*id*/) const {
    if (search_.result == nullptr) {
        return {};
    }
    return FirstIndices(static_cast<int>(search_.result->wells.GetSize()));
}

Indices PlainCandidates::PipesOf(const AcDbObjectId& /*id*/) const {
    return AllPresent(search_.pipePool);
}

Indices PlainCandidates::WellsOf(const AcDbObjectId& /*id*/) const {
    return AllPresent(search_.wellPool);
}

Indices PlainCandidates::TanksOf(const AcDbObjectId& /*id*/) const {
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
