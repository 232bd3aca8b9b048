#include "gravity/IndexedCandidates.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "gravity/GravityNetworkSearch.h"
#include "records/PipeBox.h"

namespace tkvlt {

IndexedCandidates::IndexedCandidates(const GravityNetworkSearch& search) : search_(search) {
    IndexPipes();
    IndexWells();
    IndexTanks();
    nodes_ = BoxGrid(LargestWellReach());
    if (search_.result != nullptr) {
        for (int node = 0; node < static_cast<int>(search_.result->wells.GetSize()); ++node) {
            NodeAdded(node);
        }
    }
}

void IndexedCandidates::IndexPipes() {
    const RecordPool<_Pipe>& pool = search_.pipePool;
    std::vector<PlanBox> ends;
    std::vector<PlanBox> curves;
    for (int i = 0; i < pool.Size(); ++i) {
        ends.push_back(PlanBox::Of(pool[i].startPoint));
        ends.push_back(PlanBox::Of(pool[i].endPoint));
        curves.push_back(PipeBox(pool[i]));
        pipeIds_.emplace(pool[i].id, i);
    }
    pipeEnds_ = BoxTree(ends);
    pipeCurves_ = BoxTree(curves);
    slack_ = RoundingSlack(pool);
}

void IndexedCandidates::IndexWells() {
    const RecordPool<_Block>& pool = search_.wellPool;
    std::vector<PlanBox> positions;
    for (int i = 0; i < pool.Size(); ++i) {
        positions.push_back(PlanBox::Of(pool[i].position));
        wellIds_.emplace(pool[i].id, i);
        if (!std::isnan(WellReach(pool[i]))) {
            wellsByReach_.push_back(i);
        }
    }
    wells_ = BoxTree(positions);
    std::stable_sort(wellsByReach_.begin(), wellsByReach_.end(),
                     [&](int a, int b) { return WellReach(pool[a]) > WellReach(pool[b]); });
}

void IndexedCandidates::IndexTanks() {
    const RecordPool<_Block>& pool = search_.tankPool;
    std::vector<PlanBox> extents;
    for (int i = 0; i < pool.Size(); ++i) {
        const AcGePoint3d low = pool[i].extents.minPoint();
        const AcGePoint3d high = pool[i].extents.maxPoint();
        extents.push_back({low.x, low.y, high.x, high.y});
        tankIds_.emplace(pool[i].id, i);
    }
    tanks_ = BoxTree(extents);
}

std::vector<int> IndexedCandidates::PipesWithEndIn(const PlanBox& box) const {
    std::vector<int> ends = Collected(pipeEnds_, box);
    for (int& end : ends) {
        end /= 2;
    }
    return PresentInOrder(std::move(ends), search_.pipePool);
}

std::vector<int> IndexedCandidates::PipesReachingInto(const PlanBox& box) const {
    return PresentInOrder(Collected(pipeCurves_, box.Widened(slack_)), search_.pipePool);
}

std::vector<int> IndexedCandidates::WellsIn(const PlanBox& box) const {
    return PresentInOrder(Collected(wells_, box), search_.wellPool);
}

std::vector<int> IndexedCandidates::TanksReachingInto(const PlanBox& box) const {
    return PresentInOrder(Collected(tanks_, box), search_.tankPool);
}

std::vector<int> IndexedCandidates::NodesIn(const PlanBox& box) const {
    std::vector<int> nodes;
    nodes_.Collect(box, nodes);
    SortUnique(nodes);
    return nodes;
}

std::vector<int> IndexedCandidates::NodesOf(const AcDbObjectId& id) const {
    return Matches(nodeIds_, id);
}

std::vector<int> IndexedCandidates::PipesOf(const AcDbObjectId& id) const {
    return PresentInOrder(Matches(pipeIds_, id), search_.pipePool);
}

std::vector<int> IndexedCandidates::WellsOf(const AcDbObjectId& id) const {
    return PresentInOrder(Matches(wellIds_, id), search_.wellPool);
}

std::vector<int> IndexedCandidates::TanksOf(const AcDbObjectId& id) const {
    return PresentInOrder(Matches(tankIds_, id), search_.tankPool);
}

double IndexedCandidates::LargestWellReach() const {
    while (largestWell_ < wellsByReach_.size() &&
           !search_.wellPool.Has(wellsByReach_[largestWell_])) {
        ++largestWell_;
    }
    return largestWell_ < wellsByReach_.size()
               ? WellReach(search_.wellPool[wellsByReach_[largestWell_]])
               : -std::numeric_limits<double>::infinity();
}

void IndexedCandidates::NodeAdded(int node) {
    const Well& well = search_.result->wells.GetAt(node);
    nodes_.Add(node, PlanBox::Of(well.nodePoint));
    nodeIds_.emplace(well.nodeEntity, node);
    for (int i = 0; i < well.mergedEntities.length(); ++i) {
        nodeIds_.emplace(well.mergedEntities.at(i), node);
    }
}

void IndexedCandidates::NodeMoved(int node, const AcGePoint3d& oldPoint) {
    nodes_.Remove(node, PlanBox::Of(oldPoint));
    nodes_.Add(node, PlanBox::Of(search_.result->wells.GetAt(node).nodePoint));
}

void IndexedCandidates::NodeMerged(int node, const AcDbObjectId& id) {
    nodeIds_.emplace(id, node);
}

} // namespace tkvlt
