// Finds the well or tank that the walk starts from and makes it node 0.

#include "gravity/GravityNetworkSearch.h"
#include "gravity/MakeNode.h"

namespace tkvlt {

namespace {

/// Index of the first entry among `indices` that is the entity `id`; -1 for none.
template<class Record>
int FirstOf(const Indices& indices, const RecordPool<Record>& pool, const AcDbObjectId& id) {
    for (const int index : indices) {
        if (pool.IdOf(index) == id) {
            return index;
        }
    }
    return -1;
}

} // namespace

int GravityNetworkSearch::FindPipe(const AcDbObjectId& id) const {
    return FirstOf(candidates_->PipesOf(id), pipePool, id);
}

int GravityNetworkSearch::PlaceRootWell() {
    int index = -1;
    int kind = kTankTarget;
    if (!FindRoot(index, kind)) {
        return 0;
    }
    AddNode(kind, index);
    result->rootWell = 0;
    return 1;
}

bool GravityNetworkSearch::FindRoot(int& index, int& kind) {
    switch (startKind) {
    case kWellEntity:
        kind = kWellTarget;
        index = FirstOf(candidates_->WellsOf(*startId), wellPool, *startId);
        return index >= 0;
    case kTankEntity:
        kind = kTankTarget;
        index = FirstOf(candidates_->TanksOf(*startId), tankPool, *startId);
        return index >= 0;
    default: {
        const int pipe = FindPipe(*startId);
        return pipe >= 0 && FindRootBeyondPipe(pipe, index, kind);
    }
    }
}

bool GravityNetworkSearch::FindRootBeyondPipe(int pipe, int& index, int& kind) {
    ResetChain(pipe);
    TraceChain(pipe, 1, Site(pipe).endPoint);
    const int startIndex = targetIndex;
    const int startKindOfTarget = targetKind;
    ResetChain(pipe);
    TraceChain(pipe, 0, Site(pipe).startPoint);
    const int endIndex = targetIndex;
    const int endKindOfTarget = targetKind;
    if (startIndex < 0 && endIndex < 0) {
        return false;
    }
    bool takeEnd = startIndex < 0;
    if (startIndex >= 0 && endIndex >= 0) {
        const double startDistance =
            searchPoint->distanceTo(TargetBlock(startKindOfTarget, startIndex).position);
        const double endDistance =
            searchPoint->distanceTo(TargetBlock(endKindOfTarget, endIndex).position);
        takeEnd = endDistance <= startDistance;
    }
    index = takeEnd ? endIndex : startIndex;
    kind = takeEnd ? endKindOfTarget : startKindOfTarget;
    return true;
}

/// Appends the node of a target to the result and gives its index.
int GravityNetworkSearch::AddNode(int kind, int index) {
    const int added = static_cast<int>(result->wells.GetSize());
    result->wells.SetSize(added + 1);
    Well& node = result->wells.ElementAt(added);
    if (kind == kTankTarget || wellPool.IsRead(index)) {
        FillNode(node, TargetBlock(kind, index), kind);
    } else {
        FillFromSite(SiteOfWell(index), traits_.systems, node);
        BecomeNode(node, kind);
        if (unread_ != nullptr) {
            unread_->nodes.Add(index, added);
        } else {
            ReadRest(node);
        }
    }
    candidates_->NodeAdded(added);
    return added;
}

const AcDbObjectId& GravityNetworkSearch::TargetId(int kind, int index) const {
    return kind != kTankTarget ? SiteOfWell(index).id : tankPool.IdOf(index);
}

const _Block& GravityNetworkSearch::TargetBlock(int kind, int index) const {
    return kind != kTankTarget ? wellPool[index] : tankPool[index];
}

} // namespace tkvlt
