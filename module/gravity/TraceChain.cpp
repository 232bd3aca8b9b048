// Follows a run of pipe from the free end of a pipe to the well or tank where it ends.
//
// A run may be drawn as several pipes that meet end to end, or cross one another. From a free end
// the stages are, and the first that decides ends the level:
//   1. a known node there: the network closes on itself, the whole search gives up;
//   2. a well of the searched system there: the target;
//   3. a tank there, of whatever system: the target;
//   4. pipes that have an end there, each followed through its other end;
//   5. pipes that the last pipe crosses or overlaps, each followed towards both ends.
// A way that leads nowhere is taken back and the next is tried. Within a stage the first in pool
// order wins.

#include <algorithm>

#include "gravity/ChainFrame.h"
#include "gravity/ChainOutlook.h"
#include "gravity/GravityNetworkSearch.h"
#include "records/PipeBox.h"
#include "records/PipeLength.h"

namespace tkvlt {

namespace {

AcGeTol ParallelTolerance() {
    AcGeTol tolerance;
    tolerance.setEqualVector(kLargestTurn);
    return tolerance;
}

AcGeTol ColinearTolerance() {
    AcGeTol tolerance;
    tolerance.setEqualVector(0.1);
    return tolerance;
}

/// Curves meet within the host's own tolerance, and overlap within the default one.
double LargestPointTolerance() {
    return std::max(AcGeContext::gTol.equalPoint(), ColinearTolerance().equalPoint());
}

/// A crossing this near to a pipe's end does not lead towards that end: one metre in the drawing.
double CrossingMargin() {
    return 1000.0 / GetVZDrawScale();
}

/// Crosses two pipes of which at least one is an arc; false when they do not meet.
bool CrossArc(const _Pipe& current, const _Pipe& next, int& count, AcGePoint3d& crossing) {
    AcGePoint3d second;
    const AcGeCircArc3d& arc = current.isArc != 0 ? current.arc : next.arc;
    if (current.isArc != 0 && next.isArc != 0) {
        return arc.intersectWith(next.arc, count, crossing, second) != 0;
    }
    const AcGeLineSeg3d& line = current.isArc != 0 ? next.line : current.line;
    return arc.intersectWith(line, count, crossing, second) != 0;
}

} // namespace

int GravityNetworkSearch::ResetChain(int pipe) {
    targetIndex = -1;
    chainLength = 0.0;
    // Marks stand exactly on the pipes of the last chain, so clearing those clears all.
    for (int i = 0; i < static_cast<int>(chainPipes.GetSize()); ++i) {
        pipeMarks.SetAt(chainPipes.GetAt(i), 0);
    }
    chainPipes.SetSize(0);
    pipeMarks.SetSize(pipePool.Size());
    pipeMarks.SetAt(pipe, 1);
    chainPipes.Add(pipe);
    return 1;
}

int GravityNetworkSearch::AddChainLink(int pipe, int nextPipe, AcGePoint3d from, AcGePoint3d to) {
    if (lengthMode == 0) {
        chainLength += PipeLength(pipe);
    } else if (lengthMode == 1) {
        chainLength += PipeLength(pipe, from, to);
    }
    if (nextPipe >= 0) {
        pipeMarks.SetAt(nextPipe, 1);
        chainPipes.Add(nextPipe);
    }
    return 1;
}

/// Asked of a pipe when it joins the chain and again when the label is placed, mostly in
/// succession.
double GravityNetworkSearch::PipeLength(int pipe) {
    if (pipe != measuredPipe_) {
        measuredLength_ = PipeLength(pipe, Site(pipe).startPoint, Site(pipe).endPoint);
        measuredPipe_ = pipe;
    }
    return measuredLength_;
}

double GravityNetworkSearch::PipeLength(int pipe, const AcGePoint3d& from,
                                        const AcGePoint3d& to) const {
    const PipeSite& site = Site(pipe);
    return site.isArc != 0 ? LengthAlong(pipePool[pipe].arc, from, to)
                           : LengthAlong(site.Chord(), from, to);
}

int GravityNetworkSearch::UndoChainLink(int pipe, double savedLength) {
    pipeMarks.SetAt(pipe, 0);
    chainLength = savedLength;
    chainPipes.RemoveAt(chainPipes.GetUpperBound());
    return 1;
}

/// A chain that has been taken back often is begun again, with an outlook that leaves out the ways
/// that lead nowhere. It finds the same: those ways change nothing but the time.
int GravityNetworkSearch::TraceChain(int pipe, int outThroughStart, AcGePoint3d seed) {
    constexpr int withoutLimit = -1;
    const ChainBranch first{pipe, outThroughStart, seed};
    const bool looksAhead = candidateMode_ == CandidateMode::kIndexed;
    Trace trace = FollowChain(first, nullptr, looksAhead ? takeBacksBeforeOutlook : withoutLimit);
    if (trace == Trace::kGivenUp) {
        ChainOutlook outlook(*this);
        trace =
            outlook.MayEnd(first) ? FollowChain(first, &outlook, withoutLimit) : Trace::kNoTarget;
    }
    return trace == Trace::kTarget ? 1 : 0;
}

/// @param takeBacks after so many the chain is given up; a negative number is never reached.
GravityNetworkSearch::Trace
GravityNetworkSearch::FollowChain(const ChainBranch& first, ChainOutlook* outlook, int takeBacks) {
    // An explicit stack of levels: a chain may be as long as there are pipes.
    levels_.clear();
    levels_.push_back(EnterPipe(first));
    ChainEnd end = EndOfChain(levels_.back());
    while (end != ChainEnd::kTarget) {
        ChainFrame& level = levels_.back();
        ChainBranch branch;
        if (end == ChainEnd::kOpen && NextBranch(level, branch)) {
            if (outlook != nullptr && !outlook->MayEnd(branch)) {
                continue;
            }
            level.savedLength = chainLength;
            AddChainLink(level.pipe, branch.pipe, level.seed, branch.joint);
            levels_.push_back(EnterPipe(branch));
            end = EndOfChain(levels_.back());
            continue;
        }
        if (levels_.size() == 1) {
            return Trace::kNoTarget;
        }
        TakeChainBack();
        end = abortFlag != 0 ? ChainEnd::kKnownNode : ChainEnd::kOpen;
        if (outlook != nullptr) {
            outlook->ChainTakenBack();
        } else if (end == ChainEnd::kOpen && takeBacks >= 0 && takeBacks-- == 0) {
            while (levels_.size() > 1) {
                TakeChainBack();
            }
            return Trace::kGivenUp;
        }
    }
    return Trace::kTarget;
}

/// Leaves the last level, which led nowhere.
void GravityNetworkSearch::TakeChainBack() {
    const int deadEnd = levels_.back().pipe;
    levels_.pop_back();
    UndoChainLink(deadEnd, levels_.back().savedLength);
}

ChainFrame GravityNetworkSearch::EnterPipe(const ChainBranch& branch) const {
    ChainFrame level;
    const PipeSite& pipe = Site(branch.pipe);
    level.pipe = branch.pipe;
    level.seed = branch.joint;
    level.freeEnd = branch.outThroughStart != 0 ? pipe.startPoint : pipe.endPoint;
    return level;
}

GravityNetworkSearch::ChainEnd GravityNetworkSearch::EndOfChain(const ChainFrame& level) {
    candidates_->ExpectQuestionsAt(level.freeEnd);
    if (const int node = KnownNodeNear(level.freeEnd); node >= 0) {
        abortFlag = 1;
        NoteClosedChain(node, level.freeEnd);
        return ChainEnd::kKnownNode;
    }
    if (const int well = WellAt(level.freeEnd); well >= 0) {
        targetIndex = well;
        candidates_->ExpectNodesOf(SiteOfWell(well).id);
        AddChainLink(level.pipe, -1, level.seed, SiteOfWell(well).position);
        targetKind = kWellTarget;
        return ChainEnd::kTarget;
    }
    if (const int tank = TankAt(level.freeEnd); tank >= 0) {
        targetIndex = tank;
        AddChainLink(level.pipe, -1, level.seed, level.freeEnd);
        targetKind = kTankTarget;
        return ChainEnd::kTarget;
    }
    return ChainEnd::kOpen;
}

bool GravityNetworkSearch::ChainEndsAt(const AcGePoint3d& freeEnd) const {
    return KnownNodeNear(freeEnd) >= 0 || WellAt(freeEnd) >= 0 || TankAt(freeEnd) >= 0;
}

/// The first node that the free end is near to; -1 for none. The reach is that of the wells still
/// in the pool and not the node's own, so the largest decides.
int GravityNetworkSearch::KnownNodeNear(const AcGePoint3d& freeEnd) const {
    if (result == nullptr || wellPool.IsEmpty()) {
        return -1;
    }
    const double reach = candidates_->LargestWellReach();
    const Indices nodes = candidates_->NodesIn(PlanBox::Around(freeEnd, reach));
    const auto near = std::find_if(nodes.begin(), nodes.end(), [&](int node) {
        return result->wells.GetAt(node).nodePoint.distanceTo(freeEnd) <= reach;
    });
    return near == nodes.end() ? -1 : *near;
}

void GravityNetworkSearch::NoteClosedChain(int node, const AcGePoint3d& freeEnd) {
    if (closedChains == nullptr) {
        return;
    }
    ClosedChain& closed = closedChains->emplace_back();
    for (int i = 0; i < static_cast<int>(chainPipes.GetSize()); ++i) {
        closed.pipes.push_back(chainPipes.GetAt(i));
    }
    closed.node = node;
    closed.freeEnd = freeEnd;
}

int GravityNetworkSearch::WellAt(const AcGePoint3d& freeEnd) const {
    for (const int i :
         candidates_->WellsIn(PlanBox::Around(freeEnd, candidates_->LargestWellReach()))) {
        const WellSite& well = SiteOfWell(i);
        if (IsSearched(well) && HoldsEnd(well, freeEnd)) {
            return i;
        }
    }
    return -1;
}

int GravityNetworkSearch::TankAt(const AcGePoint3d& freeEnd) const {
    for (const int i : candidates_->TanksReachingInto(PlanBox::Around(freeEnd, ExtentsMargin()))) {
        if (PointInExtents(freeEnd, tankPool[i].extents, 1) != 0) {
            return i;
        }
    }
    return -1;
}

std::vector<ChainBranch> GravityNetworkSearch::WaysOut(int pipe, int outThroughStart) const {
    ChainFrame level = EnterPipe({pipe, outThroughStart, AcGePoint3d()});
    level.throughChain = true;
    std::vector<ChainBranch> ways;
    ChainBranch way;
    while (NextBranch(level, way)) {
        ways.push_back(way);
    }
    return ways;
}

bool GravityNetworkSearch::NextBranch(ChainFrame& level, ChainBranch& branch) const {
    if (level.towardsEnd) {
        branch = *level.towardsEnd;
        level.towardsEnd.reset();
        return true;
    }
    while (level.stage != ChainStage::kExhausted) {
        while (level.nextCandidate < level.candidates.size()) {
            const int pipe = level.candidates[level.nextCandidate++];
            if (CanFollow(level, pipe) &&
                (level.stage == ChainStage::kEndToEnd ? JoinsEndToEnd(level, pipe, branch)
                                                      : EntersSide(level, pipe, branch))) {
                return true;
            }
        }
        BeginNextStage(level);
    }
    return false;
}

void GravityNetworkSearch::BeginNextStage(ChainFrame& level) const {
    level.nextCandidate = 0;
    switch (level.stage) {
    case ChainStage::kEntered:
        level.stage = ChainStage::kEndToEnd;
        level.candidates = candidates_->PipesWithEndIn(PlanBox::Around(level.freeEnd, snapDist));
        break;
    case ChainStage::kEndToEnd:
        level.stage = ChainStage::kIntoSide;
        level.candidates = candidates_->PipesReachingInto(
            PipeBox(pipePool[level.pipe]).Widened(2.0 * LargestPointTolerance()));
        break;
    default:
        level.stage = ChainStage::kExhausted;
        break;
    }
}

bool GravityNetworkSearch::CanFollow(const ChainFrame& level, int pipe) const {
    const bool isClosed = level.throughChain ? pipe == level.pipe : pipeMarks.GetAt(pipe) != 0;
    return !isClosed && IsSearched(Site(pipe));
}

/// An arc may turn anywhere; a straight pipe goes on in its own direction, an
/// arc behind it being judged by its chord.
bool GravityNetworkSearch::MayContinue(const PipeSite& current, const PipeSite& next) const {
    return current.isArc != 0 ||
           current.Chord().isParallelTo(next.Chord(), ParallelTolerance()) != 0;
}

bool GravityNetworkSearch::JoinsEndToEnd(const ChainFrame& level, int pipe,
                                         ChainBranch& branch) const {
    const PipeSite& next = Site(pipe);
    const NearEnd near = NearestEnd(next, level.freeEnd);
    if (!(near.distance < snapDist) || !MayContinue(Site(level.pipe), next)) {
        return false;
    }
    branch = {pipe, near.isStart ? 0 : 1, near.isStart ? next.startPoint : next.endPoint};
    return true;
}

bool GravityNetworkSearch::EntersSide(ChainFrame& level, int pipe, ChainBranch& branch) const {
    if (NearestEnd(Site(pipe), level.freeEnd).distance < snapDist ||
        !MayContinue(Site(level.pipe), Site(pipe))) {
        return false;
    }
    const _Pipe& current = pipePool[level.pipe];
    const _Pipe& next = pipePool[pipe];
    int count = 0;
    AcGePoint3d crossing;
    if (current.isArc != 0 || next.isArc != 0) {
        if (!CrossArc(current, next, count, crossing)) {
            return false;
        }
    } else {
        count = 1;
        if (current.line.intersectWith(next.line, crossing) == 0) {
            return ContinuesOverlap(level, pipe, branch);
        }
    }
    return count == 1 && LeavesCrossing(level, pipe, crossing, branch);
}

bool GravityNetworkSearch::ContinuesOverlap(const ChainFrame& level, int pipe,
                                            ChainBranch& branch) const {
    const AcGeLineSeg3d& current = pipePool[level.pipe].line;
    const AcGeLineSeg3d& next = pipePool[pipe].line;
    const AcGeTol tolerance = ColinearTolerance();
    if (current.isColinearTo(next, tolerance) == 0) {
        return false;
    }
    const bool startIsOn = current.isOn(next.startPoint(), tolerance) != 0;
    const bool endIsOn = current.isOn(next.endPoint(), tolerance) != 0;
    if (startIsOn == endIsOn) {
        return false;
    }
    branch = {pipe, startIsOn ? 0 : 1, startIsOn ? next.startPoint() : next.endPoint()};
    return true;
}

bool GravityNetworkSearch::LeavesCrossing(ChainFrame& level, int pipe, const AcGePoint3d& crossing,
                                          ChainBranch& branch) const {
    const _Pipe& next = pipePool[pipe];
    const double margin = CrossingMargin();
    const ChainBranch towardsStart{pipe, 1, crossing};
    const ChainBranch towardsEnd{pipe, 0, crossing};
    const bool startIsFar = next.startPoint.distanceTo(crossing) > margin;
    const bool endIsFar = next.endPoint.distanceTo(crossing) > margin;
    if (startIsFar && endIsFar) {
        level.towardsEnd = towardsEnd;
    }
    branch = startIsFar ? towardsStart : towardsEnd;
    return startIsFar || endIsFar;
}

} // namespace tkvlt
