#include "gravity/GravityNetworkSearch.h"

#include <algorithm>

#include "gravity/MakeNode.h"
#include "records/FetchAhead.h"
#include "records/NotedThere.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

/// A way to be asked for its system: the name it is asked under and the kind that this makes it.
struct KindKey {
    const wchar_t* key;
    EntityKind kind;
};

constexpr KindKey kKindKeys[] = {{xdata::kWellSystem, kWellEntity},
                                 {xdata::kTankSystem, kTankEntity},
                                 {xdata::kPipeSystem, kPipeEntity}};

/// Reads the first text that is not empty and what it makes of the entity. The kind is that of the
/// last name asked, a pipe, when all texts are empty.
EntityKind ReadSystemName(const AcDbObjectId& id, CString& name) {
    for (const KindKey& way : kKindKeys) {
        ReadXdata(id, way.key, name);
        if (!name.IsEmpty()) {
            return way.kind;
        }
    }
    return kPipeEntity;
}

} // namespace

GravityNetworkSearch::GravityNetworkSearch(GravitySearchObject* object, AcDbObjectId& startId,
                                           AcDbObjectId& endId, AcGePoint3d& point,
                                           CandidateMode mode)
    : result(object), startId(&startId), endId(&endId), searchPoint(&point), abortFlag(0),
      dwgScale(GetDwgScale()), candidateMode_(mode) {
    snapDist = dwgScale * GetPipeBreakDist() * 2.0 * 1.1 * 2.0;
    lengthMode = GetPipeCalLongType();
}

int GravityNetworkSearch::Run() {
    LetDrawingStay();
    if (ValidateEnds() == 0) {
        return 0;
    }
    if (CollectEntities() == 0) {
        return 0;
    }
    return SearchCollected();
}

int GravityNetworkSearch::RunAgain(GravitySearchObject* object, AcDbObjectId& startId,
                                   AcDbObjectId& endId, AcGePoint3d& point) {
    RestorePools();
    this->startId = &startId;
    this->endId = &endId;
    searchPoint = &point;
    // An entity that does not carry a name leaves it as it is.
    systemName.Empty();
    if (ValidateEnds() == 0) {
        return 0;
    }
    result = object;
    return SearchCollected();
}

int GravityNetworkSearch::SearchCollected() {
    MakeRoomForResult();
    const int walked = ReadsLater() ? WalkAndReadLater() : WalkFromRoot();
    GiveSpareRoomBack();
    if (walked == 0 || abortFlag != 0) {
        return 0;
    }
    if (TraceEndPath() == 0) {
        return 0;
    }
    OrderSegHeights();
    return 1;
}

/// A node is a well of the system or a tank, so the arrays need not grow, which moves what they
/// hold. Room that is never written to costs nothing. A search that finds no root needs no result.
void GravityNetworkSearch::MakeRoomForResult() {
    if (result == nullptr) {
        return;
    }
    const auto ofSystem = std::count_if(wellSites_.begin(), wellSites_.end(),
                                        [&](const WellSite& well) { return IsSearched(well); });
    const auto most = static_cast<INT_PTR>(ofSystem) + tankPool.Size();
    result->wells.SetSize(result->wells.GetSize(), most);
    // A tree has one edge less than it has nodes.
    result->segs.SetSize(result->segs.GetSize(), std::max<INT_PTR>(most - 1, 0));
}

int GravityNetworkSearch::WalkFromRoot() {
    return PlaceRootWell() != 0 ? WalkFromWell(0) : 0;
}

/// No rule of a walk asks for what is read here behind it. What a walk that fails has found is read
/// as well, for it stays in the result.
int GravityNetworkSearch::WalkAndReadLater() {
    UnreadResult unread{LaterReading(wellPool.Size()), LaterReading(pipePool.Size())};
    const NotedThere noting(unread_, unread);
    const int walked = WalkFromRoot();
    // Nothing is looked for at a place any more, and what is read takes memory of its own.
    candidates_.reset();
    unread.nodes.ReadInOrder([this](int node) { FetchAhead(result->wells.ElementAt(node)); },
                             [this](int node) { ReadRest(result->wells.ElementAt(node)); });
    unread.segs.ReadInOrder(
        [this](int seg) { FetchAhead(result->segs.ElementAt(seg)); },
        [this](int seg) { FetchAhead(result->segs.ElementAt(seg).pipeIds.at(0)); },
        [this](int at) {
            GravitySeg& seg = result->segs.ElementAt(at);
            ReadSegmentValues(seg, seg.pipeIds.at(0));
        });
    return walked;
}

void GravityNetworkSearch::GiveSpareRoomBack() {
    if (result == nullptr) {
        return;
    }
    constexpr INT_PTR asUsual = 0;
    result->wells.SetSize(result->wells.GetSize(), asUsual);
    result->wells.FreeExtra();
    result->segs.SetSize(result->segs.GetSize(), asUsual);
    result->segs.FreeExtra();
}

int GravityNetworkSearch::ValidateEnds() {
    if (*endId == *startId || startId->isNull()) {
        return 0;
    }
    startKind = ReadSystemName(*startId, systemName);
    if (systemName.IsEmpty()) {
        return 0;
    }
    return endId->isNull() ? 1 : ValidateEndEntity();
}

int GravityNetworkSearch::ValidateEndEntity() {
    CString endSystem;
    const EntityKind kind = ReadSystemName(*endId, endSystem);
    if (endSystem.Compare(systemName) != 0) {
        return 0;
    }
    endKind = kind;
    return 1;
}

} // namespace tkvlt
