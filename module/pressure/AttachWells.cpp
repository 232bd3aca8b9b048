// Puts meter and valve wells onto the segments that they lie on.

#include "pressure/PressureNetworkSearch.h"
#include "records/ClosedAtEnd.h"
#include "records/PerDefinition.h"
#include "records/PipeBox.h"

namespace tkvlt {

namespace {

const wchar_t* const kMeterWellBlock = L"VLT_WELL_15";
const wchar_t* const kValveWellBlock = L"VLT_WELL_05";

/// A well's rim may miss a straight segment by this much. An arc allows for nothing.
constexpr double kStraightMargin = 0.0001;

enum class Fitting { kOther, kMeter, kValve };

/// By the name of the definition of a block reference.
Fitting NamedFitting(const AcDbObjectId& reference) {
    CString name;
    GetBlockRefName(reference, name);
    if (name.Compare(kMeterWellBlock) == 0) {
        return Fitting::kMeter;
    }
    return name.Compare(kValveWellBlock) == 0 ? Fitting::kValve : Fitting::kOther;
}

/// The same, found out once of each definition. Of anything but a block reference there is no name.
Fitting FittingOf(const AcDbObjectId& well, PerDefinition<Fitting>& known) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, well, AcDb::kForRead, AcDbBlockReference::desc(), false) !=
        Acad::eOk) {
        return Fitting::kOther;
    }
    const ClosedAtEnd closing(object);
    return known.Of(static_cast<AcDbBlockReference*>(object)->blockTableRecord(),
                    [&] { return NamedFitting(well); });
}

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
    PerDefinition<Fitting> known;
    for (int i = 0; i < wellPool.Size(); ++i) {
        const Fitting fitting = FittingOf(wellPool.IdOf(i), known);
        isMeter[static_cast<std::size_t>(i)] = fitting == Fitting::kMeter;
        if (fitting == Fitting::kOther) {
            wellPool.Remove(i);
        }
    }
    return isMeter;
}

} // namespace tkvlt
