#include "faults/Crossings.h"

#include "faults/PipeHeight.h"
#include "gravity/ChainFrame.h"
#include "records/PipeBox.h"
#include "records/PipeCrossing.h"
#include "Systems.h"

#include <fmt/format.h>
#include <set>
#include <tuple>

namespace pipenet {

namespace {

/// The pipe laid flat, for pipes drawn at their heights cross in plan too.
_Pipe inPlan(const _Pipe& pipe) {
    _Pipe flat;
    flat = pipe;
    flat.startPoint.z = 0.0;
    flat.endPoint.z = 0.0;
    if (pipe.isArc == 0) {
        flat.line.set(flat.startPoint, flat.endPoint);
    }
    return flat;
}

void addHeights(const std::optional<HeightGap>& gap, Finding& finding) {
    if (gap) {
        finding.measured = gap->apart;
        finding.limit = gap->diameters;
        finding.unit = "m";
    }
}

/// Goes through the pairs of pipes of one gravity system.
class PlanCrossings {
public:
    PlanCrossings(GravityDrawing& drawing, SystemUnderCheck& under)
        : drawing_(drawing), search_(drawing.search()), under_(under) {}

    void report() {
        for (const int pipe : drawing_.pipesOf(search_.systemName)) {
            reportPipe(pipe);
        }
    }

private:
    void reportPipe(int first) {
        const _Pipe flat = inPlan(search_.pipePool[first]);
        for (const int second :
             search_.Candidates().PipesReachingInto(tkvlt::PipeBox(search_.pipePool[first]))) {
            const _Pipe& other = search_.pipePool[second];
            if (second <= first || other.systemName.Compare(search_.systemName) != 0 ||
                search_.MayContinue(search_.Site(first), search_.Site(second))) {
                continue;
            }
            const _Pipe flatOther = inPlan(other);
            const tkvlt::PipeCrossing crossing = tkvlt::CrossingOf(flat, flatOther);
            if (crossing.hit && isBetweenEnds(flat, crossing.point) &&
                isBetweenEnds(flatOther, crossing.point) && isOutsideNodes(crossing.point)) {
                add(search_.pipePool[first].id, other.id, crossing.point);
            }
        }
    }

    bool isBetweenEnds(const _Pipe& pipe, const AcGePoint3d& place) const {
        return !(tkvlt::NearestEnd(pipe, place).distance < search_.snapDist);
    }

    bool isOutsideNodes(const AcGePoint3d& place) const {
        return search_.WellAt(place) < 0 && search_.TankAt(place) < 0;
    }

    void add(const AcDbObjectId& first, const AcDbObjectId& second, const AcGePoint3d& place) {
        const std::optional<HeightGap> gap = heightGap(first, second, place);
        const bool collide = gap && gap->apart < gap->diameters;
        Finding& finding =
            under_.add("crossing-without-joint", collide ? Severity::warning : Severity::note);
        finding.entities = {first, second};
        finding.place = place;
        addHeights(gap, finding);
        finding.sentence =
            collide ? fmt::format("{} and {} cross without a well and only {:.3g} m apart in "
                                  "height, less than their diameters together ({:.3g} m); check "
                                  "their heights, or put a well there",
                                  nameOf(first), nameOf(second), gap->apart, gap->diameters)
                    : fmt::format("{} and {} cross without a well, so no water goes from the one "
                                  "into the other; put a well there if they are to meet",
                                  nameOf(first), nameOf(second));
    }

    GravityDrawing& drawing_;
    const tkvlt::GravityNetworkSearch& search_;
    SystemUnderCheck& under_;
};

} // namespace

void findCrossings(GravityDrawing& drawing, SystemUnderCheck& under) {
    PlanCrossings(drawing, under).report();
}

void findCrossingHeights(const PressureForest& forest, SystemUnderCheck& under) {
    std::set<std::tuple<AcDbObjectId, AcDbObjectId>> seen;
    for (const tkvlt::PipeCut& cut : forest.cuts()) {
        const auto [first, second] = std::minmax(cut.first, cut.second);
        const std::optional<HeightGap> gap = heightGap(first, second, cut.point);
        if (!gap || !(gap->apart > gap->diameters) || !seen.emplace(first, second).second) {
            continue;
        }
        Finding& finding = under.add("crossing-heights", Severity::warning);
        finding.entities = {first, second};
        finding.place = cut.point;
        addHeights(gap, finding);
        finding.sentence = fmt::format(
            "{} and {} are joined because they cross in plan, but their heights there are {:.3g} m "
            "apart, more than their diameters together ({:.3g} m); correct the heights, or draw "
            "one of them in two pieces around the crossing",
            nameOf(first), nameOf(second), gap->apart, gap->diameters);
    }
}

} // namespace pipenet
