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

void ReadWell(_Block& well, const AcDbObjectId& id) {
    well = _Block(id, CString(), XdataText(id, xdata::kWellSystem));
}

bool Carries(const ReadEntity& entity, const wchar_t* application) {
    CString text;
    return GetXdata(entity.get(), application, text) != 0;
}

} // namespace

int GravityNetworkSearch::CollectEntities() {
    const NetworkSelection selection{xdata::kWellSystem, xdata::kPipeSystem, xdata::kTank};
    SquareWells squareWells;
    const Adesk::Int32 length = selection.Length();
    for (Adesk::Int32 index = 0; index < length; ++index) {
        const AcDbObjectId id = selection.At(index);
        ReadEntity entity(id);
        if (!entity) {
            continue; // nothing can be read of it, so it carries nothing
        }
        if (Carries(entity, xdata::kPipeSystem)) {
            AddPipe(id, entity);
        } else if (Carries(entity, xdata::kWellSystem)) {
            AddWell(id, entity, squareWells);
        } else if (Carries(entity, xdata::kTank)) {
            // A tank belongs to no system, so that pipes of every system may end at it.
            entity.Close();
            tankPool.Add(_Block(id, CString(), CString()));
        }
    }
    candidates_ = MakeCandidateSource(*this, candidateMode_);
    return length > 0 ? 1 : 0;
}

int GravityNetworkSearch::CollectEntitiesOnly() {
    CollectEntities();
    return 1;
}

void GravityNetworkSearch::AddPipe(const AcDbObjectId& id, ReadEntity& entity) {
    PipeSite site;
    if (ReadsLater() && entity.IsStraightAndLonger(kLongestIgnoredPipe, site)) {
        pipePool.AddUnread(id, ReadPipe);
        pipeSites_.push_back(site);
        return;
    }
    entity.Close();
    _Pipe pipe;
    ReadPipe(pipe, id);
    if (pipe.GetLength() > kLongestIgnoredPipe) {
        pipePool.Add(pipe);
        pipeSites_.push_back({pipe.startPoint, pipe.endPoint, pipe.isArc});
    }
}

void GravityNetworkSearch::AddWell(const AcDbObjectId& id, ReadEntity& entity,
                                   SquareWells& squareWells) {
    WellSite site;
    AcDbObjectId definition;
    if (ReadsLater() && entity.IsWellBlock(site, definition)) {
        site.isSquareWell = squareWells.Has(definition);
        wellPool.AddUnread(id, ReadWell);
    } else {
        entity.Close();
        _Block well;
        ReadWell(well, id);
        wellPool.Add(well);
        site = {well.position, well.radius, well.isSquareWell};
    }
    wellSites_.push_back(site);
}

} // namespace tkvlt
