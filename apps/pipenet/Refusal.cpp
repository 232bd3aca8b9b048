#include "Refusal.h"

#include "HandleText.h"
#include "Messages.h"
#include "NetworkTable.h"
#include "records/XdataKeys.h"
#include "SettingsCheck.h"
#include "StoppedSearch.h"
#include "Systems.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace pipenet {

namespace {

using namespace messages;

bool isTank(const AcDbObjectId& id) {
    return XdataText(id, xdata::kWellSystem).IsEmpty() &&
           !XdataText(id, xdata::kTankSystem).IsEmpty();
}

bool isWell(const AcDbObjectId& id) {
    return !XdataText(id, xdata::kWellSystem).IsEmpty();
}

/// The collection takes an entity as a pipe before anything else, and a tank by another text than
/// the one that names its system.
bool isCollectedNode(const AcDbObjectId& id) {
    CString text;
    const bool pipe = ReadXdata(id, xdata::kPipeSystem, text) != 0;
    const bool well = ReadXdata(id, xdata::kWellSystem, text) != 0;
    const bool tank = ReadXdata(id, xdata::kTank, text) != 0;
    return !pipe && (isTank(id) ? tank && !well : well);
}

double pipeLength(const AcDbObjectId& id) {
    return _Pipe(id, CString()).GetLength();
}

/// How far a search without an end gets.
struct Attempt {
    int result;
    GravitySearchObject network;
};

void attempt(Attempt& to, const SearchRequest& request) {
    AcDbObjectId start = request.start;
    AcDbObjectId none;
    AcGePoint3d point = request.point;
    to.result = GetGravityNetwork(&to.network, start, none, point);
}

std::string endCause(const SearchRequest& request) {
    const CString startSystem = systemNameOf(request.start);
    const CString endSystem = systemNameOf(request.end);
    if (request.start == request.end) {
        return textOf(kSameEnds, nameOf(request.start));
    }
    if (endSystem.IsEmpty()) {
        return textOf(kEndWithoutSystem, nameOf(request.start), nameOf(request.end));
    }
    if (endSystem != startSystem) {
        return textOf(kEndOfOtherSystem, nameOf(request.start), nameOf(request.end),
                      utf8(startSystem), utf8(endSystem));
    }
    return {};
}

std::string startCause(const SearchRequest& request, const GravitySearchObject& reached) {
    const std::string start = nameOf(request.start);
    const std::string system = utf8(systemNameOf(request.start));
    if (reached.wells.GetSize() > 1) {
        const Well& last = reached.wells[reached.wells.GetUpperBound()];
        return textOf(kCycle, start, system, nodeName(last), reached.wells.GetSize());
    }
    if (reached.wells.GetSize() == 1) {
        return textOf(kAlone, start, system, jointReach());
    }
    if (isWell(request.start) || isTank(request.start)) {
        return isCollectedNode(request.start) ? textOf(kNoReason, start)
                                              : textOf(kNotCollected, start);
    }
    if (const double length = pipeLength(request.start); length <= 1.0) {
        return textOf(kShortPipe, start, length);
    }
    return textOf(kNoTarget, start, jointReach(), system);
}

std::string unreachedEnd(const SearchRequest& request, const GravitySearchObject& network) {
    const Well& root = network.wells[0];
    const std::string from = nameOf(request.start);
    const std::string to = nameOf(request.end);
    if (root.nodeEntity == request.end) {
        return textOf(kEndIsRoot, from, to);
    }
    if (root.mergedEntities.contains(request.end)) {
        return textOf(kEndInRoot, from, to);
    }
    return textOf(kEndNotReached, from, to, network.wells.GetSize());
}

std::string gravityCause(const SearchRequest& request) {
    if (!request.end.isNull()) {
        if (std::string cause = endCause(request); !cause.empty()) {
            return cause;
        }
    }
    Attempt tried;
    attempt(tried, request);
    if (tried.result == 0) {
        return startCause(request, tried.network);
    }
    return request.end.isNull() ? textOf(kNoReason, nameOf(request.start))
                                : unreachedEnd(request, tried.network);
}

/// Two segments that end less than one drawing unit apart, which closes a network on itself.
struct ClosingPair {
    INT_PTR first = -1; ///< -1 when there is none
    INT_PTR second = -1;
};

/// Sweeps over the ends from left to right, so that only near ones are compared.
ClosingPair closingPair(PressureSearchObject& network) {
    std::vector<std::pair<double, INT_PTR>> ends;
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        ends.emplace_back(network.segs[i].GetSearchPoint().x, i);
    }
    std::sort(ends.begin(), ends.end());
    for (std::size_t a = 0; a < ends.size(); ++a) {
        const AcGePoint3d place = network.segs[ends[a].second].GetSearchPoint();
        for (std::size_t b = a + 1; b < ends.size() && ends[b].first - ends[a].first < 1.0; ++b) {
            if (place.distanceTo(network.segs[ends[b].second].GetSearchPoint()) < 1.0) {
                return {ends[a].second, ends[b].second};
            }
        }
    }
    return {};
}

