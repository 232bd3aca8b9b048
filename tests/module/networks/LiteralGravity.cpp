#include "module/networks/LiteralGravity.h"

#include <algorithm>

namespace module_tests {

namespace {

constexpr wchar_t kWellKey[] = L"管井系统";
constexpr wchar_t kTankKey[] = L"池体系统";
constexpr wchar_t kPipeKey[] = L"管道系统";
constexpr wchar_t kTankInFilter[] = L"池体";

CString textOf(AcDbObjectId id, const wchar_t* key) {
    CString text;
    GetXdata(id, key, text);
    return text;
}

double numberOf(const CString& text) {
    return platform_crt::wcstod(text, nullptr);
}

bool isInPlan(const AcGePoint3d& point, const AcDbExtents& box) {
    const double margin = 1.0 / GetVZDrawScale();
    const AcGePoint3d low = box.minPoint();
    const AcGePoint3d high = box.maxPoint();
    return point.x >= low.x - margin && point.x <= high.x + margin && point.y >= low.y - margin &&
           point.y <= high.y + margin;
}

double wellReach(const _Block& block) {
    return block.isSquareWell != 0 ? block.radius * 1.01 * 1.414 : block.radius * 1.01;
}

/// The nearer end of a pipe; of two that are equally near the start.
double nearerEnd(const _Pipe& pipe, const AcGePoint3d& point, bool& isStart) {
    double best = 1e20;
    isStart = true;
    const double toStart = pipe.startPoint.distanceTo(point);
    if (toStart < best) {
        best = toStart;
    }
    const double toEnd = pipe.endPoint.distanceTo(point);
    if (toEnd < best) {
        best = toEnd;
        isStart = false;
    }
    return best;
}

AcGeTol tolerance(double equalVector) {
    AcGeTol result;
    result.setEqualVector(equalVector);
    return result;
}

Acad::ErrorStatus pointOnArc(const AcGeCircArc3d& arc, double distance, AcGePoint3d& point) {
    const AcGePlane plane(arc.center(), arc.normal());
    const double turn = arc.refVec().angleOnPlane(plane);
    const AcDbArc drawn(arc.center(), arc.normal(), arc.radius(), arc.startAng() + turn,
                        arc.endAng() + turn);
    return drawn.getPointAtDist(distance, point);
}

} // namespace

LiteralGravity::LiteralGravity(GravitySearchObject& result, AcDbObjectId start, AcDbObjectId end,
                               AcGePoint3d pick)
    : result_(result), start_(start), end_(end), pick_(pick),
      snapDist_(GetDwgScale() * GetPipeBreakDist() * 2.0 * 1.1 * 2.0),
      lengthMode_(GetPipeCalLongType()) {}

int LiteralGravity::run() {
    if (!validateEnds() || !collect() || !placeRoot()) {
        return 0;
    }
    const int walked = walk(0);
    if (walked == 0 || abortFlag != 0 || !traceEndPath()) {
        return 0;
    }
    orderHeights();
    return 1;
}

bool LiteralGravity::validateEnds() {
    if (end_ == start_ || start_.isNull()) {
        return false;
    }
    constexpr const wchar_t* keys[] = {kWellKey, kTankKey, kPipeKey};
    constexpr Kind kinds[] = {kWell, kTank, kPipe};
    for (int i = 0; i < 3 && system_.IsEmpty(); ++i) {
        system_ = textOf(start_, keys[i]);
        startKind_ = kinds[i];
    }
    if (system_.IsEmpty()) {
        return false;
    }
    if (end_.isNull()) {
        return true;
    }
    CString endSystem;
    for (int i = 0; i < 3 && endSystem.IsEmpty(); ++i) {
        endSystem = textOf(end_, keys[i]);
        endKind_ = kinds[i];
    }
    return endSystem.Compare(system_) == 0;
}

bool LiteralGravity::collect() {
    resbuf* filter = acutBuildList(-4, L"<or", -3, 1001, kWellKey, -3, 1001, kPipeKey, -3, 1001,
                                   kTankInFilter, -4, L"or>", 0);
    ads_name set = {0, 0};
    const int status = acedSSGet(L"X", nullptr, nullptr, filter, set);
    acutRelRb(filter);
    if (status != RTNORM) {
        return false;
    }
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name = {0, 0};
        AcDbObjectId id;
        acedSSName(set, i, name);
        acdbGetObjectId(id, name);
        collectEntity(id);
    }
    acedSSFree(set);
    return length > 0;
}

