// Grows the tree out of a node: free wells that overlap it are merged into it, each pipe that
// touches it is followed to the next well or tank, and the walk goes on from there before it looks
// at the next pipe. The far node and its segment are in the result before the walk descends, so
// nodes stand in depth-first order.

#include <algorithm>

#include "gravity/ChainFrame.h"
#include "gravity/GravityNetworkSearch.h"

namespace tkvlt {

namespace {

/// Ten millimetres of the real network, in drawing units.
double JointGap() {
    return 10.0 / GetVZDrawScale();
}

} // namespace

/// The radius is doubled: a pipe may stop a whole well diameter short of the centre.
double TouchReach(const Well& node) {
    return RadiusToCorner(node, node.nodeRadius * 2.0) + JointGap();
}

int GravityNetworkSearch::WalkFromWell(int well) {
    // An explicit stack: a network may be as deep as it has wells.
    std::vector<StandingNode> standing;
    if (StandAt(well, standing) == 0) {
        return 0;
    }
    while (!standing.empty()) {
        if (NextStep(standing) == WalkStep::kCycle) {
            return 0;
        }
    }
    return 1;
}

int GravityNetworkSearch::StandAt(int well, std::vector<StandingNode>& standing) {
    if (ArriveAtWell(well) == 0) {
        return 0;
    }
    standing.emplace_back().well = well;
    return 1;
}

WalkStep GravityNetworkSearch::NextStep(std::vector<StandingNode>& standing) {
    int reached = -1;
    const WalkStep step = FollowNextPipe(standing.back(), reached);
    if (step == WalkStep::kDescended && StandAt(reached, standing) != 0) {
        return step;
    }
    if (step == WalkStep::kScanEnded) {
        standing.pop_back();
    }
    const bool backFromDescent = !standing.empty();
    return backFromDescent && abortFlag != 0 ? WalkStep::kCycle : step;
}

void GravityNetworkSearch::BeginAnother(GravitySearchObject* object) {
    result = object;
    abortFlag = 0;
    if (candidates_ == nullptr) {
        candidates_ = MakeCandidateSource(*this, candidateMode_);
    } else {
        candidates_->BegunAnew();
    }
}

void GravityNetworkSearch::RestorePools() {
    pipePool.RestoreFirst(pipePool.Size());
    wellPool.RestoreFirst(wellPool.Size());
    BeginAnother(nullptr);
}

int GravityNetworkSearch::ArriveAtWell(int well) {
    MergeOverlappingWells(well);
    return wellPool.IsEmpty() ? 0 : 1;
}

void GravityNetworkSearch::MergeOverlappingWells(int well) {
    const double gap = JointGap();
    int next = 0;
    bool merged = true;
    while (merged) {
        merged = false;
        const Well& node = result->wells.ElementAt(well);
        const double widest = std::max(candidates_->LargestWellReach(), 0.0);
        const double farthest = widest + node.nodeRadius + gap;
        for (const int i : candidates_->WellsIn(PlanBox::Around(node.nodePoint, farthest))) {
            const WellSite& site = SiteOfWell(i);
            if (i < next || !IsSearched(site) || IsNode(site.id)) {
                continue;
            }
            const double distance = node.nodePoint.distanceTo(site.position);
            const double radius = RadiusToCorner(site, site.radius);
            if (!(distance > radius + node.nodeRadius + gap)) {
                MergeWell(well, i, distance, radius);
                // The node has moved and grown; wells behind this one are judged by that, and those
                // before it are not looked at again.
                next = i + 1;
                merged = true;
                break;
            }
        }
    }
}

void GravityNetworkSearch::MergeWell(int well, int poolWell, double distance, double radius) {
    Well& node = result->wells.ElementAt(well);
    const AcGePoint3d oldPoint = node.nodePoint;
    node.nodePoint = oldPoint + (SiteOfWell(poolWell).position - oldPoint) * 0.5;
    node.nodeRadius = (distance + node.nodeRadius + radius) * 0.5;
    node.mergedEntities.append(SiteOfWell(poolWell).id);
    wellPool.Remove(poolWell);
    candidates_->NodeMoved(well, oldPoint);
    candidates_->NodeMerged(well, SiteOfWell(poolWell).id);
}

bool GravityNetworkSearch::IsNode(const AcDbObjectId& id) const {
    for (const int node : candidates_->NodesOf(id)) {
        if (result->wells.GetAt(node).nodeEntity == id) {
            return true;
        }
    }
    return false;
}

Indices GravityNetworkSearch::PipesNear(const Well& node) const {
    if (node.isWell == 0) {
        const AcGePoint3d low = node.extents.minPoint();
        const AcGePoint3d high = node.extents.maxPoint();
        return candidates_->PipesWithEndIn(
            PlanBox{low.x, low.y, high.x, high.y}.Widened(ExtentsMargin()));
    }
    return candidates_->PipesWithEndIn(PlanBox::Around(node.nodePoint, TouchReach(node)));
}

bool GravityNetworkSearch::TouchesNode(const PipeSite& pipe, const Well& node, int& nearEndIsStart,
                                       AcGePoint3d& seed) const {
    if (node.isWell == 0) {
        const int startInside = PointInExtents(pipe.startPoint, node.extents, 1);
        const int endInside = PointInExtents(pipe.endPoint, node.extents, 1);
        nearEndIsStart = startInside;
        seed = startInside != 0 ? pipe.startPoint : pipe.endPoint;
        return startInside != endInside;
    }
    const NearEnd near = NearestEnd(pipe, node.nodePoint);
    nearEndIsStart = near.isStart ? 1 : 0;
    seed = node.nodePoint;
    return !(near.distance > TouchReach(node));
}

Indices GravityNetworkSearch::PipesLeftAt(StandingNode& node) const {
    if (!node.pipes) {
        Indices near = PipesNear(result->wells.ElementAt(node.well));
        if (near.size() <= Indices::kFew) {
            node.pipes = near;
        }
        return near;
    }
    node.pipes->EraseIf([&](int pipe) { return !pipePool.Has(pipe); });
    return *node.pipes;
}

WalkStep GravityNetworkSearch::FollowNextPipe(StandingNode& node, int& reached) {
    const int well = node.well;
    for (const int i : PipesLeftAt(node)) {
        int nearEndIsStart = 0;
        AcGePoint3d seed;
        if (!IsSearched(Site(i)) ||
            !TouchesNode(Site(i), result->wells.ElementAt(well), nearEndIsStart, seed)) {
            continue;
        }
        ResetChain(i);
        if (TraceChain(i, nearEndIsStart != 0 ? 0 : 1, seed) == 0) {
            continue; // a branch that leads nowhere stays in the pool for another well to find
        }
        if (IsTargetNew() == 0) {
            abortFlag = 1;
            NoteClosedChain(KnownNodeOfTarget(), TargetBlock(targetKind, targetIndex).position);
            return WalkStep::kCycle;
        }
        reached = CommitSegment(well);
        return WalkStep::kDescended;
    }
    return WalkStep::kScanEnded;
}

int GravityNetworkSearch::IsTargetNew() {
    return KnownNodeOfTarget() < 0 ? 1 : 0;
}

int GravityNetworkSearch::KnownNodeOfTarget() const {
    const AcDbObjectId target = TargetId(targetKind, targetIndex);
    for (const int i : candidates_->NodesOf(target)) {
        const Well& node = result->wells.ElementAt(i);
        if (node.nodeEntity == target || node.mergedEntities.contains(target)) {
            return i;
        }
    }
    return -1;
}

} // namespace tkvlt
