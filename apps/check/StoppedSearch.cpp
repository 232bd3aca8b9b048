#include "StoppedSearch.h"

#include "CheckDrawing.h"
#include "faults/NetworkFindings.h"
#include "gravity/ChainFrame.h"
#include "gravity/GravityNetworkSearch.h"
#include "HandleText.h"
#include "pressure/PressureNetworkSearch.h"
#include "Systems.h"

#include <algorithm>
#include <deque>
#include <unordered_set>

namespace pipenet {

namespace {

using Ids = std::unordered_set<AcDbObjectId>;

/// A search up to the step that failed.
struct Replay {
    std::string step;
    Ids ring; ///< pipes by which it came back to what it knew
    Ids near; ///< the start and what hangs together with it, for a search that got nowhere
    bool isTurned = false;    ///< a run that was turned round misled it
    AcDbObjectIdArray turned; ///< the pipes of that run
};

/// The pipe and those that a chain could go on to from it.
Ids joinedPipes(const tkvlt::GravityNetworkSearch& search, const AcDbObjectId& start) {
    Ids joined{start};
    std::deque<int> front;
    for (const int pipe : search.Candidates().PipesOf(start)) {
        if (search.pipePool.IdOf(pipe) == start) {
            front.push_back(pipe);
        }
    }
    while (!front.empty()) {
        const int pipe = front.front();
        front.pop_front();
        for (const int outThroughStart : {1, 0}) {
            for (const tkvlt::ChainBranch& way : search.WaysOut(pipe, outThroughStart)) {
                if (joined.insert(search.pipePool[way.pipe].id).second) {
                    front.push_back(way.pipe);
                }
            }
        }
    }
    return joined;
}

std::string failedGravityStep(tkvlt::GravityNetworkSearch& search) {
    search.LetDrawingStay();
    if (search.ValidateEnds() == 0) {
        return "validation";
    }
    if (search.CollectEntities() == 0) {
        return "collection";
    }
    if (search.PlaceRootWell() == 0) {
        return "root";
    }
    if (search.WalkFromWell(0) == 0 || search.abortFlag != 0) {
        return "walk";
    }
    return search.TraceEndPath() == 0 ? "end path" : "";
}

Replay replayGravity(AcDbObjectId start, AcDbObjectId end, AcGePoint3d point) {
    GravitySearchObject found;
    tkvlt::GravityNetworkSearch search(&found, start, end, point);
    std::vector<tkvlt::ClosedChain> closed;
    search.closedChains = &closed;
    Replay replay;
    replay.step = failedGravityStep(search);
    if (!closed.empty()) {
        for (const int pipe : closed.front().pipes) {
            replay.ring.insert(search.pipePool.IdOf(pipe));
        }
    }
    if (replay.step == "root") {
        search.RestorePools();
        replay.near = joinedPipes(search, start);
    } else if (replay.step != "validation") {
        const bool isForEnd = !end.isNull() && found.wells.GetSize() > 1;
        replay.near = {isForEnd ? end : start};
    }
    return replay;
}

/// Up to the test for rings; `turnedRuns` as the search has it.
std::string failedPressureStep(tkvlt::PressureNetworkSearch& search) {
    if (search.ReadSystemName() == 0) {
        return "validation";
    }
    if (search.CollectEntities() == 0) {
        return "collection";
    }
    if (search.FindPickedPipe() == 0) {
        return "root";
    }
    search.PreparePipes();
    try {
        if (search.BuildSegments() == 0) {
            return "root";
        }
    } catch (const CInvalidArgException&) {
        return "walk"; // a merge has taken away what a branch led to
    }
    return search.CheckNoLoops() == 0 ? "loop test" : "";
}

/// The pipes of the first two segments that end in one place, and whether the run of the later one
/// had been turned round.
void noteMeeting(tkvlt::PressureNetworkSearch& search, Replay& replay) {
    for (int i = 0; i < static_cast<int>(search.segs.GetSize()); ++i) {
        for (const int later : search.LaterSegsEndingAt(i)) {
            PressureSeg& seg = search.segs.ElementAt(later);
            replay.isTurned = seg.parent == i && seg.reversed != 0 && seg.pipeIds.length() > 1;
            for (const PressureSeg* meeting : {&search.segs.ElementAt(i), &seg}) {
                for (int p = 0; p < meeting->pipeIds.length(); ++p) {
                    replay.ring.insert(meeting->pipeIds.at(p));
                }
            }
            replay.turned = seg.pipeIds;
            return;
        }
    }
}

Replay replayPressure(const AcDbObjectId& start, const AcGePoint3d& point) {
    CArray<PressureSeg, PressureSeg&> segs;
    int root = -1;
    tkvlt::PressureNetworkSearch search(segs, start, point, root);
    Replay replay;
    replay.step = failedPressureStep(search);
    if (replay.step == "loop test") {
        noteMeeting(search, replay);
    }
    if (replay.step != "validation") {
        replay.near = {start};
    }
    return replay;
}

/// Whether an entity lacks the very text by which the collection knows it, so that a search from it
/// finds no root. What else may be missing is read as 0 and stops nothing.
bool keepsOut(const Finding& finding) {
    return finding.code == "missing-key" && !networkEntity(finding.entities.front());
}

/// What can keep a search from a network.
bool canStop(const Finding& finding, const std::string& step) {
    static const std::unordered_set<std::string> codes{
        "pipe-too-short",      "dead-end",   "gap-at-joint",     "angle-at-joint",
        "end-in-foreign-well", "no-network", "well-without-pipe"};
    return codes.count(finding.code) != 0 || (step == "root" && keepsOut(finding));
}

std::ptrdiff_t shared(const Finding& finding, const Ids& ids) {
    return std::count_if(finding.entities.begin(), finding.entities.end(),
                         [&](const AcDbObjectId& id) { return ids.count(id) != 0; });
}

/// Of the gravest findings that pass and share something with `ids`, the one that shares most, the
/// first of equals; nothing when none shares anything.
template<class Test>
std::optional<Finding> closest(const CheckReport& report, const Ids& ids, Test passes) {
    std::optional<Finding> best;
    std::ptrdiff_t most = 0;
    for (const Finding& finding : report.findings) {
        if (best && finding.severity != best->severity) {
            break; // the gravest stand first
        }
        if (const std::ptrdiff_t count = passes(finding) ? shared(finding, ids) : 0; count > most) {
            most = count;
            best = finding;
        }
    }
    return best;
}

Finding turnedRunFinding(const Replay& replay, const AcDbObjectId& start,
                         const std::string& system) {
    Finding finding;
    finding.code = "turned-run";
    finding.severity = Severity::error;
    finding.system = system;
    for (int i = 0; i < replay.turned.length(); ++i) {
        finding.entities.push_back(replay.turned.at(i));
    }
    finding.sentence = turnedRunSentence(finding.entities, start);
    return finding;
}

} // namespace

StoppedSearch stoppedSearch(const AcDbObjectId& start, const AcDbObjectId& end,
                            const AcGePoint3d& point) {
    const CString name = systemNameOf(start);
    const Replay replay = PelGetDirectionSytle(name) == kGravityFlow
                              ? replayGravity(start, end, point)
                              : replayPressure(start, point);
    StoppedSearch stopped{replay.step, std::nullopt};
    if (replay.isTurned) {
        stopped.finding = turnedRunFinding(replay, start, utf8(name));
        return stopped;
    }
    if (replay.near.empty() && replay.ring.empty()) {
        return stopped;
    }
    const CheckReport report = checkDrawing(utf8(name));
    const bool isRing = !replay.ring.empty();
    stopped.finding =
        isRing ? closest(report, replay.ring, [](const Finding& f) { return f.code == "cycle"; })
               : closest(report, replay.near,
                         [&](const Finding& f) { return canStop(f, replay.step); });
    return stopped;
}

} // namespace pipenet