void LiteralGravity::collectEntity(AcDbObjectId id) {
    CString text;
    if (GetXdata(id, kPipeKey, text) != 0) {
        auto pipe = std::make_unique<_Pipe>(id, text);
        if (pipe->GetLength() > 1.0) {
            pipes_.push_back(std::move(pipe));
        }
    } else if (GetXdata(id, kWellKey, text) != 0) {
        wells_.push_back(std::make_unique<_Block>(id, CString(), text));
    } else if (GetXdata(id, kTankInFilter, text) != 0) {
        tanks_.push_back(std::make_unique<_Block>(id, CString(), CString()));
    }
}

bool LiteralGravity::placeRoot() {
    Target root;
    if (!findRoot(root)) {
        return false;
    }
    Well node = makeNode(root);
    result_.wells.Add(node);
    result_.rootWell = 0;
    return true;
}

bool LiteralGravity::findRoot(Target& root) {
    if (startKind_ == kPipe) {
        return findRootFromPipe(root);
    }
    const auto& pool = startKind_ == kWell ? wells_ : tanks_;
    for (std::size_t i = 0; i < pool.size(); ++i) {
        if (pool[i]->id == start_) {
            root = {startKind_ == kWell ? 1 : 0, static_cast<int>(i)};
            return true;
        }
    }
    return false;
}

bool LiteralGravity::findRootFromPipe(Target& root) {
    for (std::size_t i = 0; i < pipes_.size(); ++i) {
        if (pipes_[i]->id == start_) {
            const Target beforeStart = targetFrom(static_cast<int>(i), 1);
            const Target behindEnd = targetFrom(static_cast<int>(i), 0);
            if (beforeStart.index < 0 || behindEnd.index < 0) {
                root = beforeStart.index < 0 ? behindEnd : beforeStart;
                return root.index >= 0;
            }
            const double toFirst = blockOf(beforeStart).position.distanceTo(pick_);
            const double toSecond = blockOf(behindEnd).position.distanceTo(pick_);
            root = toSecond <= toFirst ? behindEnd : beforeStart;
            return true;
        }
    }
    return false;
}

LiteralGravity::Target LiteralGravity::targetFrom(int pipe, int outThroughStart) {
    const _Pipe& first = *pipes_[static_cast<std::size_t>(pipe)];
    resetChain(pipe);
    trace(pipe, outThroughStart, outThroughStart != 0 ? first.endPoint : first.startPoint);
    return target_;
}

_Block& LiteralGravity::blockOf(const Target& target) {
    return *(target.kind != 0 ? wells_ : tanks_)[static_cast<std::size_t>(target.index)];
}

Well LiteralGravity::makeNode(const Target& target) {
    const _Block& block = blockOf(target);
    Well node;
    static_cast<_Block&>(node) = block;
    node.isWell = target.kind;
    node.nodeEntity = block.id;
    node.nodePoint = block.position;
    if (target.kind != 0) {
        node.nodeRadius = block.radius;
        node.number = textOf(block.id, L"管井编号");
    }
    return node;
}

