#pragma once

#include <limits>

#include "gravity/CandidateSource.h"
#include "records/BoxTree.h"
#include "records/Candidates.h"
#include "records/IdIndex.h"
#include "records/PointGrid.h"
#include "records/SettledPoints.h"

namespace tkvlt {

/// Finds candidates through grids over the points and trees over the boxes of what was collected.
///
/// The pools of a gravity search only shrink, so these are built once and what has been taken
/// is passed over.
class IndexedCandidates final : public CandidateSource {
public:
    explicit IndexedCandidates(const GravityNetworkSearch& search);

    Indices PipesWithEndIn(const PlanBox& box) const override;
    Indices PipesReachingInto(const PlanBox& box) const override;
    Indices WellsIn(const PlanBox& box) const override;
    Indices TanksReachingInto(const PlanBox& box) const override;
    Indices NodesIn(const PlanBox& box) const override;
    Indices NodesOf(const AcDbObjectId& id) const override;
    void ExpectQuestionsAt(const AcGePoint3d& point) const override {
        wells_.FetchAheadAt(point);
        pipeEnds_.FetchAheadAt(point);
    }
    void ExpectNodesOf(const AcDbObjectId& id) const override { nodeIds_.FetchAheadOf(id); }
    Indices PipesOf(const AcDbObjectId& id) const override;
    Indices WellsOf(const AcDbObjectId& id) const override;
    Indices TanksOf(const AcDbObjectId& id) const override;
    double LargestWellReach() const override;
    void BegunAnew() override;
    void NodeAdded(int node) override;
    void NodeMoved(int node, const AcGePoint3d& oldPoint) override;
    void NodeMerged(int node, const AcDbObjectId& id) override;

private:
    void IndexPipes();
    void IndexCurves() const;
    void IndexWells();
    void SortWellsByReach() const;
    void IndexTanks();

    const GravityNetworkSearch& search_;
    double usualQuery_ = 0.0;    // side of the square in which most wells look for their pipes
    SettledPoints pipeEnds_;     // items 2i and 2i + 1 are the start and the end of pipe i
    mutable BoxTree pipeCurves_; // made when it is first asked
    mutable bool hasCurves_ = false;
    mutable double slack_ = 0.0; // by which pipes may miss one another and still meet
    SettledPoints wells_;
    Indices unmeasurableWells_; // with a place or a reach that is no number
    BoxTree tanks_;
    PointGrid nodes_;
    EntryIndex pipeIds_;
    EntryIndex wellIds_;
    EntryIndex tankIds_;
    IdIndex nodeIds_;
    // The largest reach of a well and a well that has it. Negative when there is none.
    mutable int largestWell_ = -1;
    mutable double largestReach_ = -std::numeric_limits<double>::infinity();
    mutable std::vector<int> wellsByReach_; // largest first; made when the largest is gone
    mutable std::size_t nextLargest_ = 0;
};

} // namespace tkvlt
