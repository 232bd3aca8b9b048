// Takes every network entity of the drawing into the pools, of every pipe system: which system is
// walked is decided at each use. Most entities lie far from the network that is searched, so of
// pipes and wells no more need be read here than where they lie, when the drawing stays as it is:
// the rest is read when a rule asks.

#include "gravity/GravityNetworkSearch.h"
#include "records/IgnoredPipe.h"
#include "records/NetworkSelection.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

void ReadPipe(_Pipe& pipe, const AcDbObjectId& id) {
    pipe = _Pipe(id, XdataText(id, xdata::kPipeSystem));
}

/// Whether the entity carries the key; `text` is written then.
bool Carries(const ReadEntity& entity, const wchar_t* key, CString& text) {
    return ReadXdata(entity.get(), key, text) != 0;
}

} // namespace

int GravityNetworkSearch::CollectEntities() {
    const NetworkSelection selection{xdata::kWellSystem, xdata::kPipeSystem, xdata::kTank};
    const Adesk::Int32 length = selection.Length();
    MakeRoomForEntities(static_cast<std::size_t>(length));
    for (Adesk::Int32 index = 0; index < length; ++index) {
        const AcDbObjectId id = selection.At(index);
        ReadEntity entity(id);
        if (!entity) {
            continue; // nothing can be read of it, so it carries nothing
        }
        CString text;
        if (Carries(entity, xdata::kPipeSystem, text)) {
            AddPipe(id, entity, text);
        } else if (Carries(entity, xdata::kWellSystem, text)) {
            wellSites_.push_back(AddWellTo(wellPool, id, entity, text, traits_, ReadsLater()));
        } else if (Carries(entity, xdata::kTank, text)) {
            // A tank belongs to no system, so that pipes of every system may end at it.
            entity.Close();
            tankPool.Add(std::make_unique<_Block>(id, CString(), CString()));
        }
    }
    candidates_ = MakeCandidateSource(*this, candidateMode_);
    return length > 0 ? 1 : 0;
}

/// In a large drawing the room that is left over costs addresses alone.
void GravityNetworkSearch::MakeRoomForEntities(std::size_t most) {
    pipePool.Reserve(most);
    pipeSites_.reserve(most);
    wellPool.Reserve(most);
    wellSites_.reserve(most);
}

int GravityNetworkSearch::CollectEntitiesOnly() {
    CollectEntities();
    return 1;
}

void GravityNetworkSearch::AddPipe(const AcDbObjectId& id, ReadEntity& entity,
                                   const CString& system) {
    PipeSite site;
    site.id = id;
    site.system = traits_.systems.NumberOf(system);
    if (ReadsLater() && entity.IsStraightAndLonger(kLongestIgnoredPipe, site)) {
        pipePool.AddUnread(id, ReadPipe);
        pipeSites_.push_back(site);
        return;
    }
    entity.Close();
    auto pipe = std::make_unique<_Pipe>(id, system);
    if (pipe->GetLength() > kLongestIgnoredPipe) {
        pipeSites_.push_back({pipe->startPoint, pipe->endPoint, id, site.system, pipe->isArc});
        pipePool.Add(std::move(pipe));
    }
}

} // namespace tkvlt
