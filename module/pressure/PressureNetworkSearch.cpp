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
    wellPool.CloseUp(); // of spare room alone: no well has been taken away, and sites go by index
    wellSites_.shrink_to_fit();
    candidates_ = MakePressureCandidates(*this, candidateMode_);
    return length > 0 ? 1 : 0;
}

void PressureNetworkSearch::AddToPool(const AcDbObjectId& id) {
    ReadEntity entity(id);
    if (!entity) {
        return; // nothing can be read of it, so it carries nothing
    }
    CString value;
    if (ReadXdata(entity.get(), xdata::kPipeSystem, value) != 0) {
        if (value.Compare(systemName) == 0) {
            AddPipe(id, entity, value);
        }
    } else if (ReadXdata(entity.get(), xdata::kWellSystem, value) != 0) {
        wellSites_.push_back(AddWellTo(wellPool, id, entity, value, traits_, ReadsLater()));
    } else if (ReadXdata(entity.get(), xdata::kTank, value) != 0) {
        return; // a tank takes no part in a pressure network
    } else if (ReadXdata(entity.get(), xdata::kTemporaryOutflow, value) != 0 &&
               value.Compare(kOutflowIsTemporary) == 0) {
        entity.Close();
        outflowPool.Add(std::make_unique<_Block>(id, CString(), CString()));
    }
}

void PressureNetworkSearch::AddPipe(const AcDbObjectId& id, ReadEntity& entity,
                                    const CString& system) {
    PipeSite site;
    if (ReadsLater() && entity.IsStraightAndLonger(kLongestIgnoredPipe, site)) {
        pipePool.Add(id, {site.startPoint, site.endPoint});
        return;
    }
    entity.Close();
    auto pipe = std::make_unique<_Pipe>(id, system);
    if (pipe->GetLength() > kLongestIgnoredPipe) {
        pipePool.Add(std::move(pipe));
    }
}

int PressureNetworkSearch::FindPickedPipe() {
    for (int i = 0; i < pipePool.Size(); ++i) {
        if (pipePool.IdOf(i) == pickedId) {
            return 1;
        }
    }
    return 0;
}

int PressureNetworkSearch::PreparePipes() {
    SplitCrossings();
    SnapEndsToWells();
    pipePool.CloseUp();
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

Indices PressureNetworkSearch::LaterSegsEndingAt(int k) {
    Indices later;
    const AcGePoint3d searchPoint = segs.ElementAt(k).GetSearchPoint();
    for (const int j : candidates_->SegsEndingIn(PlanBox::Around(searchPoint, kOnePlace))) {
        if (j > k && searchPoint.distanceTo(segs.ElementAt(j).GetSearchPoint()) < kOnePlace) {
            later.push_back(j);
        }
    }
    return later;
}

} // namespace tkvlt
