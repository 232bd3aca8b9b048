// Moves pipes out of the pool into the tree of segments, outward from a segment's search point: the
// pipes in reach become its children, a single child that continues it is merged into it, and then
// each child is walked from in turn.

#include <cmath>
#include <limits>
#include <vector>

#include "pressure/PressureNetworkSearch.h"

namespace tkvlt {

namespace {

/// Margin beyond a well's radius within which a search point still lies in the well.
constexpr double kInWellMargin = 0.0001;

/// Arcs with centres nearer than this, in drawing units, are on one circle.
constexpr double kOneCircle = 1.0;

/// No end counts as farther away than this.
constexpr double kFarthestEnd = 1e19;

struct PipeEnd {
    double distance;
    bool isEnd;
};

/// Where an end can be whose distance less the well's radius counts as at most `reach`. A distance
/// that is small beside the radius is lost in the difference.
PlanBox EndsInReach(const AcGePoint3d& point, double wellRadius, double reach) {
    constexpr double relativeRounding = 1e-15;
    const double lost = (std::fabs(wellRadius) + std::fabs(reach)) * relativeRounding;
    const double farthest = wellRadius + reach + lost;
    if (farthest < kFarthestEnd) {
        return PlanBox::Around(point, farthest);
    }
    return PlanBox::Around(point, std::numeric_limits<double>::infinity());
}

PipeEnd NearestEndOf(const PipePiece& pipe, const AcGePoint3d& point) {
    PipeEnd nearest{kFarthestEnd, false};
    const double fromStart = pipe.startPoint.distanceTo(point);
    const double fromEnd = pipe.endPoint.distanceTo(point);
    if (nearest.distance > fromStart) {
        nearest = {fromStart, false};
    }
    if (nearest.distance > fromEnd) {
        nearest = {fromEnd, true};
    }
    return nearest;
}

} // namespace

/// After each merge the merged segment is looked around once more before its children are walked
/// from, and then walked from again, once for the merge. Such a further pass finds no pipe that the
/// one before it left, and mostly nothing at all: it counts where a segment has merged since its
/// parent was compared with it. So it is left out unless there is one, or entries of `children` no
/// longer lead where they did; an entry that leads to nothing throws. An explicit stack: a network
/// may be as deep as it has segments.
int PressureNetworkSearch::WalkFromSeg(int k) {
    struct Level {
        int seg;
        int passes; // over its children that are still to be made, with the one that is under way
        int nextChild = 0;
        bool mayMerge = false; // with its child, when it is walked from again
        bool mayMergeBelow = false;
    };
    const auto lookAround = [this](int seg) { return Level{seg, 1 + AdoptAndMerge(seg)}; };
    std::vector<Level> levels{lookAround(k)};
    while (!levels.empty()) {
        Level& level = levels.back();
        const CArray<int, int>& children = segs.ElementAt(level.seg).children;
        if (level.nextChild < static_cast<int>(children.GetSize())) {
            const int child = children.GetAt(level.nextChild++);
            const Level below = lookAround(child);
            if (below.passes > 1) {
                level.mayMerge = ContinuingChild(level.seg) >= 0;
            }
            levels.push_back(below);
        } else if (--level.passes > 0 && (level.mayMergeBelow || !childrenStand_)) {
            level.nextChild = 0;
            level.mayMergeBelow = false;
        } else {
            const bool mayMerge = level.mayMerge || level.mayMergeBelow;
            levels.pop_back();
            if (mayMerge && !levels.empty()) {
                levels.back().mayMergeBelow = true;
            }
        }
    }
    return 1;
}

/// The number of merges.
int PressureNetworkSearch::AdoptAndMerge(int k) {
    int merges = 0;
    AdoptPipesInReach(k);
    for (int c = ContinuingChild(k); c >= 0; c = ContinuingChild(k)) {
        MergeChild(k, c);
        AdoptPipesInReach(k);
        ++merges;
    }
    return merges;
}

int PressureNetworkSearch::WellHolding(const AcGePoint3d& point, const CString& system) const {
    const double reach = candidates_->LargestWellRadius() + kInWellMargin;
    for (const int i : candidates_->WellsIn(PlanBox::Around(point, reach))) {
        const WellSite& well = SiteOfWell(i);
        if (traits_.systems[well.system].Compare(system) == 0 &&
            well.position.distanceTo(point) <= well.radius + kInWellMargin) {
            return i;
        }
    }
    return -1;
}

/// The radius of the first well of the system that holds `point`; 0.0 outside any.
double PressureNetworkSearch::WellRadiusAt(const AcGePoint3d& point, const CString& system) const {
    const int well = WellHolding(point, system);
    return well < 0 ? 0.0 : SiteOfWell(well).radius;
}

double PressureNetworkSearch::PipeReach() const {
    return breakDist * dwgScale * 2.0 * 2.0;
}

double PressureNetworkSearch::ReachFrom(const AcGePoint3d& point, const CString& system) const {
    return WellRadiusAt(point, system) + PipeReach();
}

Indices PressureNetworkSearch::PipesInReach(const AcGePoint3d& point, const CString& system) const {
    const double wellRadius = WellRadiusAt(point, system);
    const double reach = PipeReach();
    Indices pipes = candidates_->PipesWithEndIn(EndsInReach(point, wellRadius, reach));
    pipes.EraseIf([&](int pipe) {
        const double distance = NearestEndOf(pipePool.At(pipe), point).distance;
        return distance - wellRadius > reach;
    });
    return pipes;
}

void PressureNetworkSearch::AdoptPipesInReach(int k) {
    const AcGePoint3d searchPoint = segs.ElementAt(k).GetSearchPoint();
    for (const int i : PipesInReach(searchPoint, segs.ElementAt(k).systemName)) {
        const PipeEnd nearest = NearestEndOf(pipePool.At(i), searchPoint);
        const int added = static_cast<int>(segs.GetSize());
        segs.SetSize(added + 1);
        PressureSeg& child = segs.ElementAt(added);
        AdoptPipe(child, i);
        child.reversed = nearest.isEnd ? 1 : 0;
        child.parent = k;
        TakeAttributes(child, i);
        segs.ElementAt(k).children.Add(added);
        pipePool.Remove(i);
    }
}

/// The only child of a segment, when the two continue one another; else -1.
int PressureNetworkSearch::ContinuingChild(int k) const {
    const PressureSeg& seg = segs.ElementAt(k);
    if (seg.children.GetSize() != 1) {
        return -1;
    }
    const int c = seg.children.GetAt(0);
    return Continue(seg, segs.ElementAt(c)) ? c : -1;
}

/// Geometry alone decides: the child's own texts are dropped. The ends are written in walking order
/// whatever `reversed` says, so a reversed segment comes out turned round. A child that has been
/// walked from leaves its own children behind, and what stands behind it moves up while the indices
/// that lead there stay.
void PressureNetworkSearch::MergeChild(int k, int c) {
    PressureSeg& seg = segs.ElementAt(k);
    PressureSeg& child = segs.ElementAt(c);
    const AcGePoint3d begin = seg.GetBeginPoint();
    const AcGePoint3d far = child.GetSearchPoint();
    if (seg.isArc == 0) {
        seg.line.set(far, begin);
    } else {
        seg.arc.set(far, seg.GetSearchPoint(), begin);
    }
    seg.startPoint = begin;
    seg.endPoint = far;
    for (int i = 0; i < child.pipeIds.length(); ++i) {
        seg.pipeIds.append(child.pipeIds.at(i));
    }
    seg.orientationFlags.Append(child.orientationFlags);
    seg.children.RemoveAll();
    childrenStand_ = childrenStand_ && c + 1 == static_cast<int>(segs.GetSize());
    segs.RemoveAt(c);
    if (unread_ != nullptr) {
        unread_->erase(unread_->begin() + c);
    }
    if (seg.reversed != 0 && turnedRuns != nullptr) {
        turnedRuns->push_back(seg.pipeIds.at(0));
        seg.reversed = 0;
    }
}

/// Whether every entry of `children` leads to a segment further on that no other entry leads to.
bool PressureNetworkSearch::ChildrenStand() const {
    const auto count = static_cast<int>(segs.GetSize());
    std::vector<bool> isChild(static_cast<std::size_t>(count));
    for (int k = 0; k < count; ++k) {
        const CArray<int, int>& children = segs.ElementAt(k).children;
        for (int n = 0; n < static_cast<int>(children.GetSize()); ++n) {
            const int child = children.GetAt(n);
            if (child <= k || child >= count || isChild[static_cast<std::size_t>(child)]) {
                return false;
            }
            isChild[static_cast<std::size_t>(child)] = true;
        }
    }
    return true;
}

bool PressureNetworkSearch::Continue(const PressureSeg& seg, const PressureSeg& child) const {
    if (seg.isArc == 0 && child.isArc == 0) {
        return seg.line.isParallelTo(child.line) != 0;
    }
    return seg.isArc != 0 && child.isArc != 0 &&
           seg.arc.center().distanceTo(child.arc.center()) < kOneCircle;
}

} // namespace tkvlt
