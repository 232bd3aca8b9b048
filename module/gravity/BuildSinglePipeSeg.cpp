// The stretch around one pipe, without a network. The segment is oriented against the entity: its
// end side is the pipe's start, and its start side the pipe's end.

#include <utility>

#include "gravity/GravityNetworkSearch.h"
#include "records/ClosedAtEnd.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

void Reverse(CArray<int, int>& list) {
    const int size = static_cast<int>(list.GetSize());
    for (int k = 0; k < size / 2; ++k) {
        std::swap(list.ElementAt(k), list.ElementAt(size - 1 - k));
    }
}

void ReadCurveEnds(const AcDbObjectId& pipe, AcGePoint3d& start, AcGePoint3d& end) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, pipe, AcDb::kForRead, AcDbCurve::desc(), false) != Acad::eOk) {
        return;
    }
    const ClosedAtEnd closing(object);
    auto* curve = static_cast<AcDbCurve*>(object);
    curve->getStartPoint(start);
    curve->getEndPoint(end);
}

/// What a pipe carries as its texts for a single segment. The elevation at "起点标高" is that at
/// the upstream end here, so for water that runs from end to start it is the segment's start.
void ReadPipeValues(GravitySeg& seg, const AcDbObjectId& pipe) {
    seg.flowText = XdataText(pipe, xdata::kFlow);
    const CString startElevation = XdataText(pipe, xdata::kStartElevation);
    const CString endElevation = XdataText(pipe, xdata::kEndElevation);
    seg.diameter = IntegerPrefix(XdataText(pipe, xdata::kDiameter));
    ReadXdata(pipe, xdata::kMaterial, seg.material);
    seg.slope = NumberPrefix(XdataText(pipe, xdata::kSlope));
    ReadCurveEnds(pipe, seg.endPoint, seg.startPoint);
    if (seg.flowText.Compare(xdata::kEndToStart) == 0) {
        seg.startElevation = NumberPrefix(startElevation);
        seg.endElevation = NumberPrefix(endElevation);
    } else if (seg.flowText.Compare(xdata::kStartToEnd) == 0) {
        seg.endElevation = NumberPrefix(startElevation);
        seg.startElevation = NumberPrefix(endElevation);
    }
}

} // namespace

int GravityNetworkSearch::BuildSinglePipeSeg(GravitySeg& seg, const AcDbObjectId& pipe,
                                             CString systemName) {
    this->systemName = systemName;
    const int i = FindPipe(pipe);
    if (i < 0) {
        return 0;
    }
    ResetChain(i);
    ChainOutcome first{};
    first.reached = TraceChain(i, 1, pipePool[i].startPoint);
    first.targetIndex = targetIndex;
    first.targetKind = targetKind;
    first.length = chainLength;
    // The list then ends with the pipe, and the second trace goes on behind it. The marks stay, so
    // that the second trace cannot use the pipes of the first.
    Reverse(chainPipes);
    chainLength = 0.0;
    targetIndex = -1;
    ChainOutcome second{};
    second.reached = TraceChain(i, 0, pipePool[i].endPoint);
    second.targetIndex = targetIndex;
    second.targetKind = targetKind;
    second.length = chainLength;

    ReadPipeValues(seg, pipe);
    seg.systemName = this->systemName;
    if (first.reached == 0 || second.reached == 0) {
        return FinishOneSided(seg, i, first, second);
    }
    FinishTwoSided(seg, first, second);
    return 1;
}

int GravityNetworkSearch::FinishOneSided(GravitySeg& seg, int pipe, const ChainOutcome& first,
                                         const ChainOutcome& second) {
    seg.pipeIds.append(pipePool[pipe].id);
    seg.length = pipePool[pipe].GetLength();
    ResetChain(pipe);
    chainLength = seg.length;
    PlaceAnnotation(seg.annotatePoint, seg.annotateVector, pipePool[pipe].endPoint);
    if (first.reached != 0) {
        const _Block& block = TargetBlock(first.targetKind, first.targetIndex);
        seg.endPoint = block.position;
        seg.endEntity = block.id;
        return 2;
    }
    if (second.reached != 0) {
        const _Block& block = TargetBlock(second.targetKind, second.targetIndex);
        seg.startPoint = block.position;
        seg.startEntity = block.id;
        return 2;
    }
    return 0;
}

void GravityNetworkSearch::FinishTwoSided(GravitySeg& seg, const ChainOutcome& first,
                                          const ChainOutcome& second) {
    const _Block& endBlock = TargetBlock(first.targetKind, first.targetIndex);
    seg.endPoint = endBlock.position;
    seg.endEntity = endBlock.id;
    const _Block& startBlock = TargetBlock(second.targetKind, second.targetIndex);
    seg.startPoint = startBlock.position;
    seg.startEntity = startBlock.id;
    seg.length = first.length + second.length;
    chainLength = seg.GetLength();
    seg.length = seg.GetLength();
    PlaceAnnotation(seg.annotatePoint, seg.annotateVector, seg.endPoint);
    for (int k = 0; k < static_cast<int>(chainPipes.GetSize()); ++k) {
        seg.pipeIds.append(pipePool[chainPipes.GetAt(k)].id);
    }
}

} // namespace tkvlt