int LiteralGravity::walk(int well) {
    merge(well);
    if (wells_.empty()) {
        return 0;
    }
    for (int i = 0; i < static_cast<int>(pipes_.size()); ++i) {
        const _Pipe& pipe = *pipes_[static_cast<std::size_t>(i)];
        bool nearStart = true;
        AcGePoint3d seed;
        if (pipe.systemName.Compare(system_) != 0 ||
            !touches(pipe, result_.wells.ElementAt(well), nearStart, seed)) {
            continue;
        }
        resetChain(i);
        if (trace(i, nearStart ? 0 : 1, seed) == 0) {
            continue;
        }
        if (!isTargetNew()) {
            abortFlag = 1;
            return 0;
        }
        walk(commit(well));
        if (abortFlag != 0) {
            return 0;
        }
        i = -1;
    }
    return 1;
}

void LiteralGravity::merge(int well) {
    for (std::size_t i = 0; i < wells_.size(); ++i) {
        const _Block& free = *wells_[i];
        if (free.systemName.Compare(system_) != 0 || isNode(free.id)) {
            continue;
        }
        Well& node = result_.wells.ElementAt(well);
        const double distance = node.nodePoint.distanceTo(free.position);
        const double radius = free.isSquareWell != 0 ? free.radius * 1.414 : free.radius;
        if (distance > radius + node.nodeRadius + 10.0 / GetVZDrawScale()) {
            continue;
        }
        node.nodePoint = node.nodePoint + (free.position - node.nodePoint) * 0.5;
        node.nodeRadius = (distance + node.nodeRadius + radius) * 0.5;
        node.mergedEntities.append(free.id);
        wells_.erase(wells_.begin() + static_cast<std::ptrdiff_t>(i));
        --i;
    }
}

bool LiteralGravity::isNode(AcDbObjectId block) {
    for (INT_PTR i = 0; i < result_.wells.GetSize(); ++i) {
        if (result_.wells.ElementAt(i).nodeEntity == block) {
            return true;
        }
    }
    return false;
}

bool LiteralGravity::touches(const _Pipe& pipe, Well& node, bool& nearStart, AcGePoint3d& seed) {
    if (node.isWell == 0) {
        nearStart = isInPlan(pipe.startPoint, node.extents);
        seed = nearStart ? pipe.startPoint : pipe.endPoint;
        return nearStart != isInPlan(pipe.endPoint, node.extents);
    }
    const double margin = 10.0 / GetVZDrawScale();
    const double reach = node.isSquareWell != 0 ? node.nodeRadius * 2.0 * 1.414 + margin
                                                : node.nodeRadius * 2.0 + margin;
    seed = node.nodePoint;
    return !(nearerEnd(pipe, node.nodePoint, nearStart) > reach);
}

bool LiteralGravity::isTargetNew() {
    const AcDbObjectId id = blockOf(target_).id;
    for (INT_PTR i = 0; i < result_.wells.GetSize(); ++i) {
        const Well& node = result_.wells.ElementAt(i);
        if (node.nodeEntity == id || node.mergedEntities.contains(id)) {
            return false;
        }
    }
    return true;
}

int LiteralGravity::commit(int well) {
    Well node = makeNode(target_);
    const int reached = static_cast<int>(result_.wells.Add(node));
    Well& from = result_.wells.ElementAt(well);
    GravitySeg seg;
    seg.startWell = well;
    seg.endWell = reached;
    seg.startEntity = from.nodeEntity;
    seg.endEntity = node.nodeEntity;
    seg.startPoint = from.nodePoint;
    seg.endPoint = node.nodePoint;
    seg.length = chainLength_;
    placeLabel(seg, seg.startPoint);
    takePipes(seg);
    readAttributes(seg);
    const int index = static_cast<int>(result_.segs.Add(seg));
    result_.wells.ElementAt(well).outSegs.Add(index);
    result_.wells.ElementAt(reached).inSeg = index;
    return reached;
}

