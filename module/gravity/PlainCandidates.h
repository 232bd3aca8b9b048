#pragma once

#include "gravity/CandidateSource.h"

namespace tkvlt {

/// Hands out every entry that is present, as the rules are worded.
class PlainCandidates final : public CandidateSource {
public:
    explicit PlainCandidates(const GravityNetworkSearch& search);

    Indices PipesWithEndIn(const PlanBox& box) const override;
    Indices PipesReachingInto(const PlanBox& box) const override;
    Indices WellsIn(const PlanBox& box) const override;
    Indices TanksReachingInto(const PlanBox& box) const override;
    Indices NodesIn(const PlanBox& box) const override;
    Indices NodesOf(const AcDbObjectId& id) const override;
    void ExpectQuestionsAt(const AcGePoint3d& /*point*/) const override {}
    void ExpectNodesOf(const AcDbObjectId& /*id*/) const override {}
    Indices PipesOf(const AcDbObjectId& id) const override;
    Indices WellsOf(const AcDbObjectId& id) const override;
    Indices TanksOf(const AcDbObjectId& id) const override;
    double LargestWellReach() const override;
    void BegunAnew() override;
    void NodeAdded(int node) override;
    void NodeMoved(int node, const AcGePoint3d& oldPoint) override;
    void NodeMerged(int node, const AcDbObjectId& id) override;

private:
    const GravityNetworkSearch& search_;
};

} // namespace tkvlt