std::string pressureCause(const SearchRequest& request) {
    const std::string start = nameOf(request.start);
    const std::string system = utf8(systemNameOf(request.start));
    PressureSearchObject tried;
    try {
        GetPressureNetwork(tried.segs, request.start, request.point, tried.rootSeg);
    } catch (const CInvalidArgException&) {
        return textOf(kLostInRuns, start, system);
    }
    const ClosingPair pair = closingPair(tried);
    if (pair.first < 0) {
        return textOf(kPressure, start, system);
    }
    PressureSeg& first = tried.segs[pair.first];
    const AcGePoint3d place = first.GetSearchPoint();
    return textOf(kClosed, start, system, tried.segs.GetSize(), handleText(first.pipeIds[0]),
                  handleText(tried.segs[pair.second].pipeIds[0]), place.x, place.y);
}

/// The sentence of the finding that stopped the search, or else the one that `cause` gives, and the
/// step that failed.
template<class Cause>
std::string stopText(const SearchRequest& request, Cause cause) {
    const StoppedSearch stopped = stoppedSearch(request.start, request.end, request.point);
    if (stopped.step.empty()) {
        return cause();
    }
    if (!stopped.finding) {
        return textOf(kStopped, cause(), stopped.step);
    }
    const Finding& finding = *stopped.finding;
    const std::string from = nameOf(request.start);
    return request.end.isNull()
               ? textOf(kStoppedByFinding, from, finding.sentence, finding.code, stopped.step)
               : textOf(kPathStoppedByFinding, from, nameOf(request.end), finding.sentence,
                        finding.code, stopped.step);
}

/// Paths go by the text of wells, of the root as well.
std::string targetCause(const GravitySearchObject& network, const AcDbObjectId& start,
                        const AcDbObjectId& target) {
    const std::string from = nameOf(start);
    const std::string to = nameOf(target);
    const Well& root = network.wells[0];
    const CString rootSystem = XdataText(root.nodeEntity, xdata::kWellSystem);
    if (root.nodeEntity == target) {
        return textOf(kTargetIsRoot, from, to);
    }
    if (root.mergedEntities.contains(target)) {
        return textOf(kTargetInRoot, from, to);
    }
    if (rootSystem.IsEmpty()) {
        return textOf(kRootWithoutWells, from, to, nameOf(root.nodeEntity));
    }
    CString targetSystem = XdataText(target, xdata::kWellSystem);
    if (targetSystem.IsEmpty()) {
        targetSystem = XdataText(target, xdata::kPipeSystem);
    }
    if (targetSystem.IsEmpty()) {
        return textOf(kTargetWithoutSystem, from, to);
    }
    if (targetSystem != rootSystem) {
        return textOf(kTargetOfOtherSystem, from, to, utf8(rootSystem), utf8(targetSystem));
    }
    return textOf(kTargetNotReached, from, to, network.wells.GetSize());
}

} // namespace

std::string refusalOf(const Drawing& drawing, const SearchRequest& request,
                      const SearchOutcome& outcome) {
    if (outcome.object != nullptr) {
        return {};
    }
    if (request.start.isNull()) {
        return textOf(kNothingToPick, drawing.path());
    }
    const CString system = systemNameOf(request.start);
    const std::string start = nameOf(request.start);
    if (system.IsEmpty()) {
        return textOf(kNoSystemName, start);
    }
    switch (PelGetDirectionSytle(system)) {
    case kGravityFlow:
        return stopText(request, [&] { return gravityCause(request); });
    case kPressureFlow:
        return stopText(request, [&] { return pressureCause(request); });
    default:
        return textOf(kUnknownSystem, start, utf8(system), pipeSystemsFile());
    }
}

std::string segmentRefusal(const AcDbObjectId& pipe, int kind) {
    const std::string system = utf8(XdataText(pipe, xdata::kPipeSystem));
    const std::string name = nameOf(pipe);
    if (system.empty()) {
        return textOf(kNoPipe, name);
    }
    if (kind != kGravityFlow) {
        return textOf(kSegmentUnknownSystem, name, system, pipeSystemsFile());
    }
    if (const double length = pipeLength(pipe); length <= 1.0) {
        return textOf(kSegmentShort, name, length);
    }
    return textOf(kSegmentNoTarget, name, jointReach(), system);
}

std::string pathRefusal(const Drawing& drawing, const SearchRequest& request,
                        const SearchOutcome& outcome, const AcDbObjectId& target) {
    if (const GravitySearchObject* network = gravityNetwork(outcome)) {
        return targetCause(*network, request.start, target);
    }
    if (pressureNetwork(outcome) != nullptr) {
        return textOf(kPathOfPressure, nameOf(request.start), nameOf(target),
                      utf8(systemNameOf(request.start)));
    }
    return refusalOf(drawing, request, outcome);
}

std::string lowerRefusal(const AcDbObjectId& pipe, bool changed, const std::string& path) {
    const int kind = flowKindOfPipe(pipe);
    if (changed) {
        return textOf(kNothingFollows, nameOf(pipe), path);
    }
    if (kind == kPressureFlow) {
        return textOf(kNotGravity, nameOf(pipe), utf8(XdataText(pipe, xdata::kPipeSystem)));
    }
    Seg seg;
    if (GetSingleSeg(seg, pipe) == 0) {
        return segmentRefusal(pipe, kind);
    }
    if (seg.gravity.endEntity.isNull()) {
        return textOf(kOpenAtStart, nameOf(pipe));
    }
    return textOf(kNothingLowered, nameOf(pipe),
                  gravityCause({seg.gravity.endEntity, AcDbObjectId(), AcGePoint3d()}));
}

} // namespace pipenet
