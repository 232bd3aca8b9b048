#pragma once

#include <memory>

#include "records/CandidateMode.h"
#include "records/Indices.h"
#include "records/PlanBox.h"

namespace tkvlt {

class GravityNetworkSearch;

/// Answers which pool entries and nodes can matter at a place.
///
/// Whatever could pass a rule's test at the place is among the answers; the test itself stays with
/// the rule. Answers stand in pool order (nodes in the order of the result), without what has been
/// taken from the pool. All boxes are in plan. The search tells the source what it takes, adds and
/// moves.
class CandidateSource {
public:
    virtual ~CandidateSource() = default;

    /// Pipes with their start or end point in `box`.
    virtual Indices PipesWithEndIn(const PlanBox& box) const = 0;
    /// Pipes whose curve or chord may reach into `box`.
    virtual Indices PipesReachingInto(const PlanBox& box) const = 0;
    /// Wells with their position in `box`.
    virtual Indices WellsIn(const PlanBox& box) const = 0;
    /// Tanks with extents that reach into `box`.
    virtual Indices TanksReachingInto(const PlanBox& box) const = 0;
    /// Nodes of the result with their node point in `box`.
    virtual Indices NodesIn(const PlanBox& box) const = 0;
    /// Nodes of the result that may stand for the block `id` or have merged it.
    virtual Indices NodesOf(const AcDbObjectId& id) const = 0;
    /// What lies around `point` is going to be asked for.
    virtual void ExpectQuestionsAt(const AcGePoint3d& point) const = 0;
    /// `NodesOf` is going to be asked for `id`.
    virtual void ExpectNodesOf(const AcDbObjectId& id) const = 0;

    /// Pool entries that may be the entity `id`.
    virtual Indices PipesOf(const AcDbObjectId& id) const = 0;
    virtual Indices WellsOf(const AcDbObjectId& id) const = 0;
    virtual Indices TanksOf(const AcDbObjectId& id) const = 0;

    /// The largest reach of a well still in the pool; negative infinity for none.
    virtual double LargestWellReach() const = 0;

    /// The search goes on with a result that has no node yet, and wells may have been put back.
    virtual void BegunAnew() = 0;
    /// The result got the node `node`.
    virtual void NodeAdded(int node) = 0;
    /// `node` moved away from `oldPoint`.
    virtual void NodeMoved(int node, const AcGePoint3d& oldPoint) = 0;
    /// `node` took the block `id` into itself.
    virtual void NodeMerged(int node, const AcDbObjectId& id) = 0;
};

/// A source over the pools of `search` as they stand, and the nodes that its result already holds.
/// The search must outlive it.
std::unique_ptr<CandidateSource> MakeCandidateSource(const GravityNetworkSearch& search,
                                                     CandidateMode mode);

} // namespace tkvlt
