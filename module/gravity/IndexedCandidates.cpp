#include "gravity/IndexedCandidates.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "gravity/GravityNetworkSearch.h"
#include "records/FetchAhead.h"
#include "records/MedianReach.h"
#include "records/PipeBox.h"

namespace tkvlt {

namespace {

/// The entries that stand for `id` and have not been taken away.
template<class Record>
Indices StillThere(const EntryIndex& ids, const RecordPool<Record>& pool, const AcDbObjectId& id) {
    Indices entries = ids.Matches(pool, id);
    KeepPresent(entries, pool);
    return entries;
}

} // namespace

IndexedCandidates::IndexedCandidates(const GravityNetworkSearch& search) : search_(search) {
    IndexWells();
    IndexPipes();
    IndexTanks();
    nodes_ = PointGrid::OfCells(wells_.CellSide());
    if (search_.result != nullptr) {
        for (int node = 0; node < static_cast<int>(search_.result->wells.GetSize()); ++node) {
            NodeAdded(node);
        }
    }
}

void IndexedCandidates::IndexPipes() {
    const LargeVector<PipeSite>& sites = search_.PipeSites();
    pipeEnds_ = SettledPoints(std::max(usualQuery_, 2.0 * search_.snapDist), 2 * sites.size(),
                              [&](std::size_t end) -> const AcGePoint3d& {
                                  const PipeSite& site = sites[end / 2];
                                  return end % 2 == 0 ? site.startPoint : site.endPoint;
                              });
}

/// Only chains that find no pipe at their end ask for what crosses them.
void IndexedCandidates::IndexCurves() const {
    const LargeVector<PipeSite>& sites = search_.PipeSites();
    std::vector<PlanBox> curves;
    curves.reserve(sites.size());
    for (const PipeSite& site : sites) {
        const AcGeCircArc3d* arc =
            site.isArc != 0 ? &search_.pipePool[static_cast<int>(curves.size())].arc : nullptr;
        slack_ = std::max({slack_, RoundingSlack(site.startPoint), RoundingSlack(site.endPoint),
                           arc != nullptr ? RoundingSlack(*arc) : 0.0});
        curves.push_back(PipeBox(site.startPoint, site.endPoint, arc));
    }
    pipeCurves_ = BoxTree(curves);
    hasCurves_ = true;
}

void IndexedCandidates::IndexWells() {
    const LargeVector<WellSite>& sites = search_.WellSites();
    for (std::size_t well = 0; well < sites.size(); ++well) {
        const AcGePoint3d& position = sites[well].position;
        const double reach = WellReach(sites[well]);
        if (std::isnan(reach) || std::isnan(position.x + position.y + position.z)) {
            unmeasurableWells_.push_back(static_cast<int>(well));
        }
        if (reach > largestReach_) {
            largestReach_ = reach;
            largestWell_ = static_cast<int>(well);
        }
    }
    constexpr double radiiOfTouch = 2.0;
    usualQuery_ = 2.0 * radiiOfTouch * MedianReach(sites.size(), [&](std::size_t well) {
                      return WellReach(sites[well]);
                  });
    wells_ = SettledPoints(usualQuery_, sites.size(), [&](std::size_t well) -> const AcGePoint3d& {
        return sites[well].position;
    });
}

/// The largest wells first, for when the largest has been merged away.
void IndexedCandidates::SortWellsByReach() const {
    const LargeVector<WellSite>& sites = search_.WellSites();
    const auto reach = [&](int well) { return WellReach(sites[static_cast<std::size_t>(well)]); };
    for (int i = 0; i < static_cast<int>(sites.size()); ++i) {
        if (!std::isnan(reach(i))) {
            wellsByReach_.push_back(i);
        }
    }
    std::stable_sort(wellsByReach_.begin(), wellsByReach_.end(),
                     [&](int a, int b) { return reach(a) > reach(b); });
}

void IndexedCandidates::IndexTanks() {
    const RecordPool<_Block>& pool = search_.tankPool;
    std::vector<PlanBox> extents;
    for (int i = 0; i < pool.Size(); ++i) {
        const AcGePoint3d low = pool[i].extents.minPoint();
        const AcGePoint3d high = pool[i].extents.maxPoint();
        extents.push_back({low.x, low.y, high.x, high.y});
    }
    tanks_ = BoxTree(extents);
}

Indices IndexedCandidates::PipesWithEndIn(const PlanBox& box) const {
    Indices ends;
    pipeEnds_.Collect(box, ends);
    for (int& end : ends) {
        end /= 2;
        FetchAhead(search_.Site(end));
    }
    KeepPresent(ends, search_.pipePool);
    return ends;
}

Indices IndexedCandidates::PipesReachingInto(const PlanBox& box) const {
    if (!hasCurves_) {
        IndexCurves();
    }
    Indices pipes = Collected(pipeCurves_, box.Widened(slack_));
    KeepPresent(pipes, search_.pipePool);
    return pipes;
}

Indices IndexedCandidates::WellsIn(const PlanBox& box) const {
    Indices wells;
    wells_.Collect(box, wells);
    for (const int well : wells) {
        FetchAhead(search_.SiteOfWell(well));
    }
    // A distance that is no number is not greater than any, so such a well may lie anywhere.
    wells.Append(unmeasurableWells_);
    KeepPresent(wells, search_.wellPool);
    return wells;
}

Indices IndexedCandidates::TanksReachingInto(const PlanBox& box) const {
    Indices tanks = Collected(tanks_, box);
    KeepPresent(tanks, search_.tankPool);
    return tanks;
}

Indices IndexedCandidates::NodesIn(const PlanBox& box) const {
    Indices nodes;
    nodes_.Collect(box, nodes);
    nodes.SortUnique();
    return nodes;
}

Indices IndexedCandidates::NodesOf(const AcDbObjectId& id) const {
    return nodeIds_.Matches(id);
}

Indices IndexedCandidates::PipesOf(const AcDbObjectId& id) const {
    return StillThere(pipeIds_, search_.pipePool, id);
}

Indices IndexedCandidates::WellsOf(const AcDbObjectId& id) const {
    return StillThere(wellIds_, search_.wellPool, id);
}

Indices IndexedCandidates::TanksOf(const AcDbObjectId& id) const {
    return StillThere(tankIds_, search_.tankPool, id);
}

double IndexedCandidates::LargestWellReach() const {
    if (largestWell_ < 0 || search_.wellPool.Has(largestWell_)) {
        return largestReach_;
    }
    if (wellsByReach_.empty()) {
        SortWellsByReach();
    }
    while (nextLargest_ < wellsByReach_.size() &&
           !search_.wellPool.Has(wellsByReach_[nextLargest_])) {
        ++nextLargest_;
    }
    const bool isLeft = nextLargest_ < wellsByReach_.size();
    largestWell_ = isLeft ? wellsByReach_[nextLargest_] : -1;
    largestReach_ = isLeft ? WellReach(search_.WellSites()[static_cast<std::size_t>(largestWell_)])
                           : -std::numeric_limits<double>::infinity();
    return largestReach_;
}

void IndexedCandidates::BegunAnew() {
    if (!wellsByReach_.empty()) {
        nextLargest_ = 0;
        largestWell_ = wellsByReach_.front();
        largestReach_ = WellReach(search_.WellSites()[static_cast<std::size_t>(largestWell_)]);
    }
    nodes_ = PointGrid::OfCells(wells_.CellSide());
    nodeIds_ = IdIndex();
}

void IndexedCandidates::NodeAdded(int node) {
    const Well& well = search_.result->wells.GetAt(node);
    nodes_.Add(node, well.nodePoint);
    nodeIds_.Add(well.nodeEntity, node);
    for (int i = 0; i < well.mergedEntities.length(); ++i) {
        nodeIds_.Add(well.mergedEntities.at(i), node);
    }
}

void IndexedCandidates::NodeMoved(int node, const AcGePoint3d& oldPoint) {
    nodes_.Remove(node, oldPoint);
    nodes_.Add(node, search_.result->wells.GetAt(node).nodePoint);
}

void IndexedCandidates::NodeMerged(int node, const AcDbObjectId& id) {
    nodeIds_.Add(id, node);
}

} // namespace tkvlt
