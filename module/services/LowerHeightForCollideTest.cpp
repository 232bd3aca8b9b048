#include "services/LowerHeightForCollideTest.h"

#include <optional>

#include "frame/GravitySearchObject.h"
#include "frame/SearchInformation.h"
#include "records/Pipe.h"
#include "records/XdataKeys.h"
#include "services/PipeHeights.h"
#include "services/PropagateLowering.h"
#include "services/SingleSeg.h"

namespace {

/// The network around an entity, freed with this.
struct FoundNetwork {
    FoundNetwork() = default;
    FoundNetwork(const FoundNetwork&) = delete;
    FoundNetwork& operator=(const FoundNetwork&) = delete;
    ~FoundNetwork() { delete object; }

    /// 1 also without an object, for a system that the settings do not know.
    int SearchFrom(AcDbObjectId entity, tkvlt::GravityNetworkSearch& collected) {
        AcDbObjectId noEnd;
        return tkvlt::SearchInformation(object, entity, noEnd, AcGePoint3d(), &collected);
    }

    /// Null without an object or with a network of the other kind.
    GravitySearchObject* Gravity() const {
        const bool isGravity =
            object != nullptr && object->IsKindOf(RUNTIME_CLASS(GravitySearchObject));
        return isGravity ? static_cast<GravitySearchObject*>(object) : nullptr;
    }

    SearchObject* object = nullptr;
};

/// Heights of a pipe by its two keys, metres.
struct Heights {
    double start;
    double end;
};

Heights LoweredHeights(const AcDbObjectId& pipe, double drop) {
    return {NumberPrefix(XdataText(pipe, xdata::kStartElevation)) - drop,
            NumberPrefix(XdataText(pipe, xdata::kEndElevation)) - drop};
}

void WriteHeights(const AcDbObjectId& pipe, const Heights& heights) {
    tkvlt::WriteHeights(pipe, tkvlt::HeightText(heights.start), tkvlt::HeightText(heights.end));
}

/// The same two texts for every pipe: neither a pipe's direction nor its place in the stretch
/// plays a part.
void WriteHeightsOfStretch(const GravitySeg& stretch, const Heights& heights) {
    for (int i = 0; i < stretch.pipeIds.length(); ++i) {
        WriteHeights(stretch.pipeIds.at(i), heights);
    }
}

/// Whether the pipe's end rather than its start is towards the well at which the lowering goes on.
/// At the same distance it is the start.
bool EndIsTowards(const AcGePoint3d& well, const AcDbObjectId& pipe) {
    const _Pipe curve(pipe, CString());
    return curve.startPoint.distanceTo(well) > curve.endPoint.distanceTo(well);
}

/// Any flow text but "ES" counts as "SE".
bool WaterComesFromEnd(const AcDbObjectId& pipe) {
    return XdataText(pipe, xdata::kFlow).Compare(xdata::kEndToStart) == 0;
}

} // namespace

int LowerHeightForCollideTest(AcDbObjectId pipe, double drop) {
    Seg seg;
    std::optional<tkvlt::SinglePipeSearch> search;
    if (tkvlt::FindSingleSeg(seg, pipe, search) == 0 || seg.kind != 1) {
        return 0;
    }
    const GravitySeg& stretch = seg.gravity;
    const Heights lowered = LoweredHeights(pipe, drop);
    const bool endIsTowardsWell = EndIsTowards(stretch.endPoint, pipe);
    const bool hasOpenStart = stretch.startEntity.isNull();
    if (hasOpenStart) {
        WriteHeights(pipe, lowered);
        if (WaterComesFromEnd(pipe) == endIsTowardsWell) {
            return 1; // the only well lies where the water comes from
        }
    }
    FoundNetwork network;
    // What was collected for the stretch serves here too: only heights have changed since.
    if (network.SearchFrom(stretch.endEntity, search->Collected()) == 0) {
        return 0;
    }
    // Written only now, so that the search has seen the stretch at its old heights.
    if (!hasOpenStart) {
        WriteHeightsOfStretch(stretch, lowered);
    }
    if (GravitySearchObject* gravity = network.Gravity()) {
        const double height = endIsTowardsWell ? lowered.end : lowered.start;
        const double limit = height + tkvlt::DiameterInMetres(stretch);
        tkvlt::PropagateLowering(*gravity, gravity->rootWell, limit);
    }
    return 1;
}
