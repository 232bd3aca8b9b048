// Puts meter and valve wells onto the segments that they lie on.

#include "pressure/PressureNetworkSearch.h"
#include "records/PipeBox.h"

namespace tkvlt {

namespace {

const wchar_t* const kMeterWellBlock = L"VLT_WELL_15";
const wchar_t* const kValveWellBlock = L"VLT_WELL_05";

/// A well's rim may miss a straight segment by this much. An arc allows for nothing.
constexpr double kStraightMargin = 0.0001;

PlanBox CurveBox(const PressureSeg& seg) {
    if (seg.isArc != 0) {
        return ArcBox(seg.arc);
    }
    PlanBox box = PlanBox::Of(seg.line.startPoint());
    box.Include(PlanBox::Of(seg.line.endPoint()));
    return box;
}

bool LiesOn(const PressureSeg& seg, const WellSite& well) {
    if (seg.isArc == 0) {
        return seg.line.distanceTo(well.position) <= well.radius + kStraightMargin;
    }
    return seg.arc.distanceTo(well.position) < well.radius;
}

} // namespace

int PressureNetworkSearch::AttachWells() {
    candidates_->LoopsChecked();
    const std::vector<bool> isMeter = KeepMetersAndValves();
    for (int s = 0; s < static_cast<int>(segs.GetSize()); ++s) {
        PressureSeg& seg = segs.ElementAt(s);
        for (const int w : WellsOn(seg)) {
            const WellSite& well = SiteOfWell(w);
            if (isMeter[static_cast<std::size_t>(w)]) {
                seg.InsertMeterWell(well.position, wellPool.IdOf(w));
            } else {
                seg.InsertValveWell(well.position, wellPool.IdOf(w));
            }
            wellPool.Remove(w);
        }
    }
    for (const int w : AllPresent(wellPool)) {
        wellPool[w].note = isMeter[static_cast<std::size_t>(w)] ? kMeterWellBlock : kValveWellBlock;
    }
    return 1;
}

Indices PressureNetworkSearch::WellsOn(const PressureSeg& seg) const {
    const double reach = candidates_->LargestWellRadius() + kStraightMargin;
    Indices wells = candidates_->WellsIn(CurveBox(seg).Widened(reach));
    wells.EraseIf([&](int well) { return !LiesOn(seg, SiteOfWell(well)); });
    return wells;
}

/// The kind of a well is the name of its block definition. Wells of any other name leave the pool;
/// which of the others are meters is given back by pool index.
std::vector<bool> PressureNetworkSearch::KeepMetersAndValves() {
    std::vector<bool> isMeter(static_cast<std::size_t>(wellPool.Size()));
    for (int i = 0; i < wellPool.Size(); ++i) {
        CString name;
        GetBlockRefName(wellPool.IdOf(i), name);
        if (name.Compare(kMeterWellBlock) == 0) {
            isMeter[static_cast<std::size_t>(i)] = true;
        } else if (name.Compare(kValveWellBlock) != 0) {
            wellPool.Remove(i);
        }
    }
    return isMeter;
}

} // namespace tkvlt
