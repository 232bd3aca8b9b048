#include "faults/GravityTargets.h"

#include "gravity/ChainFrame.h"
#include "records/Candidates.h"

#include <algorithm>
#include <cmath>

namespace pipenet {

namespace {

void keepBetter(const NearTarget& target, std::optional<NearTarget>& best) {
    if (!best || target.shortfall() < best->shortfall()) {
        best = target;
    }
}

/// From a point to a box in plan; 0 within it.
double distanceInPlan(const AcGePoint3d& point, const AcDbExtents& extents) {
    const auto beyond = [](double value, double low, double high) {
        return std::max({low - value, value - high, 0.0});
    };
    const AcGePoint3d low = extents.minPoint();
    const AcGePoint3d high = extents.maxPoint();
    return std::hypot(beyond(point.x, low.x, high.x), beyond(point.y, low.y, high.y));
}

} // namespace

GravityTargets::GravityTargets(GravityDrawing& drawing)
    : search_(drawing.search()), wells_(drawing.wellsOf(search_.systemName)),
      pipes_(drawing.pipesOf(search_.systemName)) {
    std::vector<tkvlt::PlanBox> boxes;
    for (const int well : wells_) {
        boxes.push_back(tkvlt::PlanBox::Of(search_.SiteOfWell(well).position));
    }
    wellTree_ = tkvlt::BoxTree(boxes);
    boxes.clear();
    for (const int pipe : pipes_) {
        boxes.push_back(tkvlt::PlanBox::Of(search_.Site(pipe).startPoint));
        boxes.push_back(tkvlt::PlanBox::Of(search_.Site(pipe).endPoint));
    }
    endTree_ = tkvlt::BoxTree(boxes);
}

/// Looks farther and farther, so that a place among many costs little. What lies outside the look
/// misses by more than the look less the largest reach.
std::optional<NearTarget> GravityTargets::nearest(int pipe, const AcGePoint3d& end,
                                                  double farthest) const {
    const double largestReach = std::max(search_.Candidates().LargestWellReach(), search_.snapDist);
    std::optional<NearTarget> best;
    for (double look = 2.0 * largestReach; !best || best->shortfall() + largestReach > look;
         look *= 2.0) {
        const tkvlt::PlanBox box = tkvlt::PlanBox::Around(end, std::min(look, farthest));
        best.reset();
        for (const int i : tkvlt::Collected(wellTree_, box)) {
            keepWell(wells_[static_cast<std::size_t>(i)], end, best);
        }
        for (const int i : search_.Candidates().TanksReachingInto(box)) {
            keepTank(i, end, best);
        }
        for (const int i : tkvlt::Collected(endTree_, box)) {
            keepPipe(pipe, pipes_[static_cast<std::size_t>(i / 2)], end, best);
        }
        if (!(look < farthest)) {
            break;
        }
    }
    return best && best->distance <= farthest ? best : std::nullopt;
}

void GravityTargets::keepWell(int well, const AcGePoint3d& end,
                              std::optional<NearTarget>& best) const {
    const tkvlt::WellSite& site = search_.SiteOfWell(well);
    keepBetter({NearTarget::Kind::well, well, search_.wellPool.IdOf(well),
                site.position.distanceTo(end), tkvlt::WellReach(site)},
               best);
}

void GravityTargets::keepTank(int tank, const AcGePoint3d& end,
                              std::optional<NearTarget>& best) const {
    const _Block& block = search_.tankPool[tank];
    keepBetter({NearTarget::Kind::tank, tank, block.id, distanceInPlan(end, block.extents),
                tkvlt::ExtentsMargin()},
               best);
}

/// A pipe that joins the other end of this one is no target: it lies behind.
void GravityTargets::keepPipe(int pipe, int other, const AcGePoint3d& end,
                              std::optional<NearTarget>& best) const {
    const tkvlt::PipeSite& own = search_.Site(pipe);
    const tkvlt::PipeSite& site = search_.Site(other);
    const tkvlt::NearEnd near = tkvlt::NearestEnd(site, end);
    const AcGePoint3d& nearPoint = near.isStart ? site.startPoint : site.endPoint;
    const bool isBehind = tkvlt::NearestEnd(own, nearPoint).distance < search_.snapDist &&
                          !(near.distance < search_.snapDist);
    if (other != pipe && !isBehind) {
        keepBetter({NearTarget::Kind::pipe, other, search_.pipePool.IdOf(other), near.distance,
                    search_.snapDist},
                   best);
    }
}

} // namespace pipenet