void LiteralGravity::takePipes(GravitySeg& seg) {
    for (std::size_t i = 0; i < pipes_.size();) {
        if (marks_[i] == 0) {
            ++i;
            continue;
        }
        seg.pipeIds.append(pipes_[i]->id);
        pipes_.erase(pipes_.begin() + static_cast<std::ptrdiff_t>(i));
        marks_.erase(marks_.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

void LiteralGravity::readAttributes(GravitySeg& seg) {
    if (seg.pipeIds.isEmpty()) {
        return;
    }
    const AcDbObjectId id = seg.pipeIds[0];
    AcGePoint3d start;
    AcGePoint3d end;
    CString startText;
    CString endText;
    AcDbCurve* curve = nullptr;
    if (acdbOpenObject(curve, id, AcDb::kForRead) == Acad::eOk) {
        curve->getStartPoint(start);
        curve->getEndPoint(end);
        curve->close();
        seg.diameter = _wtoi(textOf(id, L"管径"));
        seg.slope = numberOf(textOf(id, L"坡度"));
        seg.flowText = textOf(id, L"水流方向");
        seg.material = textOf(id, L"管材");
        startText = textOf(id, L"起点标高");
        endText = textOf(id, L"终点标高");
    }
    seg.systemName = system_;
    const bool isStartToEnd = seg.flowText.Compare(L"SE") == 0;
    const bool runsWithSeg = end.distanceTo(seg.startPoint) > start.distanceTo(seg.startPoint);
    seg.flowReversed = runsWithSeg ? (isStartToEnd ? 0 : 1) : (isStartToEnd ? 1 : 0);
    seg.startElevation = numberOf(runsWithSeg ? startText : endText);
    seg.endElevation = numberOf(runsWithSeg ? endText : startText);
}

void LiteralGravity::resetChain(int pipe) {
    target_.index = -1;
    chainLength_ = 0.0;
    marks_.assign(pipes_.size(), 0);
    marks_[static_cast<std::size_t>(pipe)] = 1;
    chain_ = {pipe};
}

int LiteralGravity::trace(int pipe, int outThroughStart, AcGePoint3d seed) {
    if (--waysLeft_ < 0) {
        throw TooManyWays();
    }
    const _Pipe& current = *pipes_[static_cast<std::size_t>(pipe)];
    const AcGePoint3d end = outThroughStart != 0 ? current.startPoint : current.endPoint;
    if (meetsNode(end)) {
        abortFlag = 1;
        return 0;
    }
    if (endsAtBlock(pipe, seed, end)) {
        return 1;
    }
    Way way = followEnds(pipe, seed, end);
    if (way == Way::kNothing) {
        way = followSides(pipe, seed, end);
    }
    return way == Way::kFound ? 1 : 0;
}

bool LiteralGravity::meetsNode(const AcGePoint3d& end) {
    for (INT_PTR i = 0; i < result_.wells.GetSize(); ++i) {
        for (const auto& block : wells_) {
            if (result_.wells.ElementAt(i).nodePoint.distanceTo(end) <= wellReach(*block)) {
                return true;
            }
        }
    }
    return false;
}

bool LiteralGravity::endsAtBlock(int pipe, const AcGePoint3d& seed, const AcGePoint3d& end) {
    for (std::size_t i = 0; i < wells_.size(); ++i) {
        const _Block& well = *wells_[i];
        if (well.systemName.Compare(system_) == 0 &&
            well.position.distanceTo(end) < wellReach(well)) {
            target_ = {1, static_cast<int>(i)};
            addLink(pipe, -1, seed, well.position);
            return true;
        }
    }
    for (std::size_t i = 0; i < tanks_.size(); ++i) {
        if (isInPlan(end, tanks_[i]->extents)) {
            target_ = {0, static_cast<int>(i)};
            addLink(pipe, -1, seed, end);
            return true;
        }
    }
    return false;
}

LiteralGravity::Way LiteralGravity::followEnds(int pipe, const AcGePoint3d& seed,
                                               const AcGePoint3d& end) {
    for (int i = 0; i < static_cast<int>(pipes_.size()); ++i) {
        const _Pipe& other = *pipes_[static_cast<std::size_t>(i)];
        bool nearStart = true;
        if (other.systemName.Compare(system_) != 0 || marks_[static_cast<std::size_t>(i)] != 0 ||
            !(nearerEnd(other, end, nearStart) < snapDist_) || !mayJoin(pipe, i)) {
            continue;
        }
        const Way way = follow(
            pipe, seed, {i, nearStart ? 0 : 1, nearStart ? other.startPoint : other.endPoint});
        if (way != Way::kNothing) {
            return way;
        }
    }
    return Way::kNothing;
}

LiteralGravity::Way LiteralGravity::followSides(int pipe, const AcGePoint3d& seed,
                                                const AcGePoint3d& end) {
    for (int i = 0; i < static_cast<int>(pipes_.size()); ++i) {
        const _Pipe& other = *pipes_[static_cast<std::size_t>(i)];
        bool nearStart = true;
        if (other.systemName.Compare(system_) != 0 || marks_[static_cast<std::size_t>(i)] != 0 ||
            nearerEnd(other, end, nearStart) < snapDist_ || !mayJoin(pipe, i)) {
            continue;
        }
        const Way way = followSide(pipe, i, seed);
        if (way != Way::kNothing) {
            return way;
        }
    }
    return Way::kNothing;
}

LiteralGravity::Way LiteralGravity::followSide(int pipe, int other, const AcGePoint3d& seed) {
    const _Pipe& current = *pipes_[static_cast<std::size_t>(pipe)];
    const _Pipe& crossed = *pipes_[static_cast<std::size_t>(other)];
    int count = 1;
    AcGePoint3d at;
    AcGePoint3d second;
    bool meet = false;
    if (current.isArc != 0 && crossed.isArc != 0) {
        meet = current.arc.intersectWith(crossed.arc, count, at, second) != 0;
    } else if (current.isArc != 0) {
        meet = current.arc.intersectWith(crossed.line, count, at, second) != 0;
    } else if (crossed.isArc != 0) {
        meet = crossed.arc.intersectWith(current.line, count, at, second) != 0;
    } else if (current.line.intersectWith(crossed.line, at) != 0) {
        meet = true;
    } else {
        return followOverlap(pipe, other, seed);
    }
    if (!meet || count != 1) {
        return Way::kNothing;
    }
    const double margin = 1000.0 / GetVZDrawScale();
    for (const int outThroughStart : {1, 0}) {
        const AcGePoint3d& to = outThroughStart != 0 ? crossed.startPoint : crossed.endPoint;
        if (to.distanceTo(at) > margin) {
            ++sideJoins;
            const Way way = follow(pipe, seed, {other, outThroughStart, at});
            if (way != Way::kNothing) {
                return way;
            }
        }
    }
    return Way::kNothing;
}

LiteralGravity::Way LiteralGravity::followOverlap(int pipe, int other, const AcGePoint3d& seed) {
    const AcGeLineSeg3d& along = pipes_[static_cast<std::size_t>(pipe)]->line;
    const AcGeLineSeg3d& line = pipes_[static_cast<std::size_t>(other)]->line;
    const AcGeTol colinear = tolerance(0.1);
    if (!along.isColinearTo(line, colinear)) {
        return Way::kNothing;
    }
    const bool startIsOn = along.isOn(line.startPoint(), colinear);
    const bool endIsOn = along.isOn(line.endPoint(), colinear);
    if (startIsOn == endIsOn) {
        return Way::kNothing;
    }
    ++sideJoins;
    return follow(pipe, seed,
                  {other, startIsOn ? 0 : 1, startIsOn ? line.startPoint() : line.endPoint()});
}

LiteralGravity::Way LiteralGravity::follow(int pipe, const AcGePoint3d& seed, const Entry& entry) {
    const double saved = chainLength_;
    addLink(pipe, entry.pipe, seed, entry.at);
    if (trace(entry.pipe, entry.outThroughStart, entry.at) != 0) {
        return Way::kFound;
    }
    marks_[static_cast<std::size_t>(entry.pipe)] = 0;
    chainLength_ = saved;
    chain_.pop_back();
    return abortFlag != 0 ? Way::kStopped : Way::kNothing;
}

bool LiteralGravity::mayJoin(int pipe, int other) {
    const _Pipe& current = *pipes_[static_cast<std::size_t>(pipe)];
    return current.isArc != 0 ||
           current.line.isParallelTo(pipes_[static_cast<std::size_t>(other)]->line,
                                     tolerance(0.3141592653589793));
}

void LiteralGravity::addLink(int pipe, int next, const AcGePoint3d& from, const AcGePoint3d& to) {
    _Pipe& passed = *pipes_[static_cast<std::size_t>(pipe)];
    if (lengthMode_ == 0) {
        chainLength_ += passed.GetLength();
    } else if (lengthMode_ == 1) {
        chainLength_ += passed.GetLength(from, to);
    }
    if (next >= 0) {
        marks_[static_cast<std::size_t>(next)] = 1;
        chain_.push_back(next);
    }
}

void LiteralGravity::placeLabel(GravitySeg& seg, AcGePoint3d reference) {
    if (chain_.size() == 1) {
        _Pipe& pipe = *pipes_[static_cast<std::size_t>(chain_[0])];
        labelOn(pipe, pipe.startPoint, pipe.endPoint, pipe.GetLength() * 0.5, seg);
        return;
    }
    double left = chainLength_ * 0.5;
    for (const int index : chain_) {
        _Pipe& pipe = *pipes_[static_cast<std::size_t>(index)];
        const double length = pipe.GetLength();
        left -= length;
        if (left < 0.0) {
            const bool fromStart =
                pipe.endPoint.distanceTo(reference) > pipe.startPoint.distanceTo(reference);
            labelOn(pipe, fromStart ? pipe.startPoint : pipe.endPoint,
                    fromStart ? pipe.endPoint : pipe.startPoint, left + length, seg);
            return;
        }
    }
}

void LiteralGravity::labelOn(_Pipe& pipe, AcGePoint3d from, AcGePoint3d to, double distance,
                             GravitySeg& seg) {
    if (pipe.isArc == 0) {
        AcGeVector3d along = to - from;
        along.normalize();
        seg.annotatePoint = from + along * distance;
        seg.annotateVector = pipe.line.direction();
        seg.annotateVector.normalize();
        return;
    }
    const bool isAgainstArc =
        from.distanceTo(pipe.arc.endPoint()) > to.distanceTo(pipe.arc.startPoint());
    const double onArc = isAgainstArc ? pipe.GetLength() - distance : distance;
    if (pointOnArc(pipe.arc, onArc, seg.annotatePoint) != Acad::eOk) {
        seg.annotatePoint = to + (from - to) * 0.5;
    }
    seg.annotateVector = seg.annotatePoint - pipe.arc.center();
    seg.annotateVector.rotateBy(1.5707963267948966, AcGeVector3d(0.0, 0.0, 1.0));
    seg.annotateVector.normalize();
}

int LiteralGravity::buildSingle(GravitySeg& seg, AcDbObjectId pipe, const CString& system) {
    collect();
    system_ = system;
    const auto found = std::find_if(pipes_.begin(), pipes_.end(),
                                    [&](const auto& each) { return each->id == pipe; });
    if (found == pipes_.end()) {
        return 0;
    }
    const int index = static_cast<int>(found - pipes_.begin());
    resetChain(index);
    const bool hasFirst = trace(index, 1, (*found)->startPoint) != 0;
    const Target first = hasFirst ? target_ : Target();
    std::reverse(chain_.begin(), chain_.end());
    chainLength_ = 0.0;
    target_.index = -1;
    const bool hasSecond = trace(index, 0, (*found)->endPoint) != 0;
    const Target second = hasSecond ? target_ : Target();
    readSingle(seg, pipe);
    if (!hasFirst || !hasSecond) {
        return closeOpenStretch(seg, index, first, second);
    }
    seg.endPoint = blockOf(first).position;
    seg.endEntity = blockOf(first).id;
    seg.startPoint = blockOf(second).position;
    seg.startEntity = blockOf(second).id;
    chainLength_ = seg.GetLength();
    placeLabel(seg, seg.endPoint);
    for (const int each : chain_) {
        seg.pipeIds.append(pipes_[static_cast<std::size_t>(each)]->id);
    }
    return 1;
}

void LiteralGravity::readSingle(GravitySeg& seg, AcDbObjectId pipe) {
    seg.flowText = textOf(pipe, L"水流方向");
    seg.material = textOf(pipe, L"管材");
    seg.systemName = system_;
    seg.diameter = _wtoi(textOf(pipe, L"管径"));
    seg.slope = numberOf(textOf(pipe, L"坡度"));
    AcDbCurve* curve = nullptr;
    if (acdbOpenObject(curve, pipe, AcDb::kForRead) == Acad::eOk) {
        curve->getStartPoint(seg.endPoint);
        curve->getEndPoint(seg.startPoint);
        curve->close();
    }
    const double first = numberOf(textOf(pipe, L"起点标高"));
    const double second = numberOf(textOf(pipe, L"终点标高"));
    if (seg.flowText.Compare(L"ES") == 0) {
        seg.startElevation = first;
        seg.endElevation = second;
    } else if (seg.flowText.Compare(L"SE") == 0) {
        seg.startElevation = second;
        seg.endElevation = first;
    }
}

int LiteralGravity::closeOpenStretch(GravitySeg& seg, int pipe, const Target& beforeStart,
                                     const Target& behindEnd) {
    _Pipe& own = *pipes_[static_cast<std::size_t>(pipe)];
    seg.pipeIds.append(own.id);
    seg.length = own.GetLength();
    chain_ = {pipe};
    chainLength_ = own.GetLength();
    placeLabel(seg, own.endPoint);
    if (beforeStart.index >= 0) {
        seg.endPoint = blockOf(beforeStart).position;
        seg.endEntity = blockOf(beforeStart).id;
        return 2;
    }
    if (behindEnd.index >= 0) {
        seg.startPoint = blockOf(behindEnd).position;
        seg.startEntity = blockOf(behindEnd).id;
        return 2;
    }
    return 0;
}

bool LiteralGravity::traceEndPath() {
    if (result_.wells.GetSize() < 2) {
        return false;
    }
    result_.rootWell = 0;
    if (end_.isNull()) {
        return true;
    }
    int node = endNode();
    if (node < 0) {
        return false;
    }
    for (result_.pathWells.Add(node); node != 0; result_.pathWells.Add(node)) {
        const int seg = result_.wells.GetAt(node).inSeg;
        result_.pathSegs.Add(seg);
        node = result_.segs.GetAt(seg).startWell;
    }
    return true;
}

int LiteralGravity::endNode() {
    if (endKind_ == kPipe) {
        for (INT_PTR i = 0; i < result_.segs.GetSize(); ++i) {
            if (result_.segs.GetAt(i).pipeIds.contains(end_)) {
                return result_.segs.GetAt(i).endWell;
            }
        }
        return -1;
    }
    for (int i = 1; i < static_cast<int>(result_.wells.GetSize()); ++i) {
        Well& node = result_.wells.ElementAt(i);
        if (node.nodeEntity == end_) {
            return i;
        }
        for (int k = 0; k < node.mergedEntities.length(); ++k) {
            if (node.mergedEntities[k] == end_) {
                node.mergedEntities.append(node.nodeEntity);
                node.nodeEntity = end_;
                node.mergedEntities.removeAt(k);
                return i;
            }
        }
    }
    return -1;
}

void LiteralGravity::orderHeights() {
    for (INT_PTR i = 0; i < result_.segs.GetSize(); ++i) {
        GravitySeg& seg = result_.segs.ElementAt(i);
        if (seg.startElevation > seg.endElevation) {
            std::swap(seg.startElevation, seg.endElevation);
        }
    }
}

} // namespace module_tests
