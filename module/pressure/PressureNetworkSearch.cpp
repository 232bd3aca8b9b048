#include "pressure/PressureNetworkSearch.h"

#include "records/IgnoredPipe.h"
#include "records/NetworkSelection.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

const wchar_t* const kOutflowIsTemporary = L"0";

} // namespace

PressureNetworkSearch::PressureNetworkSearch(CArray<PressureSeg, PressureSeg&>& segs,
                                             AcDbObjectId pickedId, AcGePoint3d pickedPoint,
                                             int& rootSeg, CandidateMode mode)
    : segs(segs), rootSeg(rootSeg), pickedId(pickedId), pickedPoint(pickedPoint),
      dwgScale(GetDwgScale()), breakDist(GetPipeBreakDist()), lengthMode(GetPipeCalLongType()),
      candidateMode_(mode) {}

int PressureNetworkSearch::Run() {
    if (ReadSystemName() == 0 || CollectEntities() == 0 || FindPickedPipe() == 0 ||
        PreparePipes() == 0 || BuildSegments() == 0 || CheckNoLoops() == 0) {
        return 0;
    }
    AttachWells();
    return 1;
}

int PressureNetworkSearch::ReadSystemName() {
    ReadXdata(pickedId, xdata::kPipeSystem, systemName);
    return systemName.IsEmpty() ? 0 : 1;
}

/// The filter names no tanks, unlike that of the gravity search.
int PressureNetworkSearch::CollectEntities() {
    const NetworkSelection selection{xdata::kWellSystem, xdata::kPipeSystem};
    const Adesk::Int32 length = selection.Length();
    for (Adesk::Int32 index = 0; index < length; ++index) {
        AddToPool(selection.At(index));
    }
    candidates_ = MakePressureCandidates(*this, candidateMode_);
    return length > 0 ? 1 : 0;
}

void PressureNetworkSearch::AddToPool(const AcDbObjectId& id) {
    CString value;
    if (ReadXdata(id, xdata::kPipeSystem, value) != 0) {
        if (value.Compare(systemName) == 0) {
            _Pipe pipe(id, value);
            if (pipe.GetLength() > kLongestIgnoredPipe) {
                pipePool.Add(pipe);
            }
        }
    } else if (ReadXdata(id, xdata::kWellSystem, value) != 0) {
        wellPool.Add(_Block(id, CString(), value));
    } else if (ReadXdata(id, xdata::kTank, value) != 0) {
        return; // a tank takes no part in a pressure network
    } else if (ReadXdata(id, xdata::kTemporaryOutflow, value) != 0 &&
               value.Compare(kOutflowIsTemporary) == 0) {
        outflowPool.Add(_Block(id, CString(), CString()));
    }
}

int PressureNetworkSearch::FindPickedPipe() {
    for (int i = 0; i < pipePool.Size(); ++i) {
        if (pipePool[i].id == pickedId) {
            return 1;
        }
    }
    return 0;
}

int PressureNetworkSearch::PreparePipes() {
    SplitCrossings();
    SnapEndsToWells();
    candidates_->PipesPrepared();
    return 1;
}

int PressureNetworkSearch::CheckNoLoops() {
    candidates_->SegsBuilt();
    for (int i = 0; i < static_cast<int>(segs.GetSize()); ++i) {
        if (!LaterSegsEndingAt(i).empty()) {
            return 0;
        }
    }
    return 1;
}

std::vector<int> PressureNetworkSearch::LaterSegsEndingAt(int k) {
    std::vector<int> later;
    const AcGePoint3d searchPoint = segs.ElementAt(k).GetSearchPoint();
    for (const int j : candidates_->SegsEndingIn(PlanBox::Around(searchPoint, kOnePlace))) {
        if (j > k && searchPoint.distanceTo(segs.ElementAt(j).GetSearchPoint()) < kOnePlace) {
            later.push_back(j);
        }
    }
    return later;
}

} // namespace tkvlt
