#pragma once

#include "gravity/CandidateSource.h"

namespace tkvlt {

/// Hands out every entry that is present, as the rules are worded.
class PlainCandidates final : public CandidateSource {
public:
    explicit PlainCandidates(const GravityNetworkSearch& search);

    std::vector<int> PipesWithEndIn(const PlanBox& box) const override;
    std::vector<int> PipesReachingInto(const PlanBox& box) const override;
    std::vector<int> WellsIn(const PlanBox& box) const override;
    std::vector<int> TanksReachingInto(const PlanBox& box) const override;
    std::vector<int> NodesIn(const PlanBox& box) const override;
    std::vector<int> NodesOf(const AcDbObjectId& id) const override;
    std::vector<int> PipesOf(const AcDbObjectId& id) const override;
    std::vector<int> WellsOf(const AcDbObjectId& id) const override;
    std::vector<int> TanksOf(const AcDbObjectId& id) const override;
    double LargestWellReach() const override;
    void BegunAnew() override;
    void NodeAdded(int node) override;
    void NodeMoved(int node, const AcGePoint3d& oldPoint) override;
    void NodeMerged(int node, const AcDbObjectId& id) override;

private:
    const GravityNetworkSearch& search_;
};

} // namespace tkvlt
