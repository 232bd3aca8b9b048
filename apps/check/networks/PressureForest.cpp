#include "networks/PressureForest.h"

#include "gravity/GravityNetworkSearch.h"
#include "HandleText.h"
#include "records/XdataKeys.h"
#include "RunParents.h"
#include "Systems.h"

#include <algorithm>
#include <utility>

namespace pipenet {

namespace {

/// Rounding moves the end of a segment by less, drawing units.
constexpr double kSamePlace = 1e-6;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

bool waterComesFrom(const AcDbObjectId& pipe, bool start) {
    const wchar_t* flow = start ? xdata::kStartToEnd : xdata::kEndToStart;
    return XdataText(pipe, xdata::kFlow).Compare(flow) == 0;
}

/// What the first pipe of a segment says, told in the direction of the walk.
GravitySeg valuesOf(PressureSeg& seg) {
    GravitySeg values;
    values.startPoint = seg.GetBeginPoint();
    values.endPoint = seg.GetSearchPoint();
    tkvlt::ReadSegmentValues(values, seg.pipeIds.at(0));
    return values;
}

} // namespace

PressureForest::PressureForest(const CString& system, std::vector<CString> others)
    : system_(system), others_(std::move(others)),
      search_(segs_, AcDbObjectId(), AcGePoint3d(), rootSeg_) {}

NetworkPieces PressureForest::grow() {
    prepare();
    for (const FreeEnd& end : freeEnds_) {
        growFrom(end.piece, end.place);
    }
    for (int i = 0; i < search_.pipePool.Size(); ++i) {
        if (search_.pipePool.Has(i)) {
            growFrom(i, search_.pipePool.At(i).startPoint);
        }
    }
    search_.CheckNoLoops();
    parents_ = runParents(segs_);
    joinMeetingEnds();
    makeNodes();
    makeRuns();
    noticeRings();
    noticePassedEnds();
    addWellsOnRuns();
    search_.AttachWells();
    addFittings();
    return std::move(pieces_);
}

void PressureForest::prepare() {
    search_.systemName = system_;
    search_.cuts = &cuts_;
    search_.turnedRuns = &turned_;
    search_.CollectEntities();
    search_.PreparePipes();
    findFreeEnds();
}

void PressureForest::findFreeEnds() {
    for (int i = 0; i < search_.pipePool.Size(); ++i) {
        if (!search_.pipePool.Has(i)) {
            continue;
        }
        prepared_.push_back(i);
        const tkvlt::PipePiece& pipe = search_.pipePool.At(i);
        const AcDbObjectId id = search_.pipePool.IdOf(i);
        for (const bool isStart : {true, false}) {
            const AcGePoint3d& place = isStart ? pipe.startPoint : pipe.endPoint;
            const tkvlt::Indices inReach = search_.PipesInReach(place, system_);
            if (std::all_of(inReach.begin(), inReach.end(), [i](int p) { return p == i; })) {
                freeEnds_.push_back({i, id, place, isStart, waterComesFrom(id, isStart),
                                     search_.ReachFrom(place, system_), foreignWellAt(place)});
            } else {
                addJoint(i, place, inReach);
            }
        }
    }
    std::stable_sort(freeEnds_.begin(), freeEnds_.end(), [](const FreeEnd& a, const FreeEnd& b) {
        return std::make_pair(!a.isSource, !a.isStart) < std::make_pair(!b.isSource, !b.isStart);
    });
}

void PressureForest::addJoint(int piece, const AcGePoint3d& place, const tkvlt::Indices& inReach) {
    Joint joint{place, {}};
    for (const int other : inReach) {
        if (other != piece) {
            joint.others.push_back(search_.pipePool.IdOf(other));
        }
    }
    joints_.emplace(search_.pipePool.IdOf(piece), std::move(joint));
}

AcDbObjectId PressureForest::foreignWellAt(const AcGePoint3d& place) const {
    for (const CString& other : others_) {
        if (const int well = search_.WellHolding(place, other); well >= 0) {
            return search_.wellPool[well].id;
        }
    }
    return {};
}

void PressureForest::growFrom(int piece, const AcGePoint3d& place) {
    if (!search_.pipePool.Has(piece)) {
        return;
    }
    search_.pickedPoint = place;
    const int root = search_.PlaceRoot(piece);
    try {
        search_.WalkFromSeg(root);
    } catch (const CInvalidArgException&) { // NOLINT(bugprone-empty-catch)
        // A late merge has taken away what a branch led to. What was reached until then is here,
        // and the other pipes grow by themselves.
    }
    networkOf_.resize(at(segCount()), static_cast<int>(roots_.size()));
    roots_.push_back(root);
}

/// Of several that end in one place each later one comes back to the first.
void PressureForest::joinMeetingEnds() {
    meets_.assign(at(segCount()), -1);
    for (int i = 0; i < segCount(); ++i) {
        for (const int later : search_.LaterSegsEndingAt(i)) {
            if (networkOf_[at(later)] == networkOf_[at(i)] && meets_[at(later)] < 0) {
                meets_[at(later)] = i;
                pieces_.closings.push_back(closingOf(i, later));
            }
        }
    }
}

/// Ends that are not in reach of one another, or those of a segment and of one that hangs on it,
/// are no ring, though the module takes them for one.
Closing PressureForest::closingOf(int earlier, int later) {
    const AcGePoint3d place = seg(earlier).GetSearchPoint();
    Closing closing;
    closing.run = later;
    closing.node = earlier;
    closing.measured = place.distanceTo(seg(later).GetSearchPoint());
    closing.limit = tkvlt::kOnePlace;
    closing.isNearMiss =
        parents_[at(later)] == earlier || !(closing.measured <= search_.ReachFrom(place, system_));
    return closing;
}

void PressureForest::makeNodes() {
    endNodes_.assign(at(segCount()), -1);
    std::vector<bool> isReal(at(segCount()), false);
    for (Closing& closing : pieces_.closings) {
        isReal[at(closing.run)] = !closing.isNearMiss;
    }
    for (int i = 0; i < segCount(); ++i) {
        const int network = networkOf_[at(i)];
        if (roots_[at(network)] == i) {
            rootNodes_.push_back(nodeAt(seg(i).GetBeginPoint()));
            pieces_.roots.push_back({rootNodes_.back(), seg(i).pipeIds.at(0), false});
        }
        endNodes_[at(i)] =
            isReal[at(i)] ? endNodes_[at(meets_[at(i)])] : nodeAt(seg(i).GetSearchPoint());
    }
    for (Closing& closing : pieces_.closings) {
        closing.node = endNodes_[at(closing.node)];
    }
}

/// A new node, of the well of the system that holds the place when there is one.
int PressureForest::nodeAt(const AcGePoint3d& place) {
    CheckedNode node;
    node.kind = CheckedNodeKind::junction;
    node.place = place;
    const int index = static_cast<int>(pieces_.nodes.size());
    if (const int well = search_.WellHolding(place, system_); well >= 0) {
        const _Block& block = search_.wellPool[well];
        node.entity = block.id;
        node.kind = CheckedNodeKind::well;
        node.number = utf8(XdataText(block.id, xdata::kWellNumber));
        node.place = block.position;
        node.radius = block.radius;
        wellNodes_.emplace(block.id, index);
    }
    pieces_.nodes.push_back(node);
    return index;
}

int PressureForest::beginNode(int index) {
    const int parent = parents_[at(index)];
    return parent < 0 ? rootNodes_[at(networkOf_[at(index)])] : endNodes_[at(parent)];
}

void PressureForest::makeRuns() {
    for (int i = 0; i < segCount(); ++i) {
        pieces_.runs.push_back(runOf(i));
    }
}

CheckedRun PressureForest::runOf(int index) {
    PressureSeg& from = seg(index);
    CheckedRun run;
    for (int i = 0; i < from.pipeIds.length(); ++i) {
        run.pipes.push_back(from.pipeIds.at(i));
    }
    run.from = beginNode(index);
    run.to = endNodes_[at(index)];
    run.start = from.GetBeginPoint();
    run.end = from.GetSearchPoint();
    run.diameter = from.diameter;
    run.material = utf8(from.material);
    run.length = metres(from.GetLength());
    run.startElevation = from.startElevation;
    run.endElevation = from.endElevation;
    const bool isTold = from.flowText.Compare(xdata::kStartToEnd) == 0 ||
                        from.flowText.Compare(xdata::kEndToStart) == 0;
    run.flowReversed = isTold && valuesOf(from).flowReversed != 0;
    return run;
}

/// A ring that no free end leads to is walked once round. The search points of its segments all
/// differ then, for its begin is none, and the module accepts it.
void PressureForest::noticeRings() {
    for (std::size_t network = 0; network < roots_.size(); ++network) {
        const int first = roots_[network];
        const bool isLast = network + 1 == roots_.size();
        const int end = isLast ? segCount() : roots_[network + 1];
        const AcGePoint3d begin = seg(first).GetBeginPoint();
        const double reach = search_.ReachFrom(begin, system_);
        for (int i = first + 1; i < end; ++i) {
            const double distance = seg(i).GetSearchPoint().distanceTo(begin);
            if (distance <= reach && meets_[at(i)] < 0) {
                Closing closing;
                closing.run = i;
                closing.node = rootNodes_[network];
                closing.isUnnoticed = true;
                pieces_.runs[at(i)].to = closing.node;
                pieces_.closings.push_back(closing);
                break;
            }
        }
    }
}

/// A segment may come to its end when all that joins it there is taken already, by a segment that
/// goes straight on through the place. None but the first ends there then, and the module accepts
/// it.
void PressureForest::noticePassedEnds() {
    SegsOfPipe segsOfPipe;
    for (int i = 0; i < segCount(); ++i) {
        for (int k = 0; k < seg(i).pipeIds.length(); ++k) {
            segsOfPipe.emplace(seg(i).pipeIds.at(k), i);
        }
    }
    std::vector<bool> isClosing(at(segCount()), false);
    for (const Closing& closing : pieces_.closings) {
        isClosing[at(closing.run)] = true;
    }
    for (int i = 0; i < segCount(); ++i) {
        const Joint* joint = isClosing[at(i)] ? nullptr : jointAtEndOf(i);
        const Closing closing = joint == nullptr ? Closing() : passingAt(*joint, i, segsOfPipe);
        if (closing.passingRun >= 0) {
            pieces_.closings.push_back(closing);
        }
    }
}

/// What was in reach of the far end of a segment that nothing hangs on; null when nothing was, or
/// nothing else than at its begin.
const PressureForest::Joint* PressureForest::jointAtEndOf(int index) {
    PressureSeg& ending = seg(index);
    const AcGePoint3d place = ending.GetSearchPoint();
    if (ending.children.GetSize() > 0 ||
        place.distanceTo(ending.GetBeginPoint()) <= search_.ReachFrom(place, system_)) {
        return nullptr;
    }
    const auto [first, last] = joints_.equal_range(ending.pipeIds.last());
    const auto found = std::find_if(first, last, [&place](const auto& joint) {
        return joint.second.place.distanceTo(place) < kSamePlace;
    });
    return found == last ? nullptr : &found->second;
}

/// The run of the same network that goes on through a joint at which another segment ends.
Closing PressureForest::passingAt(const Joint& joint, int index, const SegsOfPipe& segsOfPipe) {
    Closing closing;
    for (const AcDbObjectId& pipe : joint.others) {
        const auto [first, last] = segsOfPipe.equal_range(pipe);
        for (auto other = first; other != last && closing.passingRun < 0; ++other) {
            const int before = pipesBefore(other->second, joint);
            if (other->second != index && before > 0 && passes(other->second, joint.place) &&
                networkOf_[at(other->second)] == networkOf_[at(index)]) {
                closing.run = index;
                closing.node = endNodes_[at(index)];
                closing.isUnnoticed = true;
                closing.passingRun = other->second;
                closing.pipesBefore = before;
            }
        }
    }
    return closing;
}

/// Whether a segment comes by a place without beginning or ending there.
bool PressureForest::passes(int index, const AcGePoint3d& place) {
    PressureSeg& passing = seg(index);
    const AcGePoint3d begin = passing.GetBeginPoint();
    const AcGePoint3d end = passing.GetSearchPoint();
    const double reach = search_.ReachFrom(place, system_);
    const bool isBeside = passing.isArc == 0 && AcGeLineSeg3d(begin, end).distanceTo(place) > reach;
    return !isBeside && place.distanceTo(begin) > reach && place.distanceTo(end) > reach;
}

/// How many pipes of a segment lie before a joint inside of it; 0 when it has none there.
int PressureForest::pipesBefore(int index, const Joint& joint) {
    const AcDbObjectIdArray& pipes = seg(index).pipeIds;
    const auto isThere = [&](int k) {
        return std::find(joint.others.begin(), joint.others.end(), pipes.at(k)) !=
               joint.others.end();
    };
    for (int k = 0; k + 1 < pipes.length(); ++k) {
        if (isThere(k) && isThere(k + 1)) {
            return k + 1;
        }
    }
    return 0;
}

/// Wells of the system that stand on a run belong to its network, whatever they are.
void PressureForest::addWellsOnRuns() {
    for (int i = 0; i < segCount(); ++i) {
        for (const int well : search_.WellsOn(seg(i))) {
            if (search_.wellPool[well].systemName.Compare(system_) == 0) {
                nodeOfWell(search_.wellPool[well].id, CheckedNodeKind::well, beginNode(i));
            }
        }
    }
}

void PressureForest::addFittings() {
    for (int i = 0; i < segCount(); ++i) {
        PressureSeg& run = seg(i);
        for (int v = 0; v < run.valveIds.length(); ++v) {
            nodeOfWell(run.valveIds.at(v), CheckedNodeKind::valve, beginNode(i));
        }
        for (int m = 0; m < run.meterIds.length(); ++m) {
            nodeOfWell(run.meterIds.at(m), CheckedNodeKind::meter, beginNode(i));
        }
    }
}

/// The node of a well, which is made when there is none; it becomes of this kind unless that is a
/// mere well.
int PressureForest::nodeOfWell(const AcDbObjectId& well, CheckedNodeKind kind, int companion) {
    const int next = static_cast<int>(pieces_.nodes.size());
    const auto [known, isNew] = wellNodes_.emplace(well, next);
    if (isNew) {
        const _Block block(well, CString(), CString());
        CheckedNode node;
        node.entity = well;
        node.number = utf8(XdataText(well, xdata::kWellNumber));
        node.place = block.position;
        node.radius = block.radius;
        pieces_.nodes.push_back(node);
        pieces_.companions.emplace_back(next, companion);
    }
    CheckedNode& node = pieces_.nodes[at(known->second)];
    if (kind != CheckedNodeKind::well) {
        node.kind = kind;
    }
    return known->second;
}

} // namespace pipenet
