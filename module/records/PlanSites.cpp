#include "records/PlanSites.h"

#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

bool BeginsWithAnArc(AcDbCurve* curve) {
    return curve->isA()->isDerivedFrom(AcDbPolyline::desc()) &&
           static_cast<AcDbPolyline*>(curve)->segType(0) == AcDbPolyline::kArc;
}

void ReadWell(_Block& well, const AcDbObjectId& id) {
    well = _Block(id, CString(), XdataText(id, xdata::kWellSystem));
}

} // namespace

void FillFromSite(const WellSite& site, const SystemNames& systems, _Block& well) {
    well.id = site.id;
    well.systemName = systems[site.system];
    well.position = site.position;
    well.radius = site.radius;
    well.isSquareWell = site.isSquareWell;
}

WellSite AddWellTo(RecordPool<_Block>& pool, const AcDbObjectId& id, ReadEntity& entity,
                   const CString& system, SharedTraits& traits, bool readsLater) {
    WellSite site;
    site.id = id;
    site.system = traits.systems.NumberOf(system);
    if (readsLater && entity.IsWellBlock(site, traits.wellShapes)) {
        pool.AddUnread(id, ReadWell);
        return site;
    }
    entity.Close();
    const int added = pool.Add(std::make_unique<_Block>(id, CString(), system));
    const _Block& well = pool[added];
    return {well.position, id, well.radius, well.isSquareWell, site.system};
}

ReadEntity::ReadEntity(const AcDbObjectId& id) {
    if (acdbOpenAcDbObject(object_, id, AcDb::kForRead, false) != Acad::eOk) {
        object_ = nullptr;
    }
}

ReadEntity::~ReadEntity() {
    Close();
}

void ReadEntity::Close() {
    if (object_ != nullptr) {
        object_->close();
        object_ = nullptr;
    }
}

bool ReadEntity::IsStraightAndLonger(double length, PipeSite& site) const {
    // Rounding of a length is far below these bounds.
    constexpr double clearly = 1.001;
    constexpr double farthest = 1e12;
    if (!object_->isKindOf(AcDbCurve::desc())) {
        return false;
    }
    auto* curve = static_cast<AcDbCurve*>(object_);
    curve->getStartPoint(site.startPoint);
    curve->getEndPoint(site.endPoint);
    const double straight = site.startPoint.distanceTo(site.endPoint);
    return straight > length * clearly && straight < farthest && !BeginsWithAnArc(curve);
}

bool ReadEntity::IsWellBlock(WellSite& site, WellShapes& wellShapes) const {
    if (!object_->isKindOf(AcDbBlockReference::desc())) {
        return false;
    }
    auto* reference = static_cast<AcDbBlockReference*>(object_);
    site.position = reference->position();
    site.radius = wellShapes.Radius(XdataText(object_, xdata::kWellDiameter));
    site.isSquareWell = wellShapes.IsSquare(reference->blockTableRecord());
    return true;
}

} // namespace tkvlt
