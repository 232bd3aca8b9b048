#include "faults/GravityEnds.h"

#include "faults/PipeAngle.h"
#include "gravity/ChainFrame.h"
#include "gravity/GravityNetworkSearch.h"
#include "records/PipeBox.h"
#include "records/PipeCrossing.h"
#include "Systems.h"

#include <algorithm>
#include <fmt/format.h>

namespace pipenet {

namespace {

/// A gap up to this many times the one that joins is a near miss.
constexpr double kNearMiss = 5.0;

/// Farther from a dead end nothing is named, metres.
constexpr double kFarthestNamed = 100.0;

double drawingUnits(double metresLong) {
    return metresLong / metres(1.0);
}

} // namespace

GravityEnds::GravityEnds(GravityDrawing& drawing, const ShortPipes& shortPipes,
                         SystemUnderCheck& under)
    : drawing_(drawing), search_(drawing.search()), shortPipes_(shortPipes), under_(under),
      targets_(drawing) {
    for (std::size_t i = 0; i < under.pieces.runs.size(); ++i) {
        const CheckedRun& run = under.pieces.runs[i];
        for (const AcDbObjectId& pipe : run.pipes) {
            networks_.emplace(pipe, under.networkOfNode[static_cast<std::size_t>(run.from)]);
        }
    }
}

void GravityEnds::report() {
    for (const int pipe : drawing_.pipesOf(search_.systemName)) {
        for (const End& end :
             {End{pipe, true, pipeAt(pipe).startPoint}, End{pipe, false, pipeAt(pipe).endPoint}}) {
            if (isOpen(end)) {
                reportEnd(end);
            }
        }
    }
}

/// A chain that comes out here finds neither an end nor a way on.
bool GravityEnds::isOpen(const End& end) const {
    if (search_.WellAt(end.place) >= 0 || search_.TankAt(end.place) >= 0) {
        return false;
    }
    const std::vector<tkvlt::ChainBranch> ways = search_.WaysOut(end.pipe, end.isStart ? 1 : 0);
    return std::all_of(ways.begin(), ways.end(),
                       [&](const tkvlt::ChainBranch& way) { return turnsBack(end, way); });
}

/// Pipes in line lie in one another's way from either end. Whoever comes from such a pipe can leave
/// this one at this end alone, so it lies behind and is no way on from here.
bool GravityEnds::turnsBack(const End& end, const tkvlt::ChainBranch& way) const {
    const int outThroughStart = end.isStart ? 1 : 0;
    bool comesOutHere = false;
    for (const tkvlt::ChainBranch& back :
         search_.WaysOut(way.pipe, way.outThroughStart != 0 ? 0 : 1)) {
        if (back.pipe == end.pipe && back.outThroughStart != outThroughStart) {
            return false;
        }
        comesOutHere = comesOutHere || back.pipe == end.pipe;
    }
    return comesOutHere;
}

void GravityEnds::reportEnd(const End& end) {
    if (reportForeignWell(end)) {
        return;
    }
    if (shortPipes_.endNear(end.place, search_.snapDist)) {
        under_.explained.insert(pipeAt(end.pipe).id);
        return;
    }
    if (reportAngle(end)) {
        return;
    }
    const auto target = targets_.nearest(end.pipe, end.place, drawingUnits(kFarthestNamed));
    if (!target || !reportGap(end, *target)) {
        reportDeadEnd(end, target);
    }
}

bool GravityEnds::reportForeignWell(const End& end) {
    const double farthest = search_.Candidates().LargestWellReach();
    for (const int i : search_.Candidates().WellsIn(tkvlt::PlanBox::Around(end.place, farthest))) {
        if (!tkvlt::HoldsEnd(search_.SiteOfWell(i), end.place)) {
            continue;
        }
        const AcDbObjectId& well = search_.wellPool.IdOf(i);
        Finding& finding = add("end-in-foreign-well", Severity::error, end);
        finding.entities.push_back(well);
        finding.sentence = foreignWellSentence(pipeAt(end.pipe).id, well);
        return true;
    }
    return false;
}

/// Two pipes that meet and are one run but for the angle between them. Each of them may be an open
/// end of that joint; it is told once.
bool GravityEnds::reportAngle(const End& end) {
    for (const int other : search_.Candidates().PipesReachingInto(
             tkvlt::PlanBox::Around(end.place, search_.snapDist))) {
        AcGePoint3d place;
        if (other == end.pipe || !meets(end, other, place) ||
            search_.MayContinue(search_.Site(end.pipe), search_.Site(other))) {
            continue;
        }
        if (isReportedPair(end, other)) {
            return true;
        }
        const bool isFoundAllTheSame = networkOf(pipeAt(end.pipe).id) >= 0;
        Finding& finding =
            add("angle-at-joint", isFoundAllTheSame ? Severity::warning : Severity::error, end);
        finding.entities.push_back(pipeAt(other).id);
        finding.measured = degreesBetween(pipeAt(end.pipe), pipeAt(other));
        finding.limit = degrees(tkvlt::kLargestTurn);
        finding.unit = "°";
        finding.sentence = fmt::format(
            "{} meets {} at an angle of {:.3g}°, and without a well a straight pipe goes on within "
            "{:.3g}° only; put a well there, or draw the bend as a polyline",
            nameOf(pipeAt(end.pipe).id), nameOf(pipeAt(other).id), *finding.measured,
            *finding.limit);
        return true;
    }
    return false;
}

/// Whether the end would join the other pipe, end to end or into its side, if the direction did.
bool GravityEnds::meets(const End& end, int other, AcGePoint3d& place) const {
    const _Pipe& next = pipeAt(other);
    if (next.systemName.Compare(search_.systemName) != 0) {
        return false;
    }
    if (tkvlt::NearestEnd(next, end.place).distance < search_.snapDist) {
        return true;
    }
    const tkvlt::PipeCrossing crossing = tkvlt::CrossingOf(pipeAt(end.pipe), next);
    place = crossing.point;
    return crossing.hit && crossing.point.distanceTo(end.place) < search_.snapDist;
}

bool GravityEnds::isReportedPair(const End& end, int other) {
    return !reportedPairs_.emplace(std::min(end.pipe, other), std::max(end.pipe, other)).second;
}

/// Two open ends in line that all but join.
bool GravityEnds::reportGap(const End& end, const NearTarget& target) {
    if (target.kind != NearTarget::Kind::pipe || target.distance > kNearMiss * target.reach ||
        !search_.MayContinue(search_.Site(end.pipe), search_.Site(target.index))) {
        return false;
    }
    const tkvlt::NearEnd near = tkvlt::NearestEnd(pipeAt(target.index), end.place);
    const End other{target.index, near.isStart,
                    near.isStart ? pipeAt(target.index).startPoint : pipeAt(target.index).endPoint};
    if (!isOpen(other)) {
        return false;
    }
    if (isReportedPair(end, target.index)) {
        return true;
    }
    Finding& finding = add("gap-at-joint", Severity::error, end);
    finding.entities.push_back(target.entity);
    finding.measured = metres(target.distance);
    finding.limit = metres(target.reach);
    finding.unit = "m";
    finding.sentence = fmt::format(
        "{} and {} are in line and {:.4g} m apart, and ends join only when they are less than "
        "{:.4g} m apart; draw them together",
        nameOf(pipeAt(end.pipe).id), nameOf(target.entity), *finding.measured, *finding.limit);
    return true;
}

/// Of two ends that face one another the first one speaks for both.
void GravityEnds::reportDeadEnd(const End& end, const std::optional<NearTarget>& target) {
    if (target && target->kind == NearTarget::Kind::pipe && isReportedPair(end, target->index)) {
        under_.explained.insert(pipeAt(end.pipe).id);
        return;
    }
    Finding& finding = add("dead-end", Severity::warning, end);
    if (!target) {
        finding.sentence = fmt::format(
            "{} ends where nothing is: no well or pipe of its system and no tank lies within "
            "{:.3g} m; lengthen it, or put a well there",
            nameOf(pipeAt(end.pipe).id), kFarthestNamed);
        return;
    }
    finding.entities.push_back(target->entity);
    finding.measured = metres(target->distance);
    finding.limit = metres(target->reach);
    finding.unit = "m";
    finding.sentence = deadEndSentence(end, *target);
}

std::string GravityEnds::deadEndSentence(const End& end, const NearTarget& target) const {
    const std::string pipe = nameOf(pipeAt(end.pipe).id);
    const std::string what = nameOf(target.entity);
    const double distance = metres(target.distance);
    const double reach = metres(target.reach);
    switch (target.kind) {
    case NearTarget::Kind::well:
        return fmt::format(
            "{} ends where nothing is: the nearest is {}, {:.4g} m from its end, and "
            "that well holds ends nearer than {:.4g} m; lengthen the pipe, or put a "
            "well there",
            pipe, what, distance, reach);
    case NearTarget::Kind::tank:
        return fmt::format(
            "{} ends where nothing is: the nearest is {}, {:.4g} m from its end, and "
            "a tank holds ends at most {:.4g} m outside it; lengthen the pipe, or "
            "put a well there",
            pipe, what, distance, reach);
    default:
        return fmt::format("{} ends where nothing is: the nearest is an end of {}, {:.4g} m away, "
                           "and ends join only when they are less than {:.4g} m apart and in line; "
                           "lengthen the pipe, or put a well there",
                           pipe, what, distance, reach);
    }
}

int GravityEnds::networkOf(const AcDbObjectId& pipe) const {
    const auto network = networks_.find(pipe);
    return network == networks_.end() ? -1 : network->second;
}

Finding& GravityEnds::add(const char* code, Severity severity, const End& end) {
    const AcDbObjectId& pipe = pipeAt(end.pipe).id;
    Finding& finding = under_.add(code, severity);
    finding.entities = {pipe};
    finding.place = end.place;
    finding.network = networkOf(pipe);
    return finding;
}

} // namespace pipenet
